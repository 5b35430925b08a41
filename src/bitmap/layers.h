// Pictures that may be seen through, laid one over the other, and the ground below them all.
#pragma once

#include <cstdint>

#include "bitmap/colour.h"
#include "bitmap/image.h"

namespace quillmark {

// A pixel of a picture is its colour and, in the high byte, how far it lets through what lies
// below: 0 not at all, 255 wholly. So no colour is ever taken for "transparent".
inline constexpr Couleur kTransparent = static_cast<Couleur>(0xFF000000U);

[[nodiscard]] constexpr std::uint8_t transparencyOf(Couleur pixel) {
    return static_cast<std::uint8_t>(static_cast<std::uint32_t>(pixel) >> 24U);
}
[[nodiscard]] constexpr Couleur seenThrough(Couleur colour, std::uint8_t transparency) {
    const std::uint32_t high = std::uint32_t{transparency} << 24U;
    return transparency == 255
               ? kTransparent
               : static_cast<Couleur>(high | (static_cast<std::uint32_t>(colour) & 0xFFFFFFU));
}

// Lays `source` over `target`, each of its pixels as a square of `scale` pixels. What lies outside
// is left out.
void layOver(Image& target, const Image& source, int x, int y, int scale = 1);

// The picture in a smaller size, each pixel the mean of those it stands for.
[[nodiscard]] Image shrunk(const Image& source, int width, int height);

// What is seen through transparent pixels. `map` is light by day and dark by night.
enum class Ground : std::uint8_t { map, light, dark, checker };
inline constexpr Couleur kLightGround = couleurFromRgb(0xF3, 0xEF, 0xE3);
inline constexpr Couleur kDarkGround = couleurFromRgb(0x2B, 0x30, 0x38);
inline constexpr Couleur kCheckerLight = couleurFromRgb(0xFF, 0xFF, 0xFF);
inline constexpr Couleur kCheckerDark = couleurFromRgb(0xD2, 0xD2, 0xD2);
inline constexpr int kCheckerSide = 4;

// Puts the ground below the picture; afterwards no pixel is transparent. `unit` is the size of a
// pixel of the window, for the squares of the checker.
void paintGround(Image& picture, Ground ground, bool night, int unit = 1);

}  // namespace quillmark
