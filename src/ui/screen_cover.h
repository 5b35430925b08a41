// A picture of a screen, laid over that screen while the user looks for a colour: what is clicked
// is the picture, so no other window gets anything.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include "ui/screen_colour.h"

namespace quillmark {

class ScreenCover : public QWidget {
  public:
    ScreenCover(QWidget* parent, QPixmap picture, ScreenColour::Seen seen,
                ScreenColour::Ended ended);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    [[nodiscard]] QPoint pixelAt(QPointF place) const;
    [[nodiscard]] QRect lensAt(QPoint place) const;
    void lookAt(std::optional<QPoint> place);
    void end(std::optional<Couleur> colour);

    QPixmap picture_;
    QImage pixels_;
    ScreenColour::Seen seen_;
    ScreenColour::Ended ended_;
    std::optional<QPoint> at_;
};

}  // namespace quillmark
