// Letters and blanks as files and settings compare and trim them, the same in any locale.
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

// UTF-8 with the capitals of ASCII and Latin-1 lowered: names in French and Spanish need no more.
[[nodiscard]] inline std::string loweredLatin1(std::string_view text) {
    std::string lowered = loweredAscii(text);
    for (std::size_t i = 1; i < lowered.size(); ++i) {
        const auto second = static_cast<unsigned char>(lowered[i]);
        if (lowered[i - 1] == '\xC3' && second <= 0x9E && second != 0x97) {
            lowered[i] = static_cast<char>(second | 0x20U);
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
