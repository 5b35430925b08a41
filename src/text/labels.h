// Labels of an object between their raw block and text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/bytes.h"

namespace quillmark {

struct Label {
    std::uint8_t language = 0;
    std::string text;  // UTF-8
    bool operator==(const Label&) const = default;
};

// One entry of a block, still raw: the language byte and the bytes up to the zero.
struct RawLabel {
    std::uint8_t language = 0;
    ByteView text;
};
// The entries of a `Strings` block; a last entry without its zero is taken as it stands.
[[nodiscard]] std::vector<RawLabel> splitStrings(ByteView Strings);

[[nodiscard]] std::vector<Label> decodeStrings(ByteView Strings, int CodePage);

struct EncodedStrings {
    Bytes Strings;                         // with its length prefix
    std::size_t lost = 0;                  // characters that became "?"
    std::vector<std::size_t> lossyLabels;  // labels with such characters
    bool truncated = false;                // some labels, or the end of one, didn't fit
};
// Blocks hold at most 16,383 bytes of entries; what fits stays.
inline constexpr std::size_t kMaxStringsSize = 16383;
[[nodiscard]] EncodedStrings encodeStrings(const std::vector<Label>& labels, int CodePage);

}  // namespace quillmark
