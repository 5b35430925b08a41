#include "text/code_pages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>

#include "text/code_page_platform.h"
#include "text/utf8.h"

namespace quillmark {
namespace {

// Private characters that stand for the undefined bytes of single-byte pages, so that a file of
// one platform reads the same on the other.
char32_t privateCharacter(int codePage, std::uint8_t byte) {
    struct Range {
        int codePage;
        std::uint8_t first, last;
        char32_t character;
    };
    static constexpr std::array<Range, 13> ranges{{
        {874, 0xDB, 0xDE, 0xF8C1},
        {874, 0xFC, 0xFF, 0xF8C5},
        {1253, 0xAA, 0xAA, 0xF8F9},
        {1253, 0xD2, 0xD2, 0xF8FA},
        {1253, 0xFF, 0xFF, 0xF8FB},
        {1255, 0xD9, 0xDF, 0xF88D},
        {1255, 0xFB, 0xFC, 0xF894},
        {1255, 0xFF, 0xFF, 0xF896},
        {1257, 0xA1, 0xA1, 0xF8FC},
        {1257, 0xA5, 0xA5, 0xF8FD},
        {874, 0x80, 0x80, 0x20AC},
        {1255, 0xCA, 0xCA, 0x05BA},
        {0, 0, 0, 0},
    }};
    for (const Range& range : ranges) {
        if (range.codePage == codePage && byte >= range.first && byte <= range.last) {
            return range.character + (byte - range.first);
        }
    }
    // C1 controls keep their value; what else a page leaves open gets a private character too.
    return byte < 0xA0 ? byte : 0xF800U + byte;
}

// Both ways of a single-byte page.
struct SingleByteTable {
    std::array<char32_t, 256> characters{};
    std::array<std::string, 256> utf8;
    std::unordered_map<char32_t, std::uint8_t> bytes;
    bool asciiIsAscii = true;
};

SingleByteTable makeTable(int codePage) {
    SingleByteTable table;
    for (unsigned i = 0; i < 256; ++i) {
        const auto byte = static_cast<std::uint8_t>(i);
        const std::u16string one = platform::toUtf16(ByteView(&byte, 1), codePage);
        char32_t character = one.size() == 1 ? one[0] : kReplacement;
        // Control characters are always themselves; converters disagree about a few of them.
        if (i < 0x20 || i == 0x7F) {
            character = i;
        } else if (character == kReplacement || character == 0x1A) {
            character = privateCharacter(codePage, byte);
        }
        table.characters[i] = character;
        appendCharacter(table.utf8[i], character);
        table.bytes.emplace(character, byte);
        table.asciiIsAscii = table.asciiIsAscii && (i >= 0x80 || character == i);
    }
    return table;
}

// Null for multi-byte and unknown pages. A table is made once and lives as long as the process.
const SingleByteTable* singleByteTable(int codePage) {
    static std::mutex mutex;
    static std::unordered_map<int, std::unique_ptr<const SingleByteTable>> tables;
    const std::lock_guard lock(mutex);
    const auto [place, isNew] = tables.try_emplace(codePage);
    if (isNew && platform::maxBytesPerCharacter(codePage) == 1) {
        place->second = std::make_unique<const SingleByteTable>(makeTable(codePage));
    }
    return place->second.get();
}

std::string_view asText(ByteView bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

int resolve(int codePage) {
    return codePage == -1 ? platform::systemCodePage() : codePage;
}

bool isWellFormed(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t start = i;
        // The text may spell U+FFFD itself.
        if (nextCharacter(text, i) == kReplacement &&
            text.substr(start, 3) != std::string_view("\xEF\xBF\xBD")) {
            return false;
        }
    }
    return true;
}

std::string repairUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        appendCharacter(result, nextCharacter(text, i));
    }
    return result;
}

std::string fromSingleByte(ByteView bytes, const SingleByteTable& table) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const std::uint8_t byte : bytes) {
        if (byte < 0x80 && table.asciiIsAscii) {
            text.push_back(static_cast<char>(byte));
        } else {
            text += table.utf8[byte];
        }
    }
    return text;
}

EncodedText toSingleByte(std::string_view text, const SingleByteTable& table) {
    EncodedText result;
    result.bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t character = nextCharacter(text, i);
        if (character < 0x80 && table.asciiIsAscii) {
            result.bytes.push_back(static_cast<std::uint8_t>(character));
            continue;
        }
        const auto found = table.bytes.find(character);
        if (found == table.bytes.end()) {
            ++result.lost;
            result.bytes.push_back('?');
        } else {
            result.bytes.push_back(found->second);
        }
    }
    return result;
}

// Every multi-byte page offered holds ASCII as ASCII.
bool multiByteKeepsAscii(int codePage) {
    return codePage == kUtf8 || codePage == 932 || codePage == 936 || codePage == 949 ||
           codePage == 950 || codePage == 54936;
}

char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

std::size_t findKey(std::string_view text, std::size_t from) {
    constexpr std::string_view key = "codepage";
    const auto found =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), key.begin(),
                    key.end(), [](char a, char b) { return lowerCase(a) == b; });
    return found == text.end() ? std::string_view::npos
                               : static_cast<std::size_t>(found - text.begin());
}

// The number behind "CodePage" and a separator, read like the parser reads that line.
std::optional<int> numberBehindKey(std::string_view text) {
    const auto skipBlanks = [&text] {
        constexpr std::string_view blanks = " \t";
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    };
    text.remove_prefix(std::min<std::size_t>(1, text.size()));
    skipBlanks();
    if (!text.empty() && (text.front() == '=' || text.front() == ':')) {
        text.remove_prefix(1);
        skipBlanks();
    }
    int number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    // 0 and below aren't pages that a file could be in.
    return parsed.ec == std::errc() && number > 0 ? std::optional(number) : std::nullopt;
}

bool beginsLine(std::string_view text, std::size_t position) {
    while (position > 0 && (text[position - 1] == ' ' || text[position - 1] == '\t')) {
        --position;
    }
    return position == 0 || text[position - 1] == '\n' || text[position - 1] == '\r' ||
           text[position - 1] == ']' || static_cast<std::uint8_t>(text[position - 1]) >= 0x80;
}

struct NamedPage {
    bool named = false;
    std::optional<int> number;
};

// The page that a line names; without such a line the first one named anywhere, in a comment say.
NamedPage findCodePage(std::string_view text) {
    NamedPage result;
    for (std::size_t at = findKey(text, 0); at != std::string_view::npos;
         at = findKey(text, at + 1)) {
        result.named = true;
        const auto number = numberBehindKey(text.substr(at + 8));
        if (number && beginsLine(text, at)) {
            result.number = number;
            return result;
        }
        result.number = result.number ? result.number : number;
    }
    return result;
}

// Multi-byte pages by the pieces between control characters: the tables of some libraries swap
// those.
template <typename View, typename Convert, typename Control>
void betweenControls(View view, Convert convert, Control control) {
    const auto isSwapped = [](auto unit) { return unit == 0x1A || unit == 0x1C || unit == 0x7F; };
    while (!view.empty()) {
        const auto stop = std::find_if(view.begin(), view.end(), isSwapped);
        const auto length = static_cast<std::size_t>(stop - view.begin());
        if (length > 0) {
            convert(View(view.begin(), stop));
        }
        if (stop == view.end()) {
            return;
        }
        control(*stop);
        view = View(stop + 1, view.end());
    }
}

// Text that says it is UTF-8 and isn't throughout: what doesn't fit is mostly an older line in
// windows-1252, so that nothing is lost by reading just those bytes so.
std::string mixedText(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t start = i;
        const char32_t character = nextCharacter(text, i);
        if (character == kReplacement && text.substr(start, 3) != "\xEF\xBF\xBD") {
            const auto byte = static_cast<std::uint8_t>(text[start]);
            result += bytesToText(ByteView(&byte, 1), 1252);
            i = start + 1;
        } else {
            appendCharacter(result, character);
        }
    }
    return result;
}

}  // namespace

bool codePageExists(int codePage) {
    if (codePage == 0 || codePage == -1 || multiByteKeepsAscii(codePage)) {
        return true;
    }
    const SingleByteTable* table = singleByteTable(codePage);
    return table != nullptr && table->asciiIsAscii;
}

std::string bytesToText(ByteView bytes, int codePage) {
    codePage = resolve(codePage);
    const std::string_view raw = asText(bytes);
    if (codePage == 0) {
        std::string text;
        for (const std::uint8_t byte : bytes) {
            appendCharacter(text, byte);
        }
        return text;
    }
    if (codePage == kUtf8) {
        return isAscii(raw) || isWellFormed(raw) ? std::string(raw) : repairUtf8(raw);
    }
    if (multiByteKeepsAscii(codePage) && isAscii(raw)) {
        return std::string(raw);
    }
    if (const SingleByteTable* table = singleByteTable(codePage)) {
        return fromSingleByte(bytes, *table);
    }
    std::string text;
    betweenControls(
        bytes, [&](ByteView piece) { text += utf16ToUtf8(platform::toUtf16(piece, codePage)); },
        [&](std::uint8_t control) { text.push_back(static_cast<char>(control)); });
    return text;
}

bool isMalformed(ByteView bytes, std::string_view decoded, int codePage) {
    return resolve(codePage) == kUtf8 ? !isValidUtf8(bytes)
                                      : decoded.find("\xEF\xBF\xBD") != std::string_view::npos;
}

EncodedText textToBytes(std::string_view text, int codePage) {
    codePage = resolve(codePage);
    EncodedText result;
    if (codePage == 0) {
        for (const char16_t unit : utf8ToUtf16(text)) {
            result.bytes.push_back(static_cast<std::uint8_t>(unit & 0xFFU));
        }
        return result;
    }
    if (codePage == kUtf8 || (multiByteKeepsAscii(codePage) && isAscii(text))) {
        result.bytes.assign(text.begin(), text.end());
        return result;
    }
    if (const SingleByteTable* table = singleByteTable(codePage)) {
        return toSingleByte(text, *table);
    }
    const std::u16string units = utf8ToUtf16(text);
    betweenControls(
        std::u16string_view(units),
        [&](std::u16string_view piece) {
            const Bytes bytes = platform::fromUtf16(std::u16string(piece), codePage, result.lost);
            result.bytes.insert(result.bytes.end(), bytes.begin(), bytes.end());
        },
        [&](char16_t control) { result.bytes.push_back(static_cast<std::uint8_t>(control)); });
    return result;
}

bool isValidUtf8(ByteView bytes, bool* hasMultiByte) {
    const std::string_view text = asText(bytes);
    const bool multiByte = !isAscii(text);
    if (hasMultiByte != nullptr) {
        *hasMultiByte = multiByte;
    }
    return !multiByte || isWellFormed(text);
}

DecodedTextFile decodeTextFile(ByteView file, TextFileEncoding encoding) {
    DecodedTextFile result;
    const bool hasMark = file.size() >= 3 && file[0] == 0xEF && file[1] == 0xBB && file[2] == 0xBF;
    if (hasMark) {
        file = file.subspan(3);
    }
    const std::string_view raw = asText(file);
    const NamedPage named = findCodePage(raw);
    result.namesCodePage = named.named;
    result.CodePage = named.number.value_or(result.CodePage);

    bool hasMultiByte = false;
    const bool valid = isValidUtf8(file, &hasMultiByte);
    result.utf8 = encoding == TextFileEncoding::utf8 ||
                  (encoding == TextFileEncoding::automatic && (hasMark || (valid && hasMultiByte)));
    int page = result.utf8 ? kUtf8 : result.CodePage;
    if (!codePageExists(page)) {
        page = 1252;
    }
    if (page == kUtf8 && !valid) {
        result.malformed = true;
        result.text = mixedText(raw);
    } else {
        result.text = bytesToText(file, page);
    }
    std::erase(result.text, '\0');
    return result;
}

}  // namespace quillmark
