#include "bitmap/garmin_marker.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "bitmap/garmin_palette.h"
#include "bitmap/poi_coding.h"

namespace quillmark {
namespace {

// A value beyond the palette is seen as transparent too.
bool isTransparent(const PoiWorkingForm& form, int x, int y) {
    const std::uint8_t value = form.Pixels(x, y);
    return value == kTransparentPixel || (hasPalette(form) && value >= form.NbCouleurs);
}

// Calls `visit(x, y)` for all pixels that aren't transparent.
template <typename Visit>
void forEachSeen(const PoiWorkingForm& form, Visit visit) {
    for (int y = 0; y < form.Hauteur; ++y) {
        for (int x = 0; x < form.Largeur; ++x) {
            if (!isTransparent(form, x, y)) {
                visit(x, y);
            }
        }
    }
}

std::uint8_t alphaOf(const PoiWorkingForm& form, std::size_t slot) {
    return slot < form.AlphaPalette.size() ? form.AlphaPalette[slot] : std::uint8_t{0};
}

bool inOrder(const AlphaColour& a, const AlphaColour& b) {
    return a.colour != b.colour ? a.colour < b.colour : a.alpha < b.alpha;
}

// The place of each slot's colour in the new palette, which becomes that of the form.
std::vector<std::uint8_t> sortPalette(PoiWorkingForm& form, const Traduction& traduction) {
    const auto count = static_cast<std::size_t>(form.NbCouleurs);
    const bool withAlpha = form.ColorMode == kModeAlpha;
    std::vector<AlphaColour> slots(count);
    for (std::size_t i = 0; i < count; ++i) {
        slots[i] = {PlusProcheCouleurGarmin(form.lblpalette[i].colour),
                    withAlpha ? alphaOf(form, i) : std::uint8_t{0}};
    }
    std::vector<bool> used(count);
    forEachSeen(form, [&](int x, int y) { used[form.Pixels(x, y)] = true; });
    // Without a palette the picture would become one of true colours.
    const bool keepAll = std::find(used.begin(), used.end(), true) == used.end();
    std::vector<AlphaColour> palette;
    for (std::size_t i = 0; i < count; ++i) {
        if (used[i] || keepAll) {
            palette.push_back(slots[i]);
        }
    }
    std::sort(palette.begin(), palette.end(), inOrder);
    palette.erase(std::unique(palette.begin(), palette.end()), palette.end());

    std::vector<std::uint8_t> places(count, kTransparentPixel);
    for (std::size_t i = 0; i < count; ++i) {
        const auto found = std::lower_bound(palette.begin(), palette.end(), slots[i], inOrder);
        places[i] = static_cast<std::uint8_t>(found - palette.begin());
    }
    form.NbCouleurs = static_cast<int>(palette.size());
    form.AlphaPalette.clear();
    for (std::size_t i = 0; i < kTransparentSlot; ++i) {
        if (i >= palette.size()) {
            form.lblpalette[i] = {form.background, false, false, {}};
            continue;
        }
        const AlphaColour& colour = palette[i];
        form.lblpalette[i] = {
            colour.colour, true, true,
            withAlpha ? alphaTip(colour.alpha, traduction) : colourText(colour.colour)};
        if (withAlpha) {
            form.AlphaPalette.push_back(colour.alpha);
        }
    }
    return places;
}

// One colour of a picture in true colours stands for "transparent": no pixel may take it.
void keepTransparentColourFree(PoiWorkingForm& form) {
    std::set<Couleur> seen;
    forEachSeen(form, [&](int x, int y) { seen.insert(form.image.pixel(x, y)); });
    while (seen.contains(form.CouleurTransparente)) {
        form.CouleurTransparente = (form.CouleurTransparente + 1) & 0xFFFFFF;
    }
}

}  // namespace

bool toutesGarmin(std::span<const Couleur> colours) {
    return std::all_of(colours.begin(), colours.end(), EstCouleurGarmin);
}

bool toutesGarmin(const PoiWorkingForm& form) {
    if (hasPalette(form)) {
        return std::all_of(form.lblpalette.begin(), form.lblpalette.begin() + form.NbCouleurs,
                           [](const PaletteSlot& slot) { return EstCouleurGarmin(slot.colour); });
    }
    bool all = true;
    forEachSeen(form, [&](int x, int y) { all = all && EstCouleurGarmin(form.image.pixel(x, y)); });
    return all;
}

std::string lblIsGarminTip(bool allGarmin, const Traduction& traduction) {
    if (allGarmin) {
        return traduction.Trad("Editer",
                               "Toutes les couleurs du bitmap appartiennent à la palette de "
                               "couleurs des séries eTrex et 60 ",
                               "lblIsGarminT");
    }
    return traduction.Trad("Editer",
                           "Au moins une couleur du bitmap n'appartient pas à la palette de "
                           "couleurs des séries eTrex et 60 .",
                           "lblIsGarminF") +
           "\n\n" +
           traduction.Trad("Editer", "Cliquer pour les remplacer toutes.", "lblIsGarminF2");
}

void lblIsGarmin_Click(PoiWorkingForm& form, const Traduction& traduction) {
    forEachSeen(form, [&](int x, int y) {
        form.image.setPixel(x, y, PlusProcheCouleurGarmin(form.image.pixel(x, y)));
    });
    if (!hasPalette(form)) {
        keepTransparentColourFree(form);
        return;
    }
    const int before = form.NbCouleurs;
    const std::vector<std::uint8_t> places = sortPalette(form, traduction);
    // Fewer colours may take fewer bits; their highest value never stands for a colour.
    const int bits = NbBitsParPixel(form.ColorMode, form.NbCouleurs).value();
    const auto highest = static_cast<std::uint8_t>((1 << bits) - 1);
    for (int y = 0; y < form.Hauteur; ++y) {
        for (int x = 0; x < form.Largeur; ++x) {
            std::uint8_t& value = form.Pixels(x, y);
            if (value < before) {
                value = places[value];
            } else if (value != kTransparentPixel) {
                value = std::min(value, highest);
            }
        }
    }
}

}  // namespace quillmark
