#include "text/search.h"

#include <string>

#include "text/characters.h"

namespace quillmark {
namespace {

bool isHigh(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLow(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// The character at `position`, which moves behind it. Half a pair stands for itself.
char32_t characterAt(std::u16string_view text, std::size_t& position) {
    const char16_t unit = text[position++];
    if (!isHigh(unit) || position == text.size() || !isLow(text[position])) {
        return unit;
    }
    return 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10U) +
           (static_cast<char32_t>(text[position++]) - 0xDC00);
}

bool isWordBefore(std::u16string_view text, std::size_t position) {
    if (position == 0) {
        return false;
    }
    const bool pair = position > 1 && isLow(text[position - 1]) && isHigh(text[position - 2]);
    position -= pair ? 2 : 1;
    return platform::isWordCharacter(characterAt(text, position));
}

bool isWordAt(std::u16string_view text, std::size_t position) {
    return position < text.size() && platform::isWordCharacter(characterAt(text, position));
}

// Looks at each character of the text once, however the searched text repeats itself.
class Finder {
  public:
    Finder(std::u16string_view text, std::u16string_view searched, const SearchOptions& options)
        : text_(text), options_(options), units_(searched.size()) {
        for (std::size_t i = 0; i < searched.size();) {
            searched_.push_back(folded(characterAt(searched, i)));
        }
        // How much of the searched text still fits when its character i doesn't.
        fallback_.assign(searched_.size() + 1, 0);
        for (std::size_t i = 1, fits = 0; i < searched_.size(); ++i) {
            while (fits > 0 && searched_[i] != searched_[fits]) {
                fits = fallback_[fits];
            }
            fits += searched_[i] == searched_[fits] ? 1U : 0U;
            fallback_[i + 1] = fits;
        }
    }

    [[nodiscard]] std::optional<TextRange> next(std::size_t from) const {
        if (searched_.empty()) {
            return std::nullopt;
        }
        if (from > 0 && from < text_.size() && isLow(text_[from]) && isHigh(text_[from - 1])) {
            ++from;
        }
        std::size_t fits = 0;
        for (std::size_t i = from; i < text_.size();) {
            const char32_t character = folded(characterAt(text_, i));
            while (fits > 0 && character != searched_[fits]) {
                fits = fallback_[fits];
            }
            fits += character == searched_[fits] ? 1U : 0U;
            if (fits == searched_.size()) {
                // Folding never changes how many units a character takes.
                const std::size_t start = i - units_;
                if (!options_.wholeWord || (!isWordBefore(text_, start) && !isWordAt(text_, i))) {
                    return TextRange{start, units_};
                }
                fits = fallback_[fits];
            }
        }
        return std::nullopt;
    }

  private:
    [[nodiscard]] char32_t folded(char32_t character) const {
        if (options_.matchCase) {
            return character;
        }
        if (character < 0x80) {
            return character >= U'A' && character <= U'Z' ? character + 32 : character;
        }
        return platform::foldCase(character);
    }

    std::u16string_view text_;
    SearchOptions options_;
    std::size_t units_;
    std::u32string searched_;
    std::vector<std::size_t> fallback_;
};

}  // namespace

std::optional<TextRange> recherche(std::u16string_view text, std::u16string_view searched,
                                   std::size_t from, const SearchOptions& options) {
    return Finder(text, searched, options).next(from);
}

std::vector<TextRange> rechercheTout(std::u16string_view text, std::u16string_view searched,
                                     const SearchOptions& options) {
    std::vector<TextRange> matches;
    const Finder finder(text, searched, options);
    for (auto match = finder.next(0); match; match = finder.next(match->start + match->length)) {
        matches.push_back(*match);
    }
    return matches;
}

bool isMatch(std::u16string_view text, const TextRange& range, std::u16string_view searched,
             const SearchOptions& options) {
    // The character behind the range decides about whole words.
    const std::size_t end = range.start + range.length;
    return range.length == searched.size() && end <= text.size() &&
           recherche(text.substr(0, end + 2), searched, range.start, options) == range;
}

}  // namespace quillmark
