#include "core/translation.h"

#include <algorithm>
#include <map>
#include <system_error>

#include "core/ascii.h"
#include "core/paths.h"
#include "core/profile.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

struct LanguageFile {
    std::string name;
    fs::path path;
};

// Backslashes too: a settings store may come from another platform.
bool isLanguageName(std::string_view name) {
    return !name.empty() && name.find_first_of("/\\") == std::string_view::npos &&
           name.find("..") == std::string_view::npos;
}

std::vector<LanguageFile> languageFiles(const fs::path& folder) {
    std::vector<LanguageFile> files;
    std::error_code failed;
    fs::directory_iterator entry(folder / "Langues", failed);
    for (; !failed && entry != fs::directory_iterator(); entry.increment(failed)) {
        std::error_code ignored;
        std::string name = utf8FromPath(entry->path().stem());
        if (hasExtension(entry->path(), ".lng") && isLanguageName(name) &&
            entry->is_regular_file(ignored)) {
            files.push_back({std::move(name), entry->path()});
        }
    }
    // As the folder lists them isn't an order.
    std::sort(files.begin(), files.end(),
              [](const LanguageFile& a, const LanguageFile& b) { return a.name < b.name; });
    return files;
}

// Found by the names in the folders, so that a name out of the settings can't lead elsewhere. The
// first folder counts before the second, and in each the spelling before the letters.
fs::path languageFile(const std::vector<fs::path>& folders, std::string_view nom) {
    const std::string wanted = loweredLatin1(nom);
    for (const fs::path& folder : folders) {
        fs::path found;
        for (const LanguageFile& file : languageFiles(folder)) {
            if (file.name == nom || (found.empty() && loweredLatin1(file.name) == wanted)) {
                found = file.path;
            }
        }
        if (!found.empty()) {
            return found;
        }
    }
    return {};
}

}  // namespace

Traduction::Traduction() = default;

Traduction::Traduction(const std::vector<fs::path>& folders, std::string_view langue) {
    const fs::path file = languageFile(folders, langue);
    if (!file.empty()) {
        langue_ = utf8FromPath(file.stem());
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

bool LangueExiste(const std::vector<fs::path>& folders, std::string_view nom) {
    return !languageFile(folders, nom).empty();
}

std::vector<std::string> ListeLangues(const std::vector<fs::path>& folders) {
    std::map<std::string, std::string> names;
    for (const fs::path& folder : folders) {
        for (LanguageFile& file : languageFiles(folder)) {
            names.try_emplace(loweredLatin1(file.name), std::move(file.name));
        }
    }
    std::vector<std::string> sorted;
    sorted.reserve(names.size());
    for (auto& [folded, name] : names) {
        sorted.push_back(std::move(name));
    }
    return sorted;
}

}  // namespace quillmark
