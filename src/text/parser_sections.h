// One parser for each kind of object section. The source stands on the line behind the section's
// name, and afterwards on the first line that doesn't belong to the section.
#pragma once

#include "core/records.h"
#include "text/parser_parts.h"

namespace quillmark {

[[nodiscard]] Polygone parsePolygon(ParserContext& context);
[[nodiscard]] Polyline parseLine(ParserContext& context);
[[nodiscard]] POI parsePoint(ParserContext& context);

// Runs a section to its end: `handle` gets the source standing on a line, returns false for a
// line it doesn't know, and otherwise leaves the source behind what it took.
template <typename Handle>
void runSection(ParserContext& context, Handle handle) {
    while (!context.source.atEnd()) {
        const std::string_view line = context.source.line();
        if (line.empty()) {
            context.source.next();
        } else if (isEnd(line)) {
            return;
        } else if (isSectionName(line)) {
            context.tell(Fault::unexpectedEnd);
            return;
        } else if (!handle(line)) {
            context.skip();
            context.source.next();
        }
    }
    context.tell(Fault::unexpectedEnd);
}
// Past the `[end]` that a section ran to, if there is one.
inline void leaveSection(ParserContext& context) {
    if (!context.source.atEnd() && isEnd(context.source.line())) {
        context.source.consumePrefix(5);
    }
}

// Keys that all objects share; false when the line has none of them.
template <typename Record>
bool handleCommonKey(ParserContext& context, std::string_view line, Record& record,
                     std::uint8_t& flags, std::uint8_t stringsBit) {
    // Of the text view: what it can't hold stood there as another character.
    if (context.hadUnshown &&
        (beginsWith(line, "comment=") || beginsWith(line, "custommpcname=")) &&
        line.find("\xEF\xBF\xBD") != std::string_view::npos) {
        context.tell(Fault::unshownCharacters);
    }
    if (beginsWith(line, "type=")) {
        parseType(context, record.Type, record.SubType);
    } else if (beginsWith(line, "subtype=")) {
        parseSubType(context, record.SubType);
    } else if (beginsWith(line, "comment=")) {
        record.Comment = line.substr(8);
    } else if (beginsWith(line, "string")) {
        if (!record.Strings.empty()) {
            context.tell(Fault::repeatedLabels);
        }
        record.Strings = parseStrings(context);
        flags = static_cast<std::uint8_t>(record.Strings.empty() ? flags & ~stringsBit
                                                                 : flags | stringsBit);
        return true;
    } else if (beginsWith(line, "custommpcname=")) {
        record.CustomMPCName = line.substr(14);
    } else {
        return false;
    }
    context.source.next();
    return true;
}

template <typename Record>
void finishType(ParserContext& context, std::size_t firstLine, Record& record) {
    if (record.Type.empty()) {
        context.tell(Fault::noType, firstLine);
    }
}

// --- pictures ---

// A pattern as text gives it: up to four palette lines (day, day background, night, night
// background) and rows.
struct ParsedPattern {
    bool given = false;
    bool hasRows = false;
    int rowCount = 0;
    std::size_t line = 0;  // of its header, from 0
    std::vector<PaletteLine> palette;
    Bytes rows;  // 4 bytes a row
};
// `maxRows` rows are kept, all are read.
[[nodiscard]] ParsedPattern parsePattern(ParserContext& context, int maxRows);

// A picture of a point, complete for its own size.
struct ParsedPicture {
    bool given = false;
    int width = 0;
    int height = 0;
    std::size_t line = 0;  // of its header, from 0
    ImagePOI image;
};
[[nodiscard]] ParsedPicture parsePicture(ParserContext& context);

}  // namespace quillmark
