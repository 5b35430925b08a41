// Characters as a reader counts them: a letter with its marks, an emoji made of several.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillmark::platform {

// Of text without line ends: the position in UTF-8 behind the first `count` characters; the size of
// a shorter text.
[[nodiscard]] std::size_t behindCharacters(std::string_view text, std::size_t count);

}  // namespace quillmark::platform
