// Letters and blanks as files and settings compare and trim them, the same in any locale.
#pragma once

#include <charconv>
#include <concepts>
#include <optional>
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
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text,
                                                 std::string_view blanks = " \t\v\f") {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Nothing unless all of `text` is a number that fits.
template <std::integral Number>
[[nodiscard]] std::optional<Number> wholeNumber(std::string_view text, int base = 10) {
    Number value = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value, base);
    if (error != std::errc() || end != last) {
        return std::nullopt;
    }
    return value;
}

}  // namespace quillmark
