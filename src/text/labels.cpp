#include "text/labels.h"

#include <algorithm>

#include "text/code_pages.h"
#include "text/utf8.h"

namespace quillmark {
namespace {

constexpr std::size_t kMaxShortBlock = 127;  // entries that a prefix of one byte can tell

// The longest beginning of `text` whose bytes don't pass `room`, cut between characters.
EncodedText encodePrefix(const std::string& text, int CodePage, std::size_t room) {
    std::size_t low = 0;
    std::size_t high = text.size();
    const auto atCharacter = [&](std::size_t i) {
        while (i > 0 && i < text.size() && (static_cast<std::uint8_t>(text[i]) & 0xC0U) == 0x80) {
            --i;
        }
        return i;
    };
    while (low < high) {
        const std::size_t middle = (low + high + 1) / 2;
        const std::size_t cut = atCharacter(middle);
        if (textToBytes(std::string_view(text).substr(0, cut), CodePage).bytes.size() <= room) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return textToBytes(std::string_view(text).substr(0, atCharacter(low)), CodePage);
}

}  // namespace

std::vector<RawLabel> splitStrings(ByteView Strings) {
    std::vector<RawLabel> labels;
    if (Strings.size() < 2) {
        return labels;
    }
    std::size_t position = (Strings[0] & 1U) != 0 ? 1 : 2;
    // A lone last byte is no entry: some files pad their blocks.
    while (position + 1 < Strings.size()) {
        const std::uint8_t language = Strings[position++];
        const auto begin = Strings.begin() + static_cast<std::ptrdiff_t>(position);
        const auto end = std::find(begin, Strings.end(), std::uint8_t{0});
        labels.push_back({language, ByteView(begin, end)});
        position += static_cast<std::size_t>(end - begin) + 1;
    }
    return labels;
}

std::vector<Label> decodeStrings(ByteView Strings, int CodePage) {
    std::vector<Label> labels;
    for (const RawLabel& raw : splitStrings(Strings)) {
        labels.push_back({raw.language, bytesToText(raw.text, CodePage)});
    }
    return labels;
}

EncodedStrings encodeStrings(const std::vector<Label>& labels, int CodePage) {
    EncodedStrings result;
    Bytes entries;
    for (const Label& label : labels) {
        if (entries.size() + 2 > kMaxStringsSize) {
            result.truncated = true;
            break;
        }
        std::string text = label.text;
        std::erase(text, '\0');  // a zero would end the label early
        EncodedText encoded = textToBytes(text, CodePage);
        const std::size_t room = kMaxStringsSize - entries.size() - 2;
        if (encoded.bytes.size() > room) {
            result.truncated = true;
            encoded = encodePrefix(text, CodePage, room);
        }
        if (encoded.lost > 0) {
            result.lost += encoded.lost;
            result.lossyLabels.push_back(static_cast<std::size_t>(&label - labels.data()));
        }
        entries.push_back(label.language);
        entries.insert(entries.end(), encoded.bytes.begin(), encoded.bytes.end());
        entries.push_back(0);
    }
    const std::size_t size = entries.size();
    if (size <= kMaxShortBlock) {
        result.Strings.push_back(static_cast<std::uint8_t>(size * 2 + 1));
    } else {
        const std::size_t prefix = size * 4 + 2;
        result.Strings.push_back(static_cast<std::uint8_t>(prefix & 0xFFU));
        result.Strings.push_back(static_cast<std::uint8_t>(prefix >> 8U));
    }
    result.Strings.insert(result.Strings.end(), entries.begin(), entries.end());
    return result;
}

}  // namespace quillmark
