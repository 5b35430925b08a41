// Paths of the program are UTF-8 wherever they are text.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillmark {

[[nodiscard]] std::filesystem::path pathFromUtf8(std::string_view path);
[[nodiscard]] std::string utf8FromPath(const std::filesystem::path& path);

// Without ".". A ".." stays with all before it: behind a link it is another folder than it looks.
[[nodiscard]] std::filesystem::path withoutDots(const std::filesystem::path& path);
// From the working folder, with ".." as the file system resolves it.
[[nodiscard]] std::filesystem::path absolutePath(const std::filesystem::path& path);

// Whatever the case of the file's own; `extension` is ".typ" or the like, in lower case.
[[nodiscard]] bool hasExtension(const std::filesystem::path& file, std::string_view extension);

// As the platform compares them; both are UTF-8.
[[nodiscard]] bool samePath(const std::string& a, const std::string& b);

}  // namespace quillmark
