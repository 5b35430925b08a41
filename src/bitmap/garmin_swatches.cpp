#include "bitmap/garmin_swatches.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <span>

#include "bitmap/colour_spaces.h"
#include "bitmap/garmin_palette.h"
#include "bitmap/system_colours.h"

namespace quillmark {
namespace {

constexpr std::size_t kLattice = NiveauxRouge.size() * NiveauxVert.size() * NiveauxBleu.size();
constexpr std::size_t kColumns = kSwatchColumns;
constexpr std::size_t kDullColumns = 5;
constexpr std::size_t kColumnHeight = kLattice / kColumns;

int chroma(Couleur c) {
    return std::max({redOf(c), greenOf(c), blueOf(c)}) -
           std::min({redOf(c), greenOf(c), blueOf(c)});
}
int brightness(Couleur c) {
    return 299 * redOf(c) + 587 * greenOf(c) + 114 * blueOf(c);
}
// Turned a little, so that the reds on both sides of 0 stand together.
float hue(Couleur c) {
    constexpr float turn = 0.03F;
    const float turned = hlsOf(c).H + turn;
    return turned < 1.0F ? turned : turned - 1.0F;
}

template <typename Key>
void sortBy(std::span<Couleur> colours, Key key) {
    std::sort(colours.begin(), colours.end(),
              [key](Couleur a, Couleur b) { return key(a) != key(b) ? key(a) < key(b) : a < b; });
}

// Cuts colours into columns of one hue, the lightest first; `colours` lies column after column.
void sortIntoColumns(std::span<Couleur> colours) {
    sortBy(colours, hue);
    for (std::size_t at = 0; at < colours.size(); at += kColumnHeight) {
        sortBy(colours.subspan(at, kColumnHeight), [](Couleur c) { return -brightness(c); });
    }
}

std::array<Couleur, kSwatches> layOut() {
    std::array<Couleur, kLattice> lattice{};
    std::size_t count = 0;
    for (const std::uint8_t red : NiveauxRouge) {
        for (const std::uint8_t green : NiveauxVert) {
            for (const std::uint8_t blue : NiveauxBleu) {
                lattice[count++] = couleurFromRgb(red, green, blue);
            }
        }
    }
    const std::span<Couleur> all(lattice);
    sortBy(all, [](Couleur c) { return -chroma(c); });
    const std::size_t vivid = (kColumns - kDullColumns) * kColumnHeight;
    sortIntoColumns(all.first(vivid));
    sortIntoColumns(all.subspan(vivid));

    std::array<Couleur, kSwatches> swatches{};
    count = 0;
    for (std::size_t row = 0; row < kColumnHeight; ++row) {
        for (std::size_t column = 0; column < kColumns; ++column) {
            swatches[count++] = lattice[column * kColumnHeight + row];
        }
    }
    // Black and white are in the lattice.
    for (std::size_t i = 1; i + 1 < NiveauxGris.size(); ++i) {
        swatches[count++] = couleurFromRgb(NiveauxGris[i], NiveauxGris[i], NiveauxGris[i]);
    }
    return swatches;
}

const std::array<Couleur, kSwatches>& palette() {
    static const std::array<Couleur, kSwatches> swatches = layOut();
    return swatches;
}

}  // namespace

Couleur couleurDuCarre(int n) {
    assert(n >= 1 && n <= kSwatches);
    return palette()[static_cast<std::size_t>(n - 1)];
}

int carreDeCouleur(Couleur colour) {
    const auto& swatches = palette();
    const auto* const found = std::find(swatches.begin(), swatches.end(), ResoudreCouleur(colour));
    return found == swatches.end() ? 0 : static_cast<int>(found - swatches.begin()) + 1;
}

}  // namespace quillmark
