#include <windows.h>

#include "core/paths.h"

namespace quillmark {

bool samePath(const std::string& a, const std::string& b) {
    return CompareStringOrdinal(pathFromUtf8(a).c_str(), -1, pathFromUtf8(b).c_str(), -1, TRUE) ==
           CSTR_EQUAL;
}

}  // namespace quillmark
