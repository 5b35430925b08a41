// A colour inside the program: 32 bits, red in the low byte. On disk blue comes first; only the
// record units and this room know that.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

using Couleur = std::int32_t;  // negative values name system colours of the platform

[[nodiscard]] constexpr Couleur couleurFromRgb(std::uint8_t red, std::uint8_t green,
                                               std::uint8_t blue) {
    return red | green << 8 | blue << 16;
}
[[nodiscard]] constexpr std::uint8_t redOf(Couleur c) {
    return static_cast<std::uint8_t>(c & 0xFF);
}
[[nodiscard]] constexpr std::uint8_t greenOf(Couleur c) {
    return static_cast<std::uint8_t>(c >> 8 & 0xFF);
}
[[nodiscard]] constexpr std::uint8_t blueOf(Couleur c) {
    return static_cast<std::uint8_t>(c >> 16 & 0xFF);
}

// Swaps the lowest and the third byte; a negative value yields 0.
[[nodiscard]] constexpr Couleur EchangeRB(Couleur c) {
    return c < 0 ? 0 : couleurFromRgb(blueOf(c), greenOf(c), redOf(c));
}

// "#RRGGBB"; a system colour counts as black.
[[nodiscard]] std::string colourText(Couleur colour);

}  // namespace quillmark
