// Colours as screens of 16 bits have them: five bits of red and blue, six of green.
#pragma once

#include <cstdint>

#include "bitmap/colour.h"

namespace quillmark {

inline constexpr int kFiveBitsMax = 31;
inline constexpr int kSixBitsMax = 63;

// Both give the whole part, so a level shows as the one below when it comes back.
[[nodiscard]] constexpr int levelOfByte(std::uint8_t byte, int max) {
    return byte * max / 255;
}
[[nodiscard]] constexpr std::uint8_t byteOfLevel(int level, int max) {
    return static_cast<std::uint8_t>(level * 255 / max);
}

// The nearest colour of 16 bits; such a colour stays as it is.
[[nodiscard]] constexpr Couleur nearest16Bits(Couleur colour) {
    const auto nearest = [](std::uint8_t byte, int max) {
        return byteOfLevel((byte * max + 127) / 255, max);
    };
    return couleurFromRgb(nearest(redOf(colour), kFiveBitsMax),
                          nearest(greenOf(colour), kSixBitsMax),
                          nearest(blueOf(colour), kFiveBitsMax));
}

}  // namespace quillmark
