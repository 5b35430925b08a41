// `frmPalette`: the user chooses a colour among those that devices show.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bitmap/colour.h"
#include "bitmap/hue_field.h"
#include "bitmap/image.h"
#include "core/settings_table.h"
#include "core/signal.h"
#include "core/translation.h"
#include "editors/colour_chooser_state.h"
#include "editors/colour_fields.h"

namespace quillmark {

struct ChooserRequest {
    Couleur colour = 0;
    // Each colour chosen is told at once; a cancel tells the first one again.
    std::function<void(Couleur)> onEachChange;
    std::optional<ChooserTab> tab;  // else the one used last
};

class ColourChooser {
  public:
    ColourChooser(ChooserRequest request, Settings& settings, const Traduction& traduction);

    [[nodiscard]] const ChooserState& state() const { return state_; }
    Signal<> changed;  // the state is another one
    // `kHueFieldWidth` by `kHueFieldHeight`; stays while only the cross moves.
    [[nodiscard]] const Image& Picture2() const { return field_; }
    // One pixel wide.
    [[nodiscard]] Image strip() const;
    // After a change of language.
    void retranslate();

    void TabStrip_Click(ChooserTab tab);
    void Carré_Click(int number);
    void recent_Click(std::size_t index);
    // Back to the colour that the dialog was opened with.
    void lblCouleurInitiale_Click();
    // The frame goes to the swatch beside; from a colour without a swatch to the nearest one.
    void Picture1_KeyDown(int columns, int rows);
    // Presses and drags, in pixels of the field or the strip; outside counts as the nearest inside.
    void Picture2_MouseDown(FieldPoint point);
    void strip_MouseDown(int row);
    // Steps of the cross and of the strip's mark. A colour whose mark can't go farther stays.
    void Picture2_KeyDown(int columns, int rows);
    void strip_KeyDown(int rows);

    void txt_Change(ChooserField field, const std::string& typed);
    void txt_LostFocus(ChooserField field);

    // The answer of the platform's colour dialog.
    void cmdAutres_Click(Couleur answer);
    // From the screen: the pixels under the pointer are shown, but only the end chooses one.
    void picPicker_Click();
    void Timer1_Timer(Couleur pixel);
    // Nothing: the user gave up, and all is as it was before. A colour chosen otherwise during the
    // pick ends it that way first.
    void picPicker_End(std::optional<Couleur> picked);

    // Both end the dialog.
    Couleur cmdOK_Click();
    void cmdAnnuler_Click();

  private:
    // What a choice sets, and a pick given up brings back.
    struct Choice {
        Couleur CouleurChoisie = 0;
        ColourFields fields;
        Hls place;                 // of the cross and in the strip
        float fieldLightness = 0;  // of the colour field
    };
    // A colour that the hand chose, which ends a pick.
    void take(Couleur colour);
    // A colour from anywhere but the fields and the colour field.
    void show(Couleur colour);
    void moveTo(const Hls& place);
    void pointTo(const Hls& place);
    void choose(Couleur colour);
    void update();
    void encadrer();
    void couleurs_voisines();
    void showTab();
    [[nodiscard]] bool bits16() const { return state_.tab == ChooserTab::bits16; }

    ChooserRequest request_;
    Settings& settings_;
    const Traduction& traduction_;
    Choice choice_;
    Choice beforePick_;
    std::vector<Couleur> recent_;
    ChooserState state_;
    Image field_;
    std::optional<std::pair<float, bool>> drawn_;  // lightness and bits of `field_`
};

}  // namespace quillmark
