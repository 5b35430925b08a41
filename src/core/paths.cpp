#include "core/paths.h"

namespace quillmark {

std::filesystem::path pathFromUtf8(const std::string& path) {
    return {std::u8string(path.begin(), path.end())};
}

std::string utf8FromPath(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace quillmark
