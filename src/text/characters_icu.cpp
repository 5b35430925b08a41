#include <unicode/uchar.h>

#include "text/characters.h"

namespace quillmark::platform {

bool isWordCharacter(char32_t character) {
    return character == U'_' || u_isalnum(static_cast<UChar32>(character)) != 0;
}

char32_t foldCase(char32_t character) {
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

}  // namespace quillmark::platform
