#include "core/folders.h"

#include "core/paths.h"

namespace quillmark {

std::filesystem::path Folders::dataFile(const std::string& name) const {
    std::error_code ignored;
    std::filesystem::path own = userData / pathFromUtf8(name);
    if (std::filesystem::is_regular_file(own, ignored)) {
        return own;
    }
    return program / pathFromUtf8(name);
}

}  // namespace quillmark
