#include "text/text_source.h"

#include <algorithm>
#include <charconv>

namespace quillmark {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

std::string_view normalise(std::string_view line) {
    if (line.empty()) {
        return line;
    }
    if (line.front() != '"') {
        line = line.substr(0, line.find(';'));
    }
    line = trimBlanks(line);
    if (!line.empty() && line.back() == ',') {
        line.remove_suffix(1);
    }
    return line;
}

std::optional<int> parseNumber(std::string_view digits, int base) {
    int value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

bool beginsWith(std::string_view line, std::string_view lowerPrefix) {
    if (line.size() < lowerPrefix.size()) {
        return false;
    }
    for (std::size_t i = 0; i < lowerPrefix.size(); ++i) {
        if (lower(line[i]) != lowerPrefix[i]) {
            return false;
        }
    }
    return true;
}

// Byte-order marks left inside by joined files, and stray carriage returns, count as blanks.
std::string_view trimBlanks(std::string_view text) {
    for (;;) {
        if (!text.empty() && (text.front() == ' ' || text.front() == '\r')) {
            text.remove_prefix(1);
        } else if (text.substr(0, 3) == kByteOrderMark) {
            text.remove_prefix(3);
        } else {
            break;
        }
    }
    for (;;) {
        if (!text.empty() && (text.back() == ' ' || text.back() == '\r')) {
            text.remove_suffix(1);
        } else if (text.size() >= 3 && text.substr(text.size() - 3) == kByteOrderMark) {
            text.remove_suffix(3);
        } else {
            break;
        }
    }
    return text;
}

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

std::string withoutHexPrefixes(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == '0' && i + 1 < text.size() && lower(text[i + 1]) == 'x') {
            i += 2;
        } else {
            result.push_back(text[i++]);
        }
    }
    return result;
}

std::optional<int> parseHex(std::string_view digits) {
    return digits.empty() || digits.front() == '-' ? std::nullopt : parseNumber(digits, 16);
}

std::optional<int> parseDecimal(std::string_view digits) {
    return parseNumber(digits, 10);
}

std::optional<int> leadingDecimal(std::string_view text) {
    const std::size_t sign = !text.empty() && text.front() == '-' ? 1 : 0;
    const std::size_t end = text.find_first_not_of("0123456789", sign);
    return parseDecimal(text.substr(0, end));
}

std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    // A text without any line feed comes from a system that ended lines by carriage returns.
    const char end = text.find('\n') == std::string_view::npos ? '\r' : '\n';
    lines.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), end)) + 1);
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(end), text.size());
        std::string_view line = text.substr(0, length);
        while (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        lines.push_back(line);
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

TextSource::TextSource(std::string_view text) : buffer_(text) {
    std::replace(buffer_.begin(), buffer_.end(), '\t', ' ');
    lines_ = splitLines(buffer_);
    for (std::string_view& line : lines_) {
        line = normalise(line);
    }
}

void TextSource::consumePrefix(std::size_t length) {
    const std::string_view rest = trimBlanks(line().substr(length));
    if (rest.empty()) {
        next();
    } else {
        lines_[index_] = rest;
    }
}

}  // namespace quillmark
