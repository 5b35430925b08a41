// What the window of the colour chooser shows.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "bitmap/colour.h"
#include "bitmap/hue_field.h"
#include "editors/colour_fields.h"

namespace quillmark {

enum class ChooserTab : int { series60 = 1, bits16 = 2, all = 3 };  // `TabStrip1` to `TabStrip3`

// Swatches, by their numbers in `Carré`: 1 to `kSwatches` the palette, then these.
inline constexpr int kFirstNeighbour = 261;
inline constexpr int kLastCorner = 268;
inline constexpr int kChosenSwatch = 269;
inline constexpr int kNearestSwatch = 270;

struct ChooserSwatch {
    Couleur colour = 0;
    std::string tip;
    bool border = false;  // the nearest Garmin colour among the corners
};

struct ChooserState {
    ChooserTab tab = ChooserTab::series60;
    bool Picture1 = true;         // swatches of the palette
    bool Picture2 = false;        // colour field and its strip
    bool picHLSRGB = false;       // number fields
    bool picVoisines = true;      // neighbours
    Couleur colour = 0;           // of `lblCouleurChoisie`, always a plain colour
    Couleur CouleurInitiale = 0;  // what the dialog was opened with, plain too
    std::string lblCouleurChoisieTip;
    std::array<std::string, kChooserFields> fields;  // texts by `ChooserField`
    int framed = 0;                                  // swatch of the palette, 0 for none
    std::array<ChooserSwatch, 10> voisines;          // from `kFirstNeighbour` on
    FieldPoint cross;                                // in the colour field
    int lightnessRow = 0;                            // in the strip
    std::vector<ChooserSwatch> recent;
    bool picking = false;  // the pointer takes a colour from the screen
};

}  // namespace quillmark
