// The choice of the language of the windows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/folders.h"
#include "core/settings_table.h"
#include "core/signal.h"
#include "core/translation.h"

namespace quillmark {

class LanguageChoice {
  public:
    LanguageChoice(const Folders& folders, Settings& settings, Traduction& traduction,
                   Signal<>& languageChanged);

    // "Français", then the language files by name.
    [[nodiscard]] const std::vector<std::string>& lstLang() const { return lstLang_; }
    [[nodiscard]] int currentRow() const;

    void cmdOK_Click(int row);
    // Stores the language at once and shows all texts in it; nothing happens when they are in it.
    void choose(const std::string& Langue);

  private:
    const Folders& folders_;
    Settings& settings_;
    Traduction& traduction_;
    Signal<>& languageChanged_;
    std::vector<std::string> lstLang_;
};

struct LanguageOffer {
    std::string Langue;
    std::string line;  // in the language itself
};
// For a first start: the first of the user's languages ("de-CH", "en_GB.UTF-8", in the order of
// preference) that has a file; nothing when French comes before it.
[[nodiscard]] std::optional<LanguageOffer> languageOffer(const std::vector<std::string>& preferred,
                                                         const Folders& folders);

}  // namespace quillmark
