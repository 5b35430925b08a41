#include "core/paths.h"

namespace quillmark {

bool samePath(const std::string& a, const std::string& b) {
    return a == b;
}

}  // namespace quillmark
