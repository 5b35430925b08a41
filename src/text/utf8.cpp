#include "text/utf8.h"

#include <cstdint>
#include <cstring>

namespace quillmark {

char32_t nextMultiByte(std::string_view text, std::size_t& position) {
    const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t first = at(position++);
    std::size_t following = 0;
    char32_t value = 0;
    std::uint8_t low = 0x80;
    std::uint8_t high = 0xBF;
    if (first >= 0xC2 && first <= 0xDF) {
        following = 1;
        value = first & 0x1FU;
    } else if (first >= 0xE0 && first <= 0xEF) {
        following = 2;
        value = first & 0x0FU;
        low = first == 0xE0 ? 0xA0 : 0x80;   // no overlong forms
        high = first == 0xED ? 0x9F : 0xBF;  // no surrogates
    } else if (first >= 0xF0 && first <= 0xF4) {
        following = 3;
        value = first & 0x07U;
        low = first == 0xF0 ? 0x90 : 0x80;
        high = first == 0xF4 ? 0x8F : 0xBF;  // nothing above U+10FFFF
    } else {
        return kReplacement;
    }
    for (; following > 0; --following) {
        if (position >= text.size() || at(position) < low || at(position) > high) {
            return kReplacement;
        }
        value = value << 6U | (at(position++) & 0x3FU);
        low = 0x80;
        high = 0xBF;
    }
    return value;
}

void appendCharacter(std::string& text, char32_t c) {
    const auto put = [&text](char32_t unit) { text.push_back(static_cast<char>(unit)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0U | c >> 6U);
        put(0x80U | (c & 0x3FU));
    } else if (c < 0x10000) {
        put(0xE0U | c >> 12U);
        put(0x80U | (c >> 6U & 0x3FU));
        put(0x80U | (c & 0x3FU));
    } else {
        put(0xF0U | c >> 18U);
        put(0x80U | (c >> 12U & 0x3FU));
        put(0x80U | (c >> 6U & 0x3FU));
        put(0x80U | (c & 0x3FU));
    }
}

std::u16string utf8ToUtf16(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = nextCharacter(text, i);
        if (c < 0x10000) {
            result.push_back(static_cast<char16_t>(c));
        } else {
            result.push_back(static_cast<char16_t>(0xD800U + ((c - 0x10000U) >> 10U)));
            result.push_back(static_cast<char16_t>(0xDC00U + ((c - 0x10000U) & 0x3FFU)));
        }
    }
    return result;
}

std::string utf16ToUtf8(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        const bool pair = c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() &&
                          text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        if (pair) {
            c = 0x10000U + ((c - 0xD800U) << 10U) + (text[++i] - 0xDC00U);
        } else if (c >= 0xD800 && c < 0xE000) {
            c = kReplacement;
        }
        appendCharacter(result, c);
    }
    return result;
}

bool isAscii(std::string_view text) {
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, sizeof word);
        if ((word & 0x8080808080808080U) != 0) {
            return false;
        }
    }
    for (; i < text.size(); ++i) {
        if ((static_cast<std::uint8_t>(text[i]) & 0x80U) != 0) {
            return false;
        }
    }
    return true;
}

}  // namespace quillmark
