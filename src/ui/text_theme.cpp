#include "ui/text_theme.h"

#include <cmath>

namespace quillmark {

QColor mixed(const QColor& a, const QColor& b, double amount) {
    const auto part = [amount](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * amount));
    };
    return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

QColor TextTheme::of(TextClass what) const {
    switch (what) {
        case TextClass::comment:
            return comment;
        case TextClass::section:
            return section;
        case TextClass::key:
            return key;
        case TextClass::value:
            break;
    }
    return text;
}

TextTheme textTheme(const QPalette& palette) {
    TextTheme theme;
    theme.base = palette.color(QPalette::Active, QPalette::Base);
    theme.text = palette.color(QPalette::Active, QPalette::Text);
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    const bool dark = theme.base.lightness() < theme.text.lightness();
    theme.comment = dark ? QColor(0x8C, 0xC4, 0x8C) : QColor(0x2A, 0x6B, 0x2A);
    theme.section = dark ? QColor(0x8A, 0xB8, 0xFF) : QColor(0x1A, 0x3F, 0xD0);
    theme.key = dark ? QColor(0xFF, 0xA3, 0x94) : QColor(0xA8, 0x1C, 0x1C);
    theme.currentLine = mixed(theme.base, theme.text, dark ? 0.07 : 0.04);
    theme.marked = mixed(theme.base, accent, dark ? 0.22 : 0.12);
    theme.markEdge = accent;
    theme.gutter = mixed(theme.base, theme.text, 0.03);
    theme.lineNumber = mixed(theme.base, theme.text, 0.68);
    theme.currentLineNumber = theme.text;
    return theme;
}

}  // namespace quillmark
