// Appends the pieces that text sections are made of.
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "bitmap/colour.h"
#include "core/bytes.h"

namespace quillmark {

inline constexpr std::string_view kLineEnd = "\r\n";

class TextWriter {
  public:
    explicit TextWriter(std::string& text) : text_(text) {}

    TextWriter& raw(std::string_view piece) {
        text_.append(piece);
        return *this;
    }
    TextWriter& character(char c) {
        text_.push_back(c);
        return *this;
    }
    TextWriter& number(int value) {
        std::array<char, 16> buffer{};
        char* const start = buffer.data();
        const char* const end = std::to_chars(start, start + buffer.size(), value).ptr;
        text_.append(start, static_cast<std::size_t>(end - start));
        return *this;
    }
    TextWriter& hexByte(std::uint8_t value) {
        constexpr std::string_view digits = "0123456789ABCDEF";
        text_.push_back(digits[value >> 4U]);
        text_.push_back(digits[value & 15U]);
        return *this;
    }
    // "#RRGGBB".
    TextWriter& colour(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
        return character('#').hexByte(red).hexByte(green).hexByte(blue);
    }
    TextWriter& colour(Couleur value) {
        return colour(redOf(value), greenOf(value), blueOf(value));
    }
    // Colour `index` of an array with three bytes a colour, blue first; black when it isn't there.
    TextWriter& storedColour(ByteView colours, std::size_t index) {
        const std::size_t at = index * 3;
        return at + 3 <= colours.size() ? colour(colours[at + 2], colours[at + 1], colours[at])
                                        : colour(0, 0, 0);
    }
    TextWriter& end() { return raw(kLineEnd); }
    TextWriter& line(std::string_view content) { return raw(content).end(); }

    [[nodiscard]] std::string& text() { return text_; }

  private:
    std::string& text_;
};

}  // namespace quillmark
