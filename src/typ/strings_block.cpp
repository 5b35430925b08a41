#include "typ/strings_block.h"

#include <algorithm>

namespace quillmark {
namespace {

constexpr std::uint8_t kContourFlags = 0x60;

}  // namespace

Bytes readStrings(PartReader& parts) {
    const auto first = parts.peek(0);
    if (!first) {
        // An empty block rather than none: the record's flags promise one to the next reader.
        parts.failRead(1);
        return {0x01};
    }
    if ((*first & 1U) != 0) {
        return parts.bytes((*first >> 1U) + 1U);
    }
    // A prefix of zero would make a block shorter than its prefix.
    const std::size_t word = *first | static_cast<std::size_t>(parts.peek(1).value_or(0)) << 8U;
    return parts.bytes(std::max<std::size_t>(2, (word + 2) / 4 + 1));
}

Bytes readExtendedLabels(PartReader& parts) {
    const auto flags = parts.peek(0);
    if (!flags) {
        parts.failRead(1);
        return {0x00};
    }
    const unsigned customColours = *flags >> 3U & 3U;
    std::size_t size = 1 + (customColours == 0 ? 0U : customColours == 3 ? 6U : 3U);
    if ((*flags & kContourFlags) != 0) {
        size += 1U + (parts.peek(size).value_or(0) >> 1U);
    }
    return parts.bytes(size);
}

}  // namespace quillmark
