// Finds text in the text view. The text is UTF-16, as its control holds it; places are units.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmark {

struct SearchOptions {
    bool wholeWord = false;
    bool matchCase = false;
};

struct TextRange {
    std::size_t start = 0;
    std::size_t length = 0;
    bool operator==(const TextRange&) const = default;
};

// The first match that begins at `from` or behind it. An empty text is found nowhere.
[[nodiscard]] std::optional<TextRange> recherche(std::u16string_view text,
                                                 std::u16string_view searched, std::size_t from,
                                                 const SearchOptions& options);
// All matches from the start of the text to its end that don't overlap.
[[nodiscard]] std::vector<TextRange> rechercheTout(std::u16string_view text,
                                                   std::u16string_view searched,
                                                   const SearchOptions& options);
// The range itself is a match.
[[nodiscard]] bool isMatch(std::u16string_view text, const TextRange& range,
                           std::u16string_view searched, const SearchOptions& options);

}  // namespace quillmark
