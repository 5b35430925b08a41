#include <windows.h>

#include <shlobj.h>

#include <array>

#include "core/folders.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

fs::path programFolder() {
    std::array<wchar_t, 32768> name{};
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    const fs::path beside = fs::path(std::wstring(name.data(), length)).parent_path();
    std::error_code none;
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
    return {programFolder(), applicationData() / "Quillmark", fs::temp_directory_path(none)};
}

}  // namespace quillmark
