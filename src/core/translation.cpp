#include "core/translation.h"

#include <algorithm>
#include <system_error>

#include "core/ascii.h"
#include "core/profile.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

std::string utf8Name(const fs::path& name) {
    const auto text = name.u8string();
    return {text.begin(), text.end()};
}

std::vector<fs::path> languageFiles(const fs::path& programFolder) {
    std::vector<fs::path> files;
    std::error_code failed;
    fs::directory_iterator entry(programFolder / "Langues", failed);
    for (; !failed && entry != fs::directory_iterator(); entry.increment(failed)) {
        std::error_code ignored;
        if (loweredAscii(utf8Name(entry->path().extension())) == ".lng" &&
            entry->is_regular_file(ignored)) {
            files.push_back(entry->path());
        }
    }
    return files;
}

// Found by the names in the folder, so that a name out of the settings can't lead elsewhere; the
// spelling counts first, then the letters without regard to case.
fs::path languageFile(const fs::path& programFolder, std::string_view nom) {
    const std::vector<fs::path> files = languageFiles(programFolder);
    const std::string wanted(nom);
    auto found = std::find_if(files.begin(), files.end(),
                              [&](const auto& file) { return utf8Name(file.stem()) == wanted; });
    if (found == files.end()) {
        found = std::find_if(files.begin(), files.end(), [&](const auto& file) {
            return loweredAscii(utf8Name(file.stem())) == loweredAscii(wanted);
        });
    }
    return found == files.end() ? fs::path() : *found;
}

}  // namespace

Traduction::Traduction() = default;

Traduction::Traduction(const fs::path& programFolder, std::string_view langue) {
    const fs::path file = languageFile(programFolder, langue);
    if (!file.empty()) {
        file_ = std::make_shared<const Profile>(Profile::load(file));
    }
}

std::string Traduction::Trad(std::string_view section, std::string_view defaut,
                             std::string_view cle) const {
    if (file_) {
        if (auto text = file_->find(section, cle)) {
            return *std::move(text);
        }
    }
    return std::string(defaut);
}

bool LangueExiste(const fs::path& programFolder, std::string_view nom) {
    return !languageFile(programFolder, nom).empty();
}

std::vector<std::string> ListeLangues(const fs::path& programFolder) {
    std::vector<std::string> names;
    for (const fs::path& file : languageFiles(programFolder)) {
        names.push_back(utf8Name(file.stem()));
    }
    return names;
}

}  // namespace quillmark
