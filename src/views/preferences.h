// The preferences: what the window shows, and what OK stores. Nothing changes before OK.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/settings_table.h"
#include "session/session.h"

namespace quillmark {

// The name that stands for the application's own font.
inline constexpr std::string_view kOwnFont = "MS Sans Serif";
// Shown in the window for the fifth activity while its stored colour is missing or unreadable.
inline constexpr std::int32_t kActivity5InPreferences = 16712447;

class Preferences {
  public:
    explicit Preferences(Settings& settings);

    // What the controls show, by their names.
    bool optOuvertureTexte = true;
    int cbbLabels = 0;      // index
    std::string cbbPolice;  // a font's name, `kOwnFont` for the application's own
    std::string txtTaille;
    int cbbLangues = 1;
    int cbbNombre = 1;  // rows of `cbbLangue` that show
    std::array<int, 4> cbbLangue{};
    std::array<std::int32_t, 6> lblActiveRoutingColor{};  // red in the low byte
    bool chkUpdate = false;
    bool optFormatPOIDeux = true;  // type and subtype on two lines
    bool chkMasquerTextePOI = false;

    // Points of the label font: whole numbers from 4 to 72, anything else counts as empty, so 8.
    [[nodiscard]] int taille() const;
    // Gives all rows their stored languages.
    void affiche_langue();

    struct Effects {
        bool sheet = false;  // icon sheet and lists look different
        bool text = false;   // the text view is to be made anew
    };
    // Stores what stands here, which may be gone by then: edits in the text view that another form
    // of text would replace are applied first. `done` gets what changed, or nothing when the edits
    // stay and nothing was stored.
    void cmdOK_Click(Session& session,
                     std::function<void(const std::optional<Effects>&)> done) const;

  private:
    [[nodiscard]] bool changesText() const;
    [[nodiscard]] Effects store() const;

    Settings& settings_;
    std::array<std::int32_t, 6> coloursAtFirst_{};
};

}  // namespace quillmark
