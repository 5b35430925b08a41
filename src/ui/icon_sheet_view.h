// The icon sheet itself: draws the cells in view, answers mouse, wheel and keyboard.
#pragma once

#include <QAbstractScrollArea>
#include <functional>

#include "paint/sheet_painter.h"
#include "views/icon_sheet.h"

namespace quillmark {

class IconSheetView : public QAbstractScrollArea {
  public:
    IconSheetView(const Document& document, const Traduction& traduction);

    [[nodiscard]] const IconSheet& sheet() const { return sheet_; }
    // The ratio, the theme and what follows from the font are the view's own.
    void setOptions(const SheetOptions& options, const QFont& font, Ground ground);
    // After any change of the document, seen or not.
    void AfficheTout();
    // The cell of this object is framed, and brought into sight.
    void setCurrent(const ObjectRef& object);

    std::function<void(const ObjectRef&)> chosen;
    std::function<void(const ObjectRef&)> activated;
    std::function<void(const QPoint& global)> menuRequested;
    // Ctrl and the wheel: one factor up or down.
    std::function<void(int by)> zoomRequested;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void Rafraichir_VisualisationBox();
    void showCell(int cell);
    void choose(int cell);
    [[nodiscard]] bool isCurrent(int cell) const;
    [[nodiscard]] int cellAt(const QPoint& place) const;
    [[nodiscard]] std::int64_t scrolled() const;

    IconSheet sheet_;
    SheetTheme theme_;
    SheetPainter cells_;
    ObjectRef current_;
    static constexpr int kNoCell = -2;
    int seen_ = kNoCell;  // the cell that was brought into sight last
    int pressed_ = -1;
    int wheel_ = 0;  // what remains of turns smaller than a step
};

}  // namespace quillmark
