// Every setting of the program: where it lies, what it is without a stored value, and how its
// value is written. Stores compare keys without regard to case.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/settings.h"

namespace quillmark {

enum class SettingForm : std::uint8_t {
    text,
    words,   // a boolean written "True" or "False"
    digits,  // a boolean written "1" or "0"
    number,  // a whole number within its bounds, else the default
    colour,  // red + 256 * green + 65536 * blue; negative: a system colour
    twips,   // a length of the window's geometry, 15 twips to a logical pixel
};

struct SettingKey {
    std::string_view section;
    std::string_view key;
    std::string_view defaut;
    SettingForm form = SettingForm::text;
    int low = 0;  // bounds of a number
    int high = 0;
};

namespace keys {
inline constexpr std::string_view kParametres = "Paramètres";
inline constexpr std::string_view kAffichage = "Affichage";
inline constexpr std::string_view kRecentFiles = "MRUFiles";

inline constexpr SettingKey kLangue{kParametres, "Langue", ""};
inline constexpr SettingKey kMajAuto{kParametres, "MajAuto", "0", SettingForm::digits};
// Where the version note lies; empty: nothing is ever fetched.
inline constexpr SettingKey kMajAdresse{kParametres, "MajAdresse", ""};
inline constexpr SettingKey kMasquerTextePOI{kParametres, "MasquerTextePOI", "0",
                                             SettingForm::digits};
inline constexpr SettingKey kTexteAuDemarrage{kParametres, "Text_At_StartUP", "True",
                                              SettingForm::words};
inline constexpr SettingKey kFormatPOI{kParametres, "FormatPOI", "True", SettingForm::words};
// Colours of the six activities: red, green, blue, cyan, magenta, yellow.
inline constexpr std::array<SettingKey, 6> kActiveRoutingColor{{
    {kParametres, "ActiveRouting_color0", "255", SettingForm::colour},
    {kParametres, "ActiveRouting_color1", "65280", SettingForm::colour},
    {kParametres, "ActiveRouting_color2", "16711680", SettingForm::colour},
    {kParametres, "ActiveRouting_color3", "16776960", SettingForm::colour},
    {kParametres, "ActiveRouting_color4", "16711935", SettingForm::colour},
    {kParametres, "ActiveRouting_color5", "65535", SettingForm::colour},
}};
inline constexpr SettingKey kWindowState{
    kParametres, "WindowState", "0", SettingForm::number, 0, 2};
inline constexpr SettingKey kLargeur{kParametres, "Largeur", "14415", SettingForm::twips};
inline constexpr SettingKey kHauteur{kParametres, "Hauteur", "10665", SettingForm::twips};
inline constexpr SettingKey kGauche{kParametres, "Gauche", "200", SettingForm::twips};
inline constexpr SettingKey kDessus{kParametres, "Dessus", "200", SettingForm::twips};
inline constexpr SettingKey kSauvegardeAuto{kParametres, "Sauvegarde automatique", "1",
                                            SettingForm::digits};
inline constexpr SettingKey kPolice{kParametres, "Police", "MS Sans Serif"};
inline constexpr SettingKey kTaillePolice{kParametres, "TaillePolice", "8", SettingForm::number, 4,
                                          72};
inline constexpr SettingKey kLabels{kParametres, "Labels", "1", SettingForm::number, 1, 4};
inline constexpr SettingKey kLangueLabels{kParametres, "LangueLabels", "1", SettingForm::number, 0,
                                          54};
inline constexpr SettingKey kNombreLangues{
    kParametres, "NombreLangues", "1", SettingForm::number, 0, 4};
// Languages of the label rows of a new object.
inline constexpr std::array<SettingKey, 4> kLangueRang{{
    {kParametres, "Langue0", "1", SettingForm::number, 0, 54},
    {kParametres, "Langue1", "1", SettingForm::number, 0, 54},
    {kParametres, "Langue2", "1", SettingForm::number, 0, 54},
    {kParametres, "Langue3", "1", SettingForm::number, 0, 54},
}};
inline constexpr SettingKey kApercu{kAffichage, "Apercu", "True", SettingForm::words};
inline constexpr SettingKey kListesObjets{kAffichage, "ListesObjets", "True", SettingForm::words};
// Zoom of the preview in hundredths, of the icon sheet as a factor.
inline constexpr SettingKey kZoomApercu{kAffichage,          "ZoomApercu", "300",
                                        SettingForm::number, 100,          800};
inline constexpr SettingKey kZoomIcones{kAffichage, "ZoomIcones", "1", SettingForm::number, 1, 8};
// What is seen through transparent pixels: map, light, dark, checker.
inline constexpr SettingKey kFond{kAffichage, "Fond", "0", SettingForm::number, 0, 3};
inline constexpr SettingKey kTransparence{kAffichage, "Transparence", "False", SettingForm::words};
// Widths of the three panes in logical pixels, joined by commas.
inline constexpr SettingKey kSeparateurs{kAffichage, "Separateurs", ""};
// The tab of the colour chooser that was used last.
inline constexpr SettingKey kOngletPalette{kAffichage, "OngletPalette", "1", SettingForm::number, 1,
                                           3};
// Colours chosen lately, "#RRGGBB", joined by commas.
inline constexpr SettingKey kCouleursRecentes{kAffichage, "CouleursRecentes", ""};
}  // namespace keys

class Settings {
  public:
    explicit Settings(SettingsStore& store) : store_(store) {}

    [[nodiscard]] bool isStored(const SettingKey& key) const;
    [[nodiscard]] std::string text(const SettingKey& key) const;
    [[nodiscard]] bool boolean(const SettingKey& key) const;
    // The default for what is no number or beyond the bounds of the key.
    [[nodiscard]] int number(const SettingKey& key) const;
    // Logical pixels of a length kept in twips; "," and "." both stand for the decimal sign.
    [[nodiscard]] int pixels(const SettingKey& key) const;

    void setText(const SettingKey& key, std::string_view value);
    void setBoolean(const SettingKey& key, bool value);
    void setNumber(const SettingKey& key, int value);
    void setPixels(const SettingKey& key, int pixels);

    [[nodiscard]] SettingsStore& store() const { return store_; }

  private:
    SettingsStore& store_;
};

}  // namespace quillmark
