#include <windows.h>

#include <shlobj.h>

#include "core/folders.h"
#include "core/program.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

fs::path installedData() {
    std::error_code none;
    const fs::path beside = programFolder();
    if (fs::is_regular_file(beside / "MPCTypes.txt", none)) {
        return beside;
    }
    const fs::path shared = beside.parent_path() / "share" / "quillmark";
    return fs::is_directory(shared, none) ? shared : beside;
}

fs::path applicationData() {
    PWSTR found = nullptr;
    fs::path folder;
    if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_RoamingAppData, 0, nullptr, &found))) {
        folder = found;
    }
    CoTaskMemFree(found);
    return folder;
}

}  // namespace

Folders platformFolders() {
    std::error_code none;
    return {installedData(), applicationData() / "Quillmark", fs::temp_directory_path(none)};
}

}  // namespace quillmark
