#include "views/language_choice.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "core/ascii.h"

namespace quillmark {
namespace {

// With cedilla in the list, without in the setting.
constexpr std::string_view kFrenchRow = "Français";

constexpr std::array<std::pair<std::string_view, std::string_view>, 6> kFiles{{
    {"de", "Deutsch"},
    {"en", "English"},
    {"es", "Español"},
    {"it", "Italiano"},
    {"nl", "Nederlands"},
    {"pl", "Polski"},
}};

}  // namespace

LanguageChoice::LanguageChoice(const Folders& folders, Settings& settings, Traduction& traduction,
                               Signal<>& languageChanged)
    : folders_(folders),
      settings_(settings),
      traduction_(traduction),
      languageChanged_(languageChanged),
      lstLang_(ListeLangues(folders.dataFolders())) {
    lstLang_.emplace(lstLang_.begin(), kFrenchRow);
}

int LanguageChoice::currentRow() const {
    const std::string& Langue = traduction_.Langue();
    if (Langue == kFrancais) {
        return 0;
    }
    const auto row = std::find(lstLang_.begin() + 1, lstLang_.end(), Langue);
    return row == lstLang_.end() ? 0 : static_cast<int>(row - lstLang_.begin());
}

void LanguageChoice::cmdOK_Click(int row) {
    choose(row == 0 ? std::string(kFrancais) : lstLang_.at(static_cast<std::size_t>(row)));
}

void LanguageChoice::choose(const std::string& Langue) {
    if (Langue == traduction_.Langue()) {
        return;
    }
    traduction_ = Traduction(folders_.dataFolders(), Langue);
    settings_.setText(keys::kLangue, traduction_.Langue());
    languageChanged_();
}

std::optional<LanguageOffer> languageOffer(const std::vector<std::string>& preferred,
                                           const Folders& folders) {
    for (const std::string& name : preferred) {
        const std::string code = loweredAscii(name.substr(0, name.find_first_of("-_.@")));
        if (code == "fr") {
            return std::nullopt;
        }
        const auto known = std::find_if(kFiles.begin(), kFiles.end(),
                                        [&](const auto& file) { return file.first == code; });
        if (known == kFiles.end() || !LangueExiste(folders.dataFolders(), known->second)) {
            continue;
        }
        const Traduction own(folders.dataFolders(), known->second);
        return LanguageOffer{own.Langue(), own.Trad("Langues", "Afficher Quillmark en français",
                                                    "msgProposerLangue")};
    }
    return std::nullopt;
}

}  // namespace quillmark
