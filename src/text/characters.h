// What the platform knows of single characters. One source file for each platform.
#pragma once

namespace quillmark::platform {

// Letters and digits of any script, and "_".
[[nodiscard]] bool isWordCharacter(char32_t character);
// Two characters that differ by case only have the same folded one. Simple folding: one character
// for one.
[[nodiscard]] char32_t foldCase(char32_t character);

}  // namespace quillmark::platform
