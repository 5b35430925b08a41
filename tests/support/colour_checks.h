// Known values of colour functions: a table of colours, and checksums over many.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "bitmap/colour.h"

namespace quillmark::testing {

// "#RRGGBB".
[[nodiscard]] inline Couleur rgb(const std::string& text) {
    return EchangeRB(static_cast<Couleur>(std::stoul(text.substr(1), nullptr, 16)));
}

struct ColourRow {
    std::string colour;
    std::array<int, 3> rgbFields;
    std::array<int, 3> hslFields;
    std::array<std::size_t, 3> indices;
    std::string nearest;
    int marked;                      // the swatch with the border, 0 for none
    std::string typedBack;           // when exactly these hue, saturation and lightness are typed
    std::array<int, 3> typedFields;  // the red, green and blue fields then
};
[[nodiscard]] const std::vector<ColourRow>& colourRows();

// As in zlib.
class Crc32 {
  public:
    Crc32();
    void add(int byte) {
        sum_ = table_[(sum_ ^ static_cast<std::uint32_t>(byte)) & 0xFFU] ^ sum_ >> 8;
    }
    void addColour(Couleur colour) {
        add(redOf(colour));
        add(greenOf(colour));
        add(blueOf(colour));
    }
    [[nodiscard]] std::uint32_t value() const { return ~sum_; }

  private:
    std::uint32_t sum_ = 0xFFFFFFFFU;
    std::array<std::uint32_t, 256> table_{};
};

// `add(crc, colour)` for colours with channels at multiples of `step`, red outermost.
template <typename Add>
[[nodiscard]] std::uint32_t checksumOfColours(int step, Add add) {
    Crc32 crc;
    for (int red = 0; red < 256; red += step) {
        for (int green = 0; green < 256; green += step) {
            for (int blue = 0; blue < 256; blue += step) {
                add(crc, Couleur{red | green << 8 | blue << 16});
            }
        }
    }
    return crc.value();
}

}  // namespace quillmark::testing
