#include "editors/colour_chooser.h"

#include <algorithm>
#include <utility>

#include "bitmap/garmin_palette.h"
#include "bitmap/garmin_swatches.h"
#include "bitmap/system_colours.h"
#include "editors/recent_colours.h"

namespace quillmark {
namespace {

constexpr float kGreyFieldLightness = 0.5F;
// Nearer to black or white, all colours of the field look alike.
constexpr float kDarkestField = 0.2F;
constexpr float kLightestField = 0.8F;

float fieldLightnessFor(const Hls& place) {
    return place.S == 0.0F ? kGreyFieldLightness
                           : std::clamp(place.L, kDarkestField, kLightestField);
}

}  // namespace

ColourChooser::ColourChooser(ChooserRequest request, Settings& settings,
                             const Traduction& traduction)
    : request_(std::move(request)),
      settings_(settings),
      traduction_(traduction),
      recent_(recentColours(settings)) {
    state_.tab = request_.tab.value_or(ChooserTab{settings.number(keys::kOngletPalette)});
    choice_.CouleurChoisie = request_.colour;
    choice_.fields.show(request_.colour);
    moveTo(hlsOf(request_.colour));
    update();
}

Image ColourChooser::strip() const {
    return lightnessStrip(choice_.place, bits16());
}

void ColourChooser::retranslate() {
    update();
}

// --- Ways to a colour ---

void ColourChooser::TabStrip_Click(ChooserTab tab) {
    state_.tab = tab;
    settings_.setNumber(keys::kOngletPalette, static_cast<int>(tab));
    update();
}

void ColourChooser::Carré_Click(int number) {
    if (number >= 1 && number <= kSwatches) {
        take(couleurDuCarre(number));
    } else if (number >= kFirstNeighbour && number <= kNearestSwatch && number != kChosenSwatch) {
        take(state_.voisines[static_cast<std::size_t>(number - kFirstNeighbour)].colour);
    }
}

void ColourChooser::recent_Click(std::size_t index) {
    if (index < recent_.size()) {
        take(recent_[index]);
    }
}

void ColourChooser::lblCouleurInitiale_Click() {
    take(request_.colour);
}

void ColourChooser::Picture1_KeyDown(int columns, int rows) {
    if (state_.framed == 0) {
        return take(PlusProcheCouleurGarmin(choice_.CouleurChoisie));
    }
    const int column = (state_.framed - 1) % kSwatchColumns + columns;
    const int next = state_.framed + columns + rows * kSwatchColumns;
    if (column >= 0 && column < kSwatchColumns && next >= 1 && next <= kSwatches) {
        take(couleurDuCarre(next));
    }
}

void ColourChooser::Picture2_MouseDown(FieldPoint point) {
    picPicker_End(std::nullopt);
    pointTo(hlsOfPoint(point, choice_.fieldLightness));
}

void ColourChooser::Picture2_KeyDown(int columns, int rows) {
    const FieldPoint next{std::clamp(state_.cross.x + columns, 0, kHueFieldWidth - 1),
                          std::clamp(state_.cross.y + rows, 0, kHueFieldHeight - 1)};
    if (next.x != state_.cross.x || next.y != state_.cross.y) {
        Picture2_MouseDown(next);
    }
}

void ColourChooser::strip_MouseDown(int row) {
    picPicker_End(std::nullopt);
    Hls place = choice_.place;
    place.L = lightnessOfRow(row);
    choice_.fieldLightness = fieldLightnessFor(place);
    pointTo(place);
}

void ColourChooser::strip_KeyDown(int rows) {
    const int next = std::clamp(state_.lightnessRow + rows, 0, kHueFieldHeight - 1);
    if (next != state_.lightnessRow) {
        strip_MouseDown(next);
    }
}

void ColourChooser::txt_Change(ChooserField field, const std::string& typed) {
    picPicker_End(std::nullopt);
    const std::optional<Couleur> colour = choice_.fields.change(field, typed);
    if (!colour) {
        return update();
    }
    moveTo(field <= ChooserField::txtBlue ? hlsOf(*colour) : choice_.fields.hls());
    choose(*colour);
}

void ColourChooser::txt_LostFocus(ChooserField field) {
    choice_.fields.leave(field);
    update();
}

void ColourChooser::cmdAutres_Click(Couleur answer) {
    take(answer);
}

void ColourChooser::picPicker_Click() {
    if (!state_.picking) {
        beforePick_ = choice_;
        state_.picking = true;
        update();
    }
}

void ColourChooser::Timer1_Timer(Couleur pixel) {
    if (state_.picking) {
        show(pixel);
    }
}

void ColourChooser::picPicker_End(std::optional<Couleur> picked) {
    if (!state_.picking) {
        return;
    }
    state_.picking = false;
    choice_ = beforePick_;
    if (picked) {
        show(*picked);
    } else {
        update();
    }
}

Couleur ColourChooser::cmdOK_Click() {
    picPicker_End(std::nullopt);
    rememberColour(settings_, ResoudreCouleur(choice_.CouleurChoisie));
    return choice_.CouleurChoisie;
}

void ColourChooser::cmdAnnuler_Click() {
    picPicker_End(std::nullopt);
    choice_.CouleurChoisie = request_.colour;
    if (request_.onEachChange) {
        request_.onEachChange(request_.colour);
    }
}

// --- Showing it ---

void ColourChooser::take(Couleur colour) {
    picPicker_End(std::nullopt);
    show(colour);
}

void ColourChooser::show(Couleur colour) {
    choice_.fields.show(colour);
    moveTo(hlsOf(colour));
    choose(colour);
}

void ColourChooser::moveTo(const Hls& place) {
    choice_.place = place;
    choice_.fieldLightness = fieldLightnessFor(place);
}

// The cross stays where it was put: the hue of a grey, gone from the colour, isn't lost to the
// hand.
void ColourChooser::pointTo(const Hls& place) {
    const Couleur colour = fieldColour(place, bits16());
    choice_.place = place;
    choice_.fields.show(colour);
    choose(colour);
}

void ColourChooser::choose(Couleur colour) {
    const bool another = colour != choice_.CouleurChoisie;
    choice_.CouleurChoisie = colour;
    update();
    if (another && !state_.picking && request_.onEachChange) {
        request_.onEachChange(colour);
    }
}

void ColourChooser::update() {
    state_.colour = ResoudreCouleur(choice_.CouleurChoisie);
    state_.CouleurInitiale = ResoudreCouleur(request_.colour);
    state_.lblCouleurChoisieTip = colourText(state_.colour);
    state_.fields = choice_.fields.texts();
    state_.cross = pointOfHls(choice_.place);
    state_.lightnessRow = rowOfLightness(choice_.place.L);
    state_.recent.clear();
    for (const Couleur colour : recent_) {
        state_.recent.push_back({colour, colourText(colour), false});
    }
    encadrer();
    couleurs_voisines();
    showTab();
    changed();
}

void ColourChooser::encadrer() {
    state_.framed = carreDeCouleur(state_.colour);
}

void ColourChooser::couleurs_voisines() {
    const Couleur nearest = PlusProcheCouleurGarmin(state_.colour);
    const std::string nearestTip =
        traduction_.Trad("Palette", "Couleur Garmin la plus proche", "TipProche") + " : " +
        colourText(nearest);
    auto* swatch = state_.voisines.data();
    for (const Couleur corner : couleursVoisines(state_.colour)) {
        *swatch++ = {corner, corner == nearest ? nearestTip : colourText(corner),
                     corner == nearest};
    }
    *swatch++ = {state_.colour,
                 traduction_.Trad("Palette", "Couleur Choisie ", "Tipchoisie") + " : " +
                     colourText(state_.colour),
                 false};
    *swatch = {nearest, nearestTip, false};
}

void ColourChooser::showTab() {
    state_.Picture1 = !bits16();
    state_.picVoisines = !bits16();
    state_.Picture2 = state_.tab != ChooserTab::series60;
    state_.picHLSRGB = state_.Picture2;
    const std::pair wanted{choice_.fieldLightness, bits16()};
    if (state_.Picture2 && drawn_ != wanted) {
        field_ = hueField(wanted.first, wanted.second);
        drawn_ = wanted;
    }
}

}  // namespace quillmark
