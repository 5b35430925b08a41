// Words as filters and type-ahead compare them: without regard to case and accents.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

// Small letters without accents; Latin, Greek and Cyrillic letters are known.
[[nodiscard]] std::string foldedForSearch(std::string_view text);

// Both arguments folded: `beginning` stands at the start of one of the words of `text`.
[[nodiscard]] bool hasWordBeginning(std::string_view text, std::string_view beginning);

// The pieces between blanks.
[[nodiscard]] std::vector<std::string> wordsOf(std::string_view text);

}  // namespace quillmark
