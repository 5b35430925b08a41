#include "bitmap/garmin_palette.h"

#include <algorithm>
#include <cstdlib>

#include "bitmap/system_colours.h"

namespace quillmark {
namespace {

template <std::size_t size>
std::uint8_t nearestLevel(const std::array<std::uint8_t, size>& levels, std::uint8_t value) {
    return *std::min_element(levels.begin(), levels.end(), [value](int a, int b) {
        return std::abs(a - value) < std::abs(b - value);
    });
}

template <std::size_t size>
std::size_t lowerLevel(const std::array<std::uint8_t, size>& levels, std::uint8_t value) {
    return static_cast<std::size_t>(std::lower_bound(levels.begin() + 1, levels.end(), value) -
                                    levels.begin()) -
           1;
}

int squaredDistance(const Composantes& a, const Composantes& b) {
    const auto square = [](int difference) { return difference * difference; };
    return square(a.red - b.red) + square(a.green - b.green) + square(a.blue - b.blue);
}

}  // namespace

Composantes SeparerCouleur(Couleur colour) {
    const Couleur plain = ResoudreCouleur(colour);
    return {redOf(plain), greenOf(plain), blueOf(plain)};
}

int DistanceCouleurs(Couleur a, Couleur b) {
    const Composantes first = SeparerCouleur(a);
    const Composantes second = SeparerCouleur(b);
    return std::abs(first.red - second.red) + std::abs(first.green - second.green) +
           std::abs(first.blue - second.blue);
}

std::size_t IndexPlusProche(Couleur colour, std::span<const Couleur> colours) {
    std::size_t best = 0;
    for (std::size_t i = 1; i < colours.size(); ++i) {
        if (DistanceCouleurs(colours[i], colour) < DistanceCouleurs(colours[best], colour)) {
            best = i;
        }
    }
    return best;
}

Couleur PlusProcheCouleurGarmin(Couleur colour) {
    const Composantes wanted = SeparerCouleur(colour);
    Composantes best{nearestLevel(NiveauxRouge, wanted.red),
                     nearestLevel(NiveauxVert, wanted.green),
                     nearestLevel(NiveauxBleu, wanted.blue)};
    for (const std::uint8_t level : NiveauxGris) {
        const Composantes grey{level, level, level};
        if (squaredDistance(wanted, grey) < squaredDistance(wanted, best)) {
            best = grey;
        }
    }
    return couleurFromRgb(best.red, best.green, best.blue);
}

bool EstCouleurGarmin(Couleur colour) {
    return PlusProcheCouleurGarmin(colour) == ResoudreCouleur(colour);
}

IndicesNiveaux IndicesGarmin(Couleur colour) {
    const Composantes parts = SeparerCouleur(colour);
    return {lowerLevel(NiveauxRouge, parts.red), lowerLevel(NiveauxVert, parts.green),
            lowerLevel(NiveauxBleu, parts.blue)};
}

std::array<Couleur, 8> couleursVoisines(Couleur colour) {
    const auto [r, g, b] = IndicesGarmin(colour);
    constexpr std::array<std::array<std::size_t, 2>, 4> round{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
    std::array<Couleur, 8> corners{};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto [right, up] = round[i % round.size()];
        corners[i] = couleurFromRgb(NiveauxRouge[r + right], NiveauxVert[g + up],
                                    NiveauxBleu[b + i / round.size()]);
    }
    return corners;
}

}  // namespace quillmark
