#include "session/recent_files.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/paths.h"
#include "core/settings_table.h"

namespace quillmark {
namespace {

std::string keyOf(std::size_t place) {
    return std::to_string(place + 1);
}

std::string absoluteText(const std::filesystem::path& file) {
    std::error_code ignored;
    const std::filesystem::path whole = std::filesystem::absolute(file, ignored);
    return utf8FromPath((whole.empty() ? file : whole).lexically_normal());
}

// As the platform compares them.
bool samePath(const std::string& a, const std::string& b) {
    if constexpr (std::filesystem::path::preferred_separator == '\\') {
        return loweredAscii(a) == loweredAscii(b);
    } else {
        return a == b;
    }
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
    const std::string path = absoluteText(file);
    // Read anew, since another process may have written meanwhile.
    std::vector<std::string> all = paths();
    erase(all, path);
    all.insert(all.begin(), path);
    all.resize(std::min(all.size(), kMost));
    write(all);
}

void RecentFiles::remove(const std::filesystem::path& file) {
    std::vector<std::string> all = paths();
    erase(all, absoluteText(file));
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
