// Cells of the icon sheet as they are painted, in a window or in a file.
#pragma once

#include <QColor>
#include <QFont>
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

// A cell whose upper left corner lies at `corner`, in logical pixels of the painter. The sheet's
// ratio has to be that of the painter's device. Cells share their frames.
void paintCell(QPainter& painter, const IconSheet& sheet, const SheetCell& cell,
               const SheetTheme& theme, const QPoint& corner, bool selected);

}  // namespace quillmark
