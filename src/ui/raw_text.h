// Text as the text control holds it: UTF-16, lines parted by U+2029. Qt's own plain text turns
// no-break blanks and line separators into others, which would change labels.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quillmark {

// Any line ends. What the control can't hold is U+FFFD, see `viewableText`.
[[nodiscard]] QString rawText(const QString& text);
[[nodiscard]] QString rawText(const std::string& utf8);
// UTF-8, lines ended by CR LF.
[[nodiscard]] std::string fileText(const QString& raw);

// The same characters, for who knows no toolkit.
[[nodiscard]] inline std::u16string_view viewOf(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

}  // namespace quillmark
