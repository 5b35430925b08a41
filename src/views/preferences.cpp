#include "views/preferences.h"

#include "core/ascii.h"

namespace quillmark {
namespace {

constexpr int kSmallestFont = 4;
constexpr int kLargestFont = 72;
constexpr int kDefaultFont = 8;

// True when the stored value is another one afterwards.
bool change(Settings& settings, const SettingKey& key, int value) {
    const bool changed = settings.number(key) != value;
    settings.setNumber(key, value);
    return changed;
}

}  // namespace

Preferences::Preferences(Settings& settings)
    : optOuvertureTexte(settings.boolean(keys::kTexteAuDemarrage)),
      cbbLabels(settings.number(keys::kLabels) - 1),
      cbbPolice(settings.text(keys::kPolice)),
      txtTaille(std::to_string(settings.number(keys::kTaillePolice))),
      cbbLangues(settings.number(keys::kLangueLabels)),
      cbbNombre(settings.number(keys::kNombreLangues)),
      chkUpdate(settings.boolean(keys::kMajAuto)),
      optFormatPOIDeux(settings.boolean(keys::kFormatPOI)),
      chkMasquerTextePOI(settings.boolean(keys::kMasquerTextePOI)),
      settings_(settings) {
    for (std::size_t i = 0; i < lblActiveRoutingColor.size(); ++i) {
        lblActiveRoutingColor[i] = settings.number(keys::kActiveRoutingColor[i]);
    }
    constexpr std::size_t kFifth = 4;
    if (!settings.isStored(keys::kActiveRoutingColor[kFifth]) ||
        !wholeNumber<std::int32_t>(trimmed(settings.text(keys::kActiveRoutingColor[kFifth])))) {
        lblActiveRoutingColor[kFifth] = kActivity5InPreferences;
    }
    coloursAtFirst_ = lblActiveRoutingColor;
    affiche_langue();
}

int Preferences::taille() const {
    const int value = wholeNumber<int>(trimmed(txtTaille)).value_or(kDefaultFont);
    return value >= kSmallestFont && value <= kLargestFont ? value : kDefaultFont;
}

void Preferences::affiche_langue() {
    for (std::size_t i = 0; i < cbbLangue.size(); ++i) {
        cbbLangue[i] = settings_.number(keys::kLangueRang[i]);
    }
}

bool Preferences::changesText() const {
    return settings_.boolean(keys::kFormatPOI) != optFormatPOIDeux ||
           settings_.boolean(keys::kMasquerTextePOI) != chkMasquerTextePOI;
}

void Preferences::cmdOK_Click(Session& session,
                              std::function<void(const std::optional<Effects>&)> done) const {
    if (!changesText()) {
        done(store());
        return;
    }
    session.settleEdits([choices = *this, done = std::move(done)](bool settled) {
        done(settled ? std::optional(choices.store()) : std::nullopt);
    });
}

Preferences::Effects Preferences::store() const {
    Effects effects;
    effects.text = changesText();
    settings_.setBoolean(keys::kTexteAuDemarrage, optOuvertureTexte);
    const std::string police = cbbPolice.empty() ? std::string(kOwnFont) : cbbPolice;
    effects.sheet = settings_.text(keys::kPolice) != police;
    settings_.setText(keys::kPolice, police);
    effects.sheet |= change(settings_, keys::kLabels, cbbLabels < 0 ? 1 : cbbLabels + 1);
    effects.sheet |= change(settings_, keys::kTaillePolice, taille());
    effects.sheet |= change(settings_, keys::kLangueLabels, cbbLangues < 0 ? 1 : cbbLangues);
    for (std::size_t i = 0; i < cbbLangue.size(); ++i) {
        const bool shown = static_cast<int>(i) < cbbNombre;
        settings_.setNumber(keys::kLangueRang[i], shown && cbbLangue[i] >= 0 ? cbbLangue[i] : 1);
    }
    for (std::size_t i = 0; i < lblActiveRoutingColor.size(); ++i) {
        // One that wasn't touched may be shown otherwise than it is stored.
        if (lblActiveRoutingColor[i] != coloursAtFirst_[i]) {
            settings_.setNumber(keys::kActiveRoutingColor[i], lblActiveRoutingColor[i]);
            effects.sheet = true;
        }
    }
    settings_.setNumber(keys::kNombreLangues, cbbNombre < 0 ? 1 : cbbNombre);
    settings_.setBoolean(keys::kMajAuto, chkUpdate);
    settings_.setBoolean(keys::kFormatPOI, optFormatPOIDeux);
    settings_.setBoolean(keys::kMasquerTextePOI, chkMasquerTextePOI);
    return effects;
}

}  // namespace quillmark
