#include "core/folders.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/paths.h"
#include "core/program.h"

namespace quillmark {
namespace {

bool sameFolder(const FolderPair& pair) {
    const auto plain = [](const std::string& folder) {
        return loweredAscii(folder.substr(0, folder.find_last_not_of("\\/") + 1));
    };
    return plain(pair.folder) == plain(pair.variable);
}

}  // namespace

std::filesystem::path Folders::dataFile(const std::string& name) const {
    std::error_code ignored;
    std::filesystem::path own = userData / pathFromUtf8(name);
    if (std::filesystem::is_regular_file(own, ignored)) {
        return own;
    }
    return program / pathFromUtf8(name);
}

std::filesystem::path installedData() {
    std::error_code none;
    std::filesystem::path beside = programFolder();
    if (std::filesystem::is_regular_file(beside / "MPCTypes.txt", none) ||
        std::filesystem::is_directory(beside / "Langues", none)) {
        return beside;
    }
    const std::filesystem::path shared = beside.parent_path() / "share" / "quillmark";
    return std::filesystem::is_directory(shared, none) ? shared : beside;
}

std::string differingFolders(const std::vector<FolderPair>& pairs) {
    if (std::all_of(pairs.begin(), pairs.end(), sameFolder)) {
        return {};
    }
    std::string note;
    for (const FolderPair& pair : pairs) {
        note += pair.folder + " - " + pair.variable + '\n';
    }
    return note;
}

}  // namespace quillmark
