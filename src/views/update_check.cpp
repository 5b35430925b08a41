#include "views/update_check.h"

#include <cstddef>

namespace quillmark {

UpdateCheck judgeVersionNote(const std::optional<std::string>& note, const Version& own) {
    const std::optional<Version> version = note ? readVersion(*note) : std::nullopt;
    if (!version) {
        return {};
    }
    using Found = UpdateCheck::Found;
    return {version->sum() > own.sum() ? Found::newer : Found::nothingNewer, *version};
}

std::string updateText(const UpdateCheck& check, const Traduction& traduction) {
    switch (check.found) {
        case UpdateCheck::Found::newer:
            return traduction.Trad("MiseAJour",
                                   "Une nouvelle version est disponible :", "msgNouvelleVersion") +
                   ' ' + check.version.text();
        case UpdateCheck::Found::nothingNewer:
            return traduction.Trad("MiseAJour", "Cette version est la plus récente.", "msgAJour");
        default:
            return traduction.Trad(
                "MiseAJour", "La recherche d'une nouvelle version n'a pas abouti.", "msgEchec");
    }
}

std::string updateLine(const UpdateCheck& check, const Traduction& traduction) {
    return check.found == UpdateCheck::Found::nothingNewer ? std::string()
                                                           : updateText(check, traduction);
}

std::string downloadPage(const std::string& noteAddress) {
    const std::string path = noteAddress.substr(0, noteAddress.find_first_of("?#"));
    const std::size_t scheme = path.find("://");
    const std::size_t hostStart = scheme == std::string::npos ? 0 : scheme + 3;
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos || slash < hostStart ? path : path.substr(0, slash + 1);
}

}  // namespace quillmark
