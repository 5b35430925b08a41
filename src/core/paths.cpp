#include "core/paths.h"

#include <algorithm>

#include "core/ascii.h"

namespace quillmark {

std::filesystem::path pathFromUtf8(std::string_view path) {
    return {std::u8string(path.begin(), path.end())};
}

std::string utf8FromPath(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool hasExtension(const std::filesystem::path& file, std::string_view extension) {
    return loweredAscii(utf8FromPath(file.extension())) == extension;
}

std::filesystem::path withoutDots(const std::filesystem::path& path) {
    const bool climbs = std::find(path.begin(), path.end(), "..") != path.end();
    return climbs ? path : path.lexically_normal();
}

std::filesystem::path absolutePath(const std::filesystem::path& path) {
    std::error_code failed;
    const std::filesystem::path whole = std::filesystem::absolute(path, failed);
    std::filesystem::path plain = withoutDots(whole.empty() ? path : whole);
    if (std::find(plain.begin(), plain.end(), "..") == plain.end()) {
        return plain;
    }
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(plain, failed);
    return failed || resolved.empty() ? plain : resolved;
}

}  // namespace quillmark
