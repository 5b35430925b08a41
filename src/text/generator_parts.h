// Lines that sections of all kinds of objects have in common.
#pragma once

#include <string>

#include "core/journal.h"
#include "core/records.h"
#include "text/generator.h"
#include "text/text_writer.h"

namespace quillmark {

// What the lines about one object need to know of it.
struct ObjectLines {
    const GeneratorContext& context;
    int CodePage;
    TextWriter& out;
    Journal& journal;
    const std::string& Type;
    const std::string& SubType;
};

[[nodiscard]] std::string translate(const GeneratorContext& context, std::string_view section,
                                    std::string_view defaut, std::string_view cle);

// A comment of the program's own: letters lose their accents where the code page has none.
[[nodiscard]] std::string commentText(std::string text, int CodePage);

// "Type=0x..." of polygons and lines: five digits, or the last two of a standard type.
void writeTypeLine(ObjectLines& object);
// ";GRMN_TYPE: " and the description in a section of the table of types.
void writeDescription(ObjectLines& object, std::string_view section);
void writeComment(ObjectLines& object, const std::string& Comment);
// "String<n>=0x<LL>,<text>". `problem` opens the journal's entry about labels that don't decode;
// most objects never need it.
void writeStrings(ObjectLines& object, ByteView Strings,
                  std::string (*problem)(const GeneratorContext& context));
void writeCustomName(ObjectLines& object, const std::string& CustomMPCName);
// "ExtendedLabels=" and, when they are there, the lines of the block.
void lecture_ExtendedLabels(ObjectLines& object, bool present, ByteView ExtendedLabels);

// Palette of a pattern: the fixed codes by the bits of `Entete`, colours in stored order. `Alpha`
// is null where the format has none.
void writePatternPalette(TextWriter& out, std::uint8_t Entete, ByteView Couleurs,
                         const Bytes* Alpha);
// Palette of an object without pattern: colours under their running number.
void writeNumberedPalette(TextWriter& out, ByteView Couleurs, const Bytes* Alpha);
// Rows of a pattern, 4 bytes each, and the ruler behind them.
void writePatternRows(TextWriter& out, std::uint8_t Entete, ByteView rows);

}  // namespace quillmark
