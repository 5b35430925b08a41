// Paths of the program are UTF-8 wherever they are text.
#pragma once

#include <filesystem>
#include <string>

namespace quillmark {

[[nodiscard]] std::filesystem::path pathFromUtf8(const std::string& path);
[[nodiscard]] std::string utf8FromPath(const std::filesystem::path& path);

}  // namespace quillmark
