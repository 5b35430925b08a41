#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "core/folders.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

fs::path environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? fs::path(value) : fs::path();
}

// Never a relative one: backups don't belong where the program happened to be started.
fs::path homeFolder() {
    fs::path home = environment("HOME");
    if (!home.is_absolute()) {
        const passwd* user = getpwuid(getuid());
        home = user != nullptr && user->pw_dir != nullptr ? fs::path(user->pw_dir) : fs::path();
    }
    std::error_code none;
    return home.is_absolute() ? home : fs::temp_directory_path(none);
}

}  // namespace

Folders platformFolders() {
    fs::path data = environment("XDG_DATA_HOME");
    if (!data.is_absolute()) {
        data = homeFolder() / ".local" / "share";
    }
    std::error_code none;
    return {installedData(), data / "Quillmark", fs::temp_directory_path(none)};
}

std::string folderNote() {
    return {};
}

}  // namespace quillmark
