#include <windows.h>

#include <shlobj.h>

#include "core/folders.h"
#include "core/paths.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

fs::path knownFolder(const KNOWNFOLDERID& which) {
    PWSTR found = nullptr;
    fs::path folder;
    if (SUCCEEDED(SHGetKnownFolderPath(which, 0, nullptr, &found))) {
        folder = found;
    }
    CoTaskMemFree(found);
    return folder;
}

std::string environment(const wchar_t* name) {
    const wchar_t* value = _wgetenv(name);
    return value != nullptr ? utf8FromPath(value) : std::string();
}

}  // namespace

Folders platformFolders() {
    std::error_code none;
    return {installedData(), knownFolder(FOLDERID_RoamingAppData) / "Quillmark",
            fs::temp_directory_path(none)};
}

std::string folderNote() {
    return differingFolders(
        {{utf8FromPath(knownFolder(FOLDERID_RoamingAppData)), environment(L"APPDATA")},
         {utf8FromPath(knownFolder(FOLDERID_LocalAppData)), environment(L"LOCALAPPDATA")}});
}

}  // namespace quillmark
