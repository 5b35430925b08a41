// What the parsers of the sections share: the lines, the journal, and the keys that all kinds of
// objects have.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/bytes.h"
#include "core/journal.h"
#include "core/translation.h"
#include "text/labels.h"
#include "text/text_source.h"

namespace quillmark {

// Why a line is told in the journal.
enum class Fault : std::uint8_t {
    value,          // a value that can't be read
    unexpectedEnd,  // a section ends before it should
    unknownCode,    // a pixel code that the palette lacks
    shortRow,
    longRow,
    patternSize,  // a pattern isn't 32 wide or high
    tooManyRows,
    surplusRows,
    invertedNight,  // the night picture of a pattern sets other pixels than the day's
    borderWithoutColour,
    tooManyObjects,
    noPicture,  // a polygon or line without `Xpm`
    surplusColours,
    pictureSize,  // day and night picture differ in size
    labelsTooLong,
    lostCharacters,
    unknownCodePage,
    ignoredSection,
    repeatedLabels,
    noType,
    stray,              // lines between the sections
    noSection,          // the text of one object holds none
    ignoredType,        // of a member of a group
    unshownCharacters,  // that the text view had to replace
};

struct ParserContext {
    TextSource& source;
    Journal& journal;
    const Traduction& traduction;
    std::vector<int>& skippedLines;
    int CodePage = 1252;
    std::size_t pixelBudget = 0;  // bytes that pictures may still take
    bool hadUnshown = false;      // U+FFFD may stand for another character

    // Tells of a line, from 0; of the last one when the text ended too early.
    void tell(Fault fault, std::size_t line);
    void tell(Fault fault) { tell(fault, source.index()); }
    void skip() { skippedLines.push_back(static_cast<int>(source.index()) + 1); }
};

[[nodiscard]] bool isEnd(std::string_view line);
// Begins with the name of one of the format's sections.
[[nodiscard]] bool isSectionName(std::string_view line);

// A line within a block that is taken by position: goes over blank lines; false, and told, when
// the section or the text ends there.
[[nodiscard]] bool atBlockLine(ParserContext& context);

// `Type=` and `SubType=` in all their spellings; a value that can't be read is told and changes
// nothing.
void parseType(ParserContext& context, std::string& Type, std::string& SubType);
void parseSubType(ParserContext& context, std::string& SubType);

// A run of `String` lines; blank lines within it don't end it. The source then stands behind it.
[[nodiscard]] Bytes parseStrings(ParserContext& context);
// The lines behind `ExtendedLabels=Y`, which the source stands on. The source then stands on the
// first line that isn't one of them.
[[nodiscard]] Bytes parseExtendedLabels(ParserContext& context);

// The four header fields of an `Xpm` line, and what stands behind its second quote.
struct XpmHeader {
    std::array<int, 4> fields{};  // width, height, colours, characters per pixel
    std::string_view behind;
    bool valid = false;  // at least width, height and colours
};
[[nodiscard]] XpmHeader parseXpmHeader(std::string_view line);

// A palette line: its pixel code and its colour.
struct PaletteLine {
    std::string_view code;  // UTF-8, `charactersPerPixel` characters
    bool none = false;
    bool valid = false;                    // a colour or "none" was found
    std::array<std::uint8_t, 3> stored{};  // blue, green, red
    std::string_view alpha;                // what stands behind "alpha=", empty without it
    std::size_t line = 0;                  // from 0
};
[[nodiscard]] PaletteLine parsePaletteLine(std::string_view line, std::size_t charactersPerPixel);
// Rows behind the last one that a header named are told once and left out.
void skipSurplusRows(ParserContext& context);
// "RRGGBB" as stored bytes; false when a pair isn't hexadecimal (its byte stays 0).
bool parseColour(std::string_view digits, std::array<std::uint8_t, 3>& stored);

// Between the first and the last quote of a line; all behind the first one without a second.
[[nodiscard]] std::string_view quoted(std::string_view line);
// Cuts a row into codes of so many characters.
[[nodiscard]] std::vector<std::string_view> splitCodes(std::string_view row,
                                                       std::size_t charactersPerPixel);

}  // namespace quillmark
