// The fixed palette of the eTrex and 60 series: a lattice of levels and a row of greys.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "bitmap/colour.h"

namespace quillmark {

inline constexpr std::array<std::uint8_t, 5> NiveauxRouge{0, 57, 123, 189, 255};
inline constexpr std::array<std::uint8_t, 6> NiveauxVert{0, 48, 101, 149, 202, 255};
inline constexpr std::array<std::uint8_t, 8> NiveauxBleu{0, 32, 65, 106, 139, 180, 213, 255};
inline constexpr std::array<std::uint8_t, 16> NiveauxGris{0,   16,  32,  49,  65,  82,  98,  115,
                                                          131, 148, 164, 180, 197, 213, 230, 255};

struct Composantes {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Composantes&) const = default;
};
[[nodiscard]] Composantes SeparerCouleur(Couleur colour);

// City-block distance, 0 to 765.
[[nodiscard]] int DistanceCouleurs(Couleur a, Couleur b);
// The lowest index wins a tie; 0 for an empty array.
[[nodiscard]] std::size_t IndexPlusProche(Couleur colour, std::span<const Couleur> colours);

// Matches each channel by itself, then the greys against all three: no other distance may take
// its place, since devices match that way.
[[nodiscard]] Couleur PlusProcheCouleurGarmin(Couleur colour);
[[nodiscard]] bool EstCouleurGarmin(Couleur colour);

// For each channel the level below the first one, from the second on, that is at or above it.
struct IndicesNiveaux {
    std::size_t red = 0;
    std::size_t green = 0;
    std::size_t blue = 0;
    bool operator==(const IndicesNiveaux&) const = default;
};
[[nodiscard]] IndicesNiveaux IndicesGarmin(Couleur colour);
// The corners of the cell of the lattice around a colour: round the lower blue level, then round
// the upper one.
[[nodiscard]] std::array<Couleur, 8> couleursVoisines(Couleur colour);

}  // namespace quillmark
