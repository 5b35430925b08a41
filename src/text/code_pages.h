// Between bytes in a code page and UTF-8. Code page -1 is the system's own, 0 stands for "each
// byte is one character of the same value".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/bytes.h"

namespace quillmark {

inline constexpr int kUtf8 = 65001;

// True when the platform has the page and its ASCII is ASCII, without which no key of a text
// could be read.
[[nodiscard]] bool codePageExists(int codePage);

// Bytes that the page leaves undefined become the C1 control or the private character that the
// platform uses for them, so that single-byte pages lose nothing; malformed sequences of
// multi-byte pages become U+FFFD. An unknown page yields an empty text.
[[nodiscard]] std::string bytesToText(ByteView bytes, int codePage);

// True when bytes didn't follow the rules of their page; `decoded` is what they became.
[[nodiscard]] bool isMalformed(ByteView bytes, std::string_view decoded, int codePage);

struct EncodedText {
    Bytes bytes;
    std::size_t lost = 0;  // characters that became "?"
};
[[nodiscard]] EncodedText textToBytes(std::string_view text, int codePage);

// How a text file is held and what it says of itself.
struct DecodedTextFile {
    std::string text;     // UTF-8, without byte-order mark and zero characters
    int CodePage = 1252;  // what the file names
    bool namesCodePage = false;
    bool utf8 = false;       // it was decoded as UTF-8
    bool malformed = false;  // some bytes were not UTF-8 and were read as windows-1252
};
enum class TextFileEncoding : std::uint8_t { automatic, codePage, utf8 };
// `automatic` takes UTF-8 for a file with a byte-order mark or with valid multi-byte characters,
// otherwise the page the file names, 1252 without one.
[[nodiscard]] DecodedTextFile decodeTextFile(ByteView file, TextFileEncoding encoding);

[[nodiscard]] bool isValidUtf8(ByteView bytes, bool* hasMultiByte = nullptr);

}  // namespace quillmark
