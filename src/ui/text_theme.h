// Colours of the text view, by the palette it stands in.
#pragma once

#include <QColor>
#include <QPalette>

#include "text/highlight.h"

namespace quillmark {

struct TextTheme {
    QColor base;
    QColor text;
    QColor comment;
    QColor section;
    QColor key;
    QColor currentLine;  // backgrounds
    QColor marked;
    QColor markEdge;
    QColor gutter;
    QColor lineNumber;
    QColor currentLineNumber;

    [[nodiscard]] QColor of(TextClass what) const;
    bool operator==(const TextTheme&) const = default;
};

[[nodiscard]] TextTheme textTheme(const QPalette& palette);
// `amount` of `b` over `a`, 0 to 1.
[[nodiscard]] QColor mixed(const QColor& a, const QColor& b, double amount);

}  // namespace quillmark
