#include <windows.h>

#include "text/characters.h"

namespace quillmark::platform {
namespace {

// One character as the system's calls want it.
struct Units {
    explicit Units(char32_t character) {
        if (character < 0x10000) {
            text[0] = static_cast<wchar_t>(character);
            return;
        }
        text[0] = static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10U));
        text[1] = static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FFU));
        length = 2;
    }
    wchar_t text[2]{};
    int length = 1;
};

}  // namespace

bool isWordCharacter(char32_t character) {
    const Units units(character);
    WORD types[2]{};
    return character == U'_' ||
           (GetStringTypeW(CT_CTYPE1, units.text, units.length, types) != FALSE &&
            (types[0] & (C1_ALPHA | C1_DIGIT)) != 0);
}

// Upper case first, so that the two small sigmas and the like meet.
char32_t foldCase(char32_t character) {
    const Units units(character);
    wchar_t upper[2]{};
    wchar_t lower[2]{};
    if (LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, units.text, units.length, upper, 2,
                      nullptr, nullptr, 0) != units.length ||
        LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, upper, units.length, lower, 2,
                      nullptr, nullptr, 0) != units.length) {
        return character;
    }
    return units.length == 1 ? static_cast<char32_t>(lower[0])
                             : 0x10000 + ((static_cast<char32_t>(lower[0]) - 0xD800) << 10U) +
                                   (static_cast<char32_t>(lower[1]) - 0xDC00);
}

}  // namespace quillmark::platform
