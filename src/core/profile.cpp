#include "core/profile.h"

#include <array>
#include <cstdint>

#include "core/ascii.h"
#include "core/errors.h"
#include "core/files.h"

namespace quillmark {
namespace {

constexpr std::size_t kMaxCharacters = 1023;

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Length of the UTF-8 sequence at the start of `text`, 0 when it is malformed.
std::size_t sequenceLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length < 2) {
        return length;
    }
    if (text.size() < length) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(text[i])) {
            return 0;
        }
    }
    // Overlong forms, surrogates and what lies above U+10FFFF show in the second byte.
    const auto second = static_cast<unsigned char>(text[1]);
    const bool bad = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                     (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return bad ? 0 : length;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

// Bytes 0x80 to 0x9F of windows-1252; the five that it leaves undefined are control characters.
constexpr std::array<std::uint16_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void append(char32_t code, std::string& text) {
    const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0U | code >> 6U);
        add(0x80U | (code & 0x3FU));
    } else {
        if (code < 0x10000) {
            add(0xE0U | code >> 12U);
        } else {
            add(0xF0U | code >> 18U);
            add(0x80U | (code >> 12U & 0x3FU));
        }
        add(0x80U | (code >> 6U & 0x3FU));
        add(0x80U | (code & 0x3FU));
    }
}

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        append(code >= 0x80 && code < 0xA0 ? kWindows1252[code - 0x80] : code, text);
    }
    return text;
}

// Behind the mark; `high` is the place of the high byte in each pair.
std::string fromUtf16(std::string_view bytes, std::size_t high) {
    const auto unit = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[i + high]) << 8U |
                                     static_cast<unsigned char>(bytes[i + 1 - high]));
    };
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t code = unit(i);
        if (code >= 0xD800 && code < 0xE000) {
            const char32_t second = i + 3 < bytes.size() ? unit(i + 2) : 0;
            if (code < 0xDC00 && second >= 0xDC00 && second < 0xE000) {
                code = 0x10000 + ((code - 0xD800) << 10U) + (second - 0xDC00);
                i += 2;
            } else {
                code = 0xFFFD;  // half a pair
            }
        }
        append(code, text);
    }
    return text;
}

// As UTF-8; `decoded` holds the text where it isn't that already.
std::string_view asUtf8(std::string_view text, std::string& decoded) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        decoded = fromUtf16(text.substr(2), text[0] == '\xFF' ? 1 : 0);
        return decoded;
    }
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    if (!isUtf8(text)) {
        decoded = fromWindows1252(text);
        return decoded;
    }
    return text;
}

// A value as readers of these files hand it out.
std::string handedOut(std::string_view value) {
    value = trimmed(value);
    if (value.size() >= 2 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\'')) {
        value = value.substr(1, value.size() - 2);
    }
    value = value.substr(0, value.find('\0'));
    std::size_t characters = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (!isContinuation(value[i]) && ++characters > kMaxCharacters) {
            return std::string(value.substr(0, i));
        }
    }
    return std::string(value);
}

}  // namespace

Profile Profile::parse(std::string_view text) {
    std::string decoded;
    text = asUtf8(text, decoded);
    Profile profile;
    Section* current = nullptr;  // null before the first section and within a repeated one
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.empty() || line[0] == ';') {
            continue;
        }
        const std::size_t bracket = line[0] == '[' ? line.rfind(']') : std::string_view::npos;
        if (bracket != std::string_view::npos) {
            const std::string_view name = trimmed(line.substr(1, bracket - 1));
            const auto [place, added] = profile.sections_.try_emplace(loweredLatin1(name));
            current = added ? &place->second : nullptr;
            if (added) {
                profile.names_.emplace_back(name);
            }
            continue;
        }
        const std::size_t equals = line.find('=');
        if (current == nullptr || equals == std::string_view::npos) {
            continue;
        }
        const std::string_view key = trimmed(line.substr(0, equals));
        const auto [place, added] = current->values.try_emplace(loweredLatin1(key));
        if (added) {
            place->second = handedOut(line.substr(equals + 1));
            current->order.emplace_back(key);
        }
    }
    return profile;
}

Profile Profile::load(const std::filesystem::path& file) {
    try {
        const Bytes bytes = readFile(file);
        return parse({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    } catch (const Failure&) {
        return {};
    }
}

std::optional<std::string> Profile::find(std::string_view section, std::string_view cle) const {
    const auto found = sections_.find(loweredLatin1(section));
    if (found == sections_.end()) {
        return std::nullopt;
    }
    const auto value = found->second.values.find(loweredLatin1(cle));
    if (value == found->second.values.end()) {
        return std::nullopt;
    }
    return value->second;
}

std::vector<std::string> Profile::keys(std::string_view section) const {
    const auto found = sections_.find(loweredLatin1(section));
    return found == sections_.end() ? std::vector<std::string>() : found->second.order;
}

std::string LireProfil(std::string_view section, std::string_view cle, std::string_view defaut,
                       const std::filesystem::path& fichier) {
    auto value = Profile::load(fichier).find(section, cle);
    return value ? *std::move(value) : std::string(defaut);
}

}  // namespace quillmark
