// The four classes of text that the text view colours.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillmark {

enum class TextClass : std::uint8_t { value, comment, section, key };

struct TextSpan {
    std::size_t start = 0;
    std::size_t length = 0;
    TextClass what = TextClass::value;
    bool operator==(const TextSpan&) const = default;
};

// The spans of one line, which together cover it. Nothing depends on other lines, so a line can be
// coloured when it comes into sight. Only keywords that mean something are sections and keys: a
// misspelt one stays plain.
[[nodiscard]] std::vector<TextSpan> classifyLine(std::u16string_view line);

}  // namespace quillmark
