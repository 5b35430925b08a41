#include "text/graphemes.h"

#include <windows.h>

#include "text/utf8.h"

namespace quillmark::platform {
namespace {

constexpr char32_t kJoiner = 0x200D;

// Belongs to the character in front of it.
bool isMark(char32_t character) {
    if (character == kJoiner || (character >= 0xFE00 && character <= 0xFE0F) ||
        (character >= 0x1F3FB && character <= 0x1F3FF) ||
        (character >= 0xE0020 && character <= 0xE007F)) {
        return true;
    }
    if (character > 0xFFFF || character < 0x300) {
        return false;
    }
    const auto unit = static_cast<wchar_t>(character);
    WORD type = 0;
    return GetStringTypeW(CT_CTYPE3, &unit, 1, &type) != FALSE &&
           (type & (C3_NONSPACING | C3_DIACRITIC | C3_VOWELMARK)) != 0 && (type & C3_ALPHA) == 0;
}

bool isFlagHalf(char32_t character) {
    return character >= 0x1F1E6 && character <= 0x1F1FF;
}

}  // namespace

std::size_t behindCharacters(std::string_view text, std::size_t count) {
    std::size_t position = 0;
    std::size_t found = 0;
    char32_t before = 0;
    bool halfFlag = false;
    while (position < text.size()) {
        const std::size_t start = position;
        const char32_t character = nextCharacter(text, position);
        const bool secondHalf = halfFlag && isFlagHalf(character);
        halfFlag = isFlagHalf(character) && !secondHalf;
        const bool joined = start > 0 && (isMark(character) || before == kJoiner || secondHalf);
        if (!joined && found++ == count) {
            return start;
        }
        before = character;
    }
    return position;
}

}  // namespace quillmark::platform
