#include "ui/raw_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "text/utf8.h"

namespace quillmark {
namespace {

// Eight bytes that are all plain characters, without line ends; most of a text is made of them.
bool arePlain(const char* bytes) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    // A byte below 0x20 borrows into its high bit, if no byte has one.
    return ((word | (word - 0x2020202020202020)) & kHighBits) == 0;
}

char16_t held(char16_t c) {
    return c == 0x2029 || c == 0xFDD0 || c == 0xFDD1 ? u'\xFFFD' : c;
}

}  // namespace

QString rawText(const std::string& utf8) {
    QString text(static_cast<qsizetype>(utf8.size()), Qt::Uninitialized);
    auto* const begin = reinterpret_cast<char16_t*>(text.data());
    char16_t* out = begin;
    for (std::size_t i = 0; i < utf8.size();) {
        const char* const in = utf8.data() + i;
        if (i + 8 <= utf8.size() && arePlain(in)) {
            std::copy(in, in + 8, out);
            out += 8;
            i += 8;
        } else if (*in == '\r' || *in == '\n') {
            i += in[0] == '\r' && i + 1 < utf8.size() && in[1] == '\n' ? 2U : 1U;
            *out++ = u'\u2029';
        } else {
            const char32_t c = nextCharacter(utf8, i);
            if (c < 0x10000) {
                *out++ = held(static_cast<char16_t>(c));
            } else {
                *out++ = QChar::highSurrogate(c);
                *out++ = QChar::lowSurrogate(c);
            }
        }
    }
    text.truncate(out - begin);
    return text;
}

QString rawText(const QString& text) {
    QString raw;
    raw.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text.at(i).unicode();
        if (c == u'\r' || c == u'\n') {
            i += c == u'\r' && i + 1 < text.size() && text.at(i + 1) == u'\n' ? 1 : 0;
            raw.append(QChar::ParagraphSeparator);
        } else {
            raw.append(QChar(held(c)));
        }
    }
    return raw;
}

std::string fileText(const QString& raw) {
    std::string text;
    // Most characters take a byte, and a line end two; what else there is makes it grow.
    text.reserve(static_cast<std::size_t>(raw.size() + raw.count(QChar::ParagraphSeparator)));
    const auto* const in = reinterpret_cast<const char16_t*>(raw.utf16());
    const qsizetype size = raw.size();
    for (qsizetype i = 0; i < size;) {
        const qsizetype start = i;
        while (i < size && in[i] < 0x80) {
            ++i;
        }
        const std::size_t end = text.size();
        text.resize(end + static_cast<std::size_t>(i - start));
        std::transform(in + start, in + i, text.data() + end,
                       [](char16_t c) { return static_cast<char>(c); });
        if (i == size) {
            break;
        }
        char32_t c = in[i++];
        if (c == 0x2029) {
            text += "\r\n";
            continue;
        }
        if (QChar::isHighSurrogate(c) && i < size && QChar::isLowSurrogate(in[i])) {
            c = QChar::surrogateToUcs4(static_cast<char16_t>(c), in[i++]);
        }
        appendCharacter(text, QChar::isSurrogate(c) ? kReplacement : c);
    }
    return text;
}

}  // namespace quillmark
