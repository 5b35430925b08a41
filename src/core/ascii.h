// Letters and blanks as files and settings compare and trim them: ASCII only, in any locale.
#pragma once

#include <string>
#include <string_view>

namespace quillmark {

[[nodiscard]] inline std::string loweredAscii(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return lowered;
}

// Without the blanks and tabs around it.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\v\f";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace quillmark
