#include "bitmap/system_colours.h"

#include <array>
#include <cstddef>

namespace quillmark {
namespace {

// By number, as a light desktop has them, red first.
constexpr std::array<std::uint32_t, 31> kSystemColours{
    0xC8C8C8, 0x000000, 0x99B4D1, 0xBFCDDB, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000,
    0x000000, 0x000000, 0xB4B4B4, 0xF4F7FC, 0xABABAB, 0x0078D7, 0xFFFFFF, 0xF0F0F0,
    0xA0A0A0, 0x6D6D6D, 0x000000, 0x000000, 0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000,
    0xFFFFE1, 0x000000, 0x0066CC, 0xB9D1EA, 0xD7E4F2, 0x3399FF, 0xF0F0F0};

}  // namespace

Couleur ResoudreCouleur(Couleur colour) {
    if (colour >= 0) {
        return colour;
    }
    const auto number = static_cast<std::size_t>(static_cast<std::uint32_t>(colour) & 0x7FFFFFFFU);
    return number < kSystemColours.size() ? EchangeRB(static_cast<Couleur>(kSystemColours[number]))
                                          : 0;
}

}  // namespace quillmark
