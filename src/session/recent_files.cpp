#include "session/recent_files.h"

#include <algorithm>

#include "core/paths.h"
#include "core/settings_table.h"

namespace quillmark {
namespace {

std::string keyOf(std::size_t place) {
    return std::to_string(place + 1);
}

void erase(std::vector<std::string>& paths, const std::string& path) {
    std::erase_if(paths, [&](const std::string& other) { return samePath(path, other); });
}

}  // namespace

std::vector<std::string> RecentFiles::paths() const {
    std::vector<std::string> found;
    for (std::size_t i = 0; i < kMost; ++i) {
        std::string path = store_.read(keys::kRecentFiles, keyOf(i)).value_or(std::string());
        if (path.empty()) {
            break;
        }
        found.push_back(std::move(path));
    }
    return found;
}

void RecentFiles::add(const std::filesystem::path& file) {
    const std::string path = utf8FromPath(absolutePath(file));
    // Read anew, since another process may have written meanwhile.
    std::vector<std::string> all = paths();
    erase(all, path);
    all.insert(all.begin(), path);
    all.resize(std::min(all.size(), kMost));
    write(all);
}

void RecentFiles::remove(const std::filesystem::path& file) {
    std::vector<std::string> all = paths();
    erase(all, utf8FromPath(absolutePath(file)));
    write(all);
}

void RecentFiles::clear() {
    write({});
}

void RecentFiles::write(const std::vector<std::string>& paths) {
    for (std::size_t i = 0; i < kMost; ++i) {
        store_.write(keys::kRecentFiles, keyOf(i), i < paths.size() ? paths[i] : std::string());
    }
}

}  // namespace quillmark
