// Cells of the icon sheet as they are painted, in a window or in a file.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>

#include "views/icon_sheet.h"

namespace quillmark {

struct SheetTheme {
    QFont font;
    QColor ground;     // of the sheet
    QColor frame;      // a middle tone
    QColor selection;  // frame of the selected cell
    Ground picture = Ground::map;
};

// For `SheetOptions::lineHeight`.
[[nodiscard]] int sheetLineHeight(const QFont& font);

// Keeps the cells it has painted, so that scrolling copies them.
class SheetPainter {
  public:
    // `room` in bytes; a few views full of cells.
    explicit SheetPainter(std::size_t room = std::size_t{96} << 20U) : cells_(room) {}

    void setTheme(const SheetTheme& theme);
    // A cell whose upper left corner lies at `corner`, in logical pixels of the painter. The
    // sheet's ratio has to be that of the painter's device. Cells share their frames.
    void afficheIcone(QPainter& painter, const IconSheet& sheet, const SheetCell& cell,
                      const QPoint& corner, bool selected);

  private:
    struct PaintedCell {
        QImage image;
        std::shared_ptr<const Picture> picture;  // kept, so that its address stays its own
    };
    [[nodiscard]] PaintedCell painted(const IconSheet& sheet, const SheetCell& cell) const;

    SheetTheme theme_;
    ContentCache<PaintedCell> cells_;
};

}  // namespace quillmark
