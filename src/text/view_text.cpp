#include "text/view_text.h"

#include <array>
#include <string_view>

namespace quillmark {

std::string viewableText(std::string text) {
    // All take three bytes, as what replaces them does.
    constexpr std::array<std::string_view, 3> kUnheld{"\xE2\x80\xA9", "\xEF\xB7\x90",
                                                      "\xEF\xB7\x91"};
    for (const std::string_view character : kUnheld) {
        for (std::size_t at = text.find(character); at != std::string::npos;
             at = text.find(character, at)) {
            text.replace(at, character.size(), "\xEF\xBF\xBD");
        }
    }
    return text;
}

}  // namespace quillmark
