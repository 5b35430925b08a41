// The lines of a text in their normal form, and small helpers to look at them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

// True when `line` begins with `lowerPrefix`, which is in lower case, regardless of ASCII case.
[[nodiscard]] bool beginsWith(std::string_view line, std::string_view lowerPrefix);
[[nodiscard]] std::string_view trimBlanks(std::string_view text);
[[nodiscard]] std::string lowerCase(std::string_view text);
// Without any "0x", in either case.
[[nodiscard]] std::string withoutHexPrefixes(std::string_view text);
// The whole text as a number; nothing when it is empty, has other characters or doesn't fit.
[[nodiscard]] std::optional<int> parseHex(std::string_view digits);
[[nodiscard]] std::optional<int> parseDecimal(std::string_view digits);
// The number a text begins with, whatever stands behind it.
[[nodiscard]] std::optional<int> leadingDecimal(std::string_view text);

// Lines are normalised once: tabs are blanks; behind ";" stands a comment unless the line begins
// with a quote; blanks at both ends and one comma at the end go. Numbers of lines stay those of
// the text.
class TextSource {
  public:
    explicit TextSource(std::string_view text);
    // The lines point into the buffer.
    TextSource(const TextSource&) = delete;
    TextSource& operator=(const TextSource&) = delete;

    [[nodiscard]] bool atEnd() const { return index_ >= lines_.size(); }
    [[nodiscard]] std::string_view line() const { return lines_[index_]; }
    void next() { ++index_; }
    // From 0.
    [[nodiscard]] std::size_t index() const { return index_; }
    void setIndex(std::size_t index) { index_ = index; }
    [[nodiscard]] std::size_t lineCount() const { return lines_.size(); }
    [[nodiscard]] std::string_view lineAt(std::size_t index) const { return lines_[index]; }
    // Goes over lines without content.
    void skipBlankLines() {
        while (!atEnd() && line().empty()) {
            next();
        }
    }
    // Past a closing line: what stands behind its first `length` characters is looked at next.
    void consumePrefix(std::size_t length);

  private:
    std::string buffer_;
    std::vector<std::string_view> lines_;
    std::size_t index_ = 0;
};

// Lines of a text as they stand, without their line ends.
[[nodiscard]] std::vector<std::string_view> splitLines(std::string_view text);

}  // namespace quillmark
