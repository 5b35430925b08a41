// A picture of colours in which the user points at one, with the mouse or the arrow keys.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

namespace quillmark {

class ColourField : public QWidget {
  public:
    enum class Mark { cross, row };

    // Points are counted in `size`; the picture is stretched to it.
    ColourField(const char* objectName, QSize size, Mark mark);

    void setPicture(const QImage& picture);
    void setMark(QPoint mark);

    // Presses and drags, which may lie outside.
    std::function<void(QPoint)> pressed;
    // Arrow keys, ten times as far with Shift.
    std::function<void(int columns, int rows)> moved;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void press(const QMouseEvent& event) const;

    QSize size_;
    Mark mark_;
    QImage picture_;
    QPoint at_;
};

}  // namespace quillmark
