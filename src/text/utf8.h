// UTF-8 one character at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

inline constexpr char32_t kReplacement = 0xFFFD;

// The character at `position`, which moves behind it. A malformed sequence is U+FFFD for its
// first byte and the ones that belong to it.
[[nodiscard]] char32_t nextMultiByte(std::string_view text, std::size_t& position);
[[nodiscard]] inline char32_t nextCharacter(std::string_view text, std::size_t& position) {
    const auto first = static_cast<unsigned char>(text[position]);
    if (first < 0x80) {
        ++position;
        return first;
    }
    return nextMultiByte(text, position);
}
void appendCharacter(std::string& text, char32_t character);

[[nodiscard]] std::u16string utf8ToUtf16(std::string_view text);
[[nodiscard]] std::string utf16ToUtf8(std::u16string_view text);

[[nodiscard]] bool isAscii(std::string_view text);

}  // namespace quillmark
