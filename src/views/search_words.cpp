#include "views/search_words.h"

#include <algorithm>

#include "text/utf8.h"

namespace quillmark {
namespace {

// U+00C0 to U+017F without their accents; "*" has more than one letter or none of its own.
constexpr std::string_view kLatin =
    "aaaaaa*ceeeeiiiidnooooo*ouuuuy**"
    "aaaaaa*ceeeeiiiidnooooo*ouuuuy*y"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii**jjkkklllllllllln"
    "nnnnnnnnoooooo**rrrrrrsssssssstttttt"
    "uuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(kLatin.size() == 0x180 - 0xC0);

std::string_view severalLetters(char32_t c) {
    switch (c) {
        case 0xC6:
        case 0xE6:
            return "ae";
        case 0xDE:
        case 0xFE:
            return "th";
        case 0xDF:
            return "ss";
        case 0x132:
        case 0x133:
            return "ij";
        case 0x152:
        case 0x153:
            return "oe";
        default:
            return {};
    }
}

char32_t foldedGreek(char32_t c) {
    constexpr std::u32string_view kAccented = U"ΆΈΉΊΌΎΏΐΪΫάέήίΰϊϋόύώς";
    constexpr std::u32string_view kPlain = U"αεηιουωιιυαεηιυιυουωσ";
    const std::size_t found = kAccented.find(c);
    if (found != std::u32string_view::npos) {
        return kPlain[found];
    }
    return c >= 0x391 && c <= 0x3A9 ? c + 0x20 : c;
}

char32_t foldedCyrillic(char32_t c) {
    const char32_t small = c < 0x410 ? c + 0x50 : c < 0x430 ? c + 0x20 : c;
    return small == U'ё' ? U'е' : small == U'й' ? U'и' : small;
}

void appendFolded(std::string& folded, char32_t c) {
    if (c >= 0xC0 && c < 0x180) {
        const char plain = kLatin[c - 0xC0];
        const std::string_view several = severalLetters(c);
        if (plain != '*') {
            folded += plain;
        } else if (!several.empty()) {
            folded += several;
        } else {
            appendCharacter(folded, c);
        }
    } else if (c >= 0x300 && c < 0x370) {
        // An accent that follows its letter.
    } else if (c >= 0x370 && c < 0x400) {
        appendCharacter(folded, foldedGreek(c));
    } else if (c >= 0x400 && c < 0x460) {
        appendCharacter(folded, foldedCyrillic(c));
    } else {
        appendCharacter(folded, c);
    }
}

bool isWordByte(char c) {
    // Bytes above 127 belong to letters of other alphabets.
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) > 0x7F;
}

}  // namespace

std::string foldedForSearch(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = nextCharacter(text, i);
        if (c < 0x80) {
            folded += static_cast<char>(c >= U'A' && c <= U'Z' ? c + 0x20 : c);
        } else {
            appendFolded(folded, c);
        }
    }
    return folded;
}

bool hasWordBeginning(std::string_view text, std::string_view beginning) {
    for (std::size_t at = text.find(beginning); at != std::string_view::npos;
         at = text.find(beginning, at + 1)) {
        if (at == 0 || !isWordByte(text[at - 1])) {
            return true;
        }
    }
    return false;
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (end > 0) {
            words.emplace_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

}  // namespace quillmark
