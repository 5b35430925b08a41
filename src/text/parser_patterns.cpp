// Palettes and rows of polygons and lines.
#include <algorithm>
#include <cstring>

#include "bitmap/patterns.h"
#include "text/format.h"
#include "text/parser_sections.h"

namespace quillmark {
namespace {

// Codes of a row's pixels that are set and those that are known.
struct RowCodes {
    std::string_view set;
    std::vector<std::string_view> known;
    std::size_t charactersPerPixel = 1;
};

void parseRow(ParserContext& context, const RowCodes& codes, std::size_t width,
              std::span<std::uint8_t> bits) {
    const std::string_view row = quoted(context.source.line());
    bool unknown = false;
    std::size_t pixels = 0;
    const auto put = [&](std::string_view code) {
        if (pixels < 32 && pixels < width && code == codes.set) {
            bits[pixels / 8] |= static_cast<std::uint8_t>(1U << pixels % 8);
        } else if (pixels < width && code != codes.set) {
            unknown = unknown ||
                      std::find(codes.known.begin(), codes.known.end(), code) == codes.known.end();
        }
        ++pixels;
    };
    if (codes.charactersPerPixel == 1) {
        // A byte above 0x7F belongs to a longer character: the slow way counts those right.
        const bool ascii = std::none_of(row.begin(), row.end(), [](char c) { return c < 0; });
        if (ascii) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                put(row.substr(i, 1));
            }
        } else {
            for (const auto& code : splitCodes(row, 1)) {
                put(code);
            }
        }
    } else {
        for (const auto& code : splitCodes(row, codes.charactersPerPixel)) {
            put(code);
        }
    }
    if (pixels < width) {
        context.tell(Fault::shortRow);
    } else if (pixels > width) {
        context.tell(Fault::longRow);
    }
    if (unknown) {
        context.tell(Fault::unknownCode);
    }
}

RowCodes rowCodes(const ParsedPattern& pattern, std::size_t charactersPerPixel) {
    RowCodes codes;
    codes.charactersPerPixel = charactersPerPixel;
    for (const PaletteLine& line : pattern.palette) {
        codes.known.push_back(line.code);
    }
    if (!pattern.palette.empty()) {
        const auto& palette = pattern.palette;
        // Where the first line is the transparent one, the pattern is drawn by the second.
        const bool second = palette[0].none && palette.size() > 1 && !palette[1].none;
        codes.set = palette[second ? 1 : 0].code;
    }
    return codes;
}

void parseRows(ParserContext& context, ParsedPattern& pattern, const XpmHeader& header) {
    const auto charactersPerPixel = static_cast<std::size_t>(std::clamp(header.fields[3], 1, 8));
    const RowCodes codes = rowCodes(pattern, charactersPerPixel);
    for (int i = 0; i < header.fields[1]; ++i) {
        if (!atBlockLine(context)) {
            return;
        }
        if (context.source.line().front() != '"') {
            context.tell(Fault::shortRow);
            return;
        }
        std::array<std::uint8_t, 4> surplus{};
        const std::span<std::uint8_t> bits =
            i < pattern.rowCount
                ? std::span<std::uint8_t>(pattern.rows).subspan(static_cast<std::size_t>(i) * 4, 4)
                : std::span<std::uint8_t>(surplus);
        parseRow(context, codes, static_cast<std::size_t>(header.fields[0]), bits);
        context.source.next();
    }
    skipSurplusRows(context);
}

}  // namespace

ParsedPattern parsePattern(ParserContext& context, int maxRows) {
    ParsedPattern pattern;
    const XpmHeader header = parseXpmHeader(context.source.line());
    if (!header.valid) {
        context.tell(Fault::value);
        context.source.next();
        return pattern;
    }
    pattern.given = true;
    pattern.line = context.source.index();
    pattern.hasRows = header.fields[0] > 0 && header.fields[1] > 0;
    if (pattern.hasRows) {
        const bool isLine = maxRows == format::kMaxLineRows;
        if (isLine && header.fields[1] > maxRows) {
            context.tell(Fault::tooManyRows);
        }
        if (header.fields[0] != kPatternSide || (!isLine && header.fields[1] != maxRows)) {
            context.tell(Fault::patternSize);
        }
        // All rows are there from the start: a section that ends early leaves the rest clear.
        pattern.rowCount = std::min(header.fields[1], maxRows);
        pattern.rows.resize(static_cast<std::size_t>(pattern.rowCount) * 4);
    }
    context.source.next();
    const auto charactersPerPixel = static_cast<std::size_t>(std::clamp(header.fields[3], 1, 8));
    for (int i = 0; i < header.fields[2]; ++i) {
        if (!atBlockLine(context)) {
            return pattern;
        }
        if (context.source.line().front() != '"') {
            context.tell(Fault::unexpectedEnd);
            break;
        }
        pattern.palette.push_back(parsePaletteLine(context.source.line(), charactersPerPixel));
        pattern.palette.back().line = context.source.index();
        if (!pattern.palette.back().valid) {
            context.tell(Fault::value);
        }
        context.source.next();
    }
    if (pattern.hasRows) {
        parseRows(context, pattern, header);
    }
    return pattern;
}

}  // namespace quillmark
