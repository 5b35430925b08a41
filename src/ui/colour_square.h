// A small square of one colour beside a text.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QSize>

namespace quillmark {

// With an edge, so that it shows on a ground of its own colour. `size` is in logical pixels.
[[nodiscard]] QIcon colourSquare(const QColor& colour, QSize size, const QPalette& palette);

}  // namespace quillmark
