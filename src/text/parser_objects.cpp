// Sections of polygons and lines.
#include <algorithm>

#include "bitmap/patterns.h"
#include "text/format.h"
#include "text/parser_sections.h"

namespace quillmark {
namespace {

using colour_bits::kDayTransparent;
using colour_bits::kNight;
using colour_bits::kNightTransparent;
constexpr std::uint8_t kOneColour = kDayTransparent | kNightTransparent;

// The colours of a record and the three low bits that name their layout; always in step.
struct Layout {
    std::uint8_t bits = kOneColour;
    std::vector<const PaletteLine*> colours;
    bool invertedNight = false;  // by night the other pixels have the colour: can't be stored
};

bool isColour(const std::vector<PaletteLine>& palette, std::size_t index) {
    return index < palette.size() && !palette[index].none;
}

// The colour lines of one pair, that of the set pixels first; a pair always yields one, black if
// need be.
std::size_t addPair(const std::vector<PaletteLine>& palette, std::size_t first, bool swapped,
                    Layout& layout) {
    static const PaletteLine black;
    const std::size_t before = layout.colours.size();
    for (const std::size_t i : {first + (swapped ? 1 : 0), first + (swapped ? 0 : 1)}) {
        if (isColour(palette, i)) {
            layout.colours.push_back(&palette[i]);
        }
    }
    if (layout.colours.size() == before) {
        layout.colours.push_back(&black);
    }
    return layout.colours.size() - before;
}

// A palette of day and night pairs, with "none" in either place of a pair.
Layout pairedLayout(const std::vector<PaletteLine>& palette) {
    Layout layout;
    // Where the day's first line is the transparent one, its second line draws the pattern.
    const bool swapped = !isColour(palette, 0) && isColour(palette, 1);
    const std::size_t day = addPair(palette, 0, swapped, layout);
    if (palette.size() <= 2) {
        // Without night colours the day's transparency holds for the night too.
        layout.bits = day == 1 ? kOneColour : 0;
        return layout;
    }
    const std::size_t night = addPair(palette, 2, swapped, layout);
    layout.invertedNight = palette.size() > 3 && night == 1 && !isColour(palette, swapped ? 3 : 2);
    layout.bits = static_cast<std::uint8_t>(kNight | (day == 1 ? kDayTransparent : 0) |
                                            (night == 1 ? kNightTransparent : 0));
    return layout;
}

// A filled polygon has one colour, or one by day and one by night.
Layout filledLayout(const std::vector<PaletteLine>& palette) {
    Layout layout;
    const Layout paired = pairedLayout(palette);
    if (palette.size() <= 2 && paired.colours.size() == 1) {
        layout.colours = paired.colours;
        return layout;
    }
    layout.bits = kNight | kOneColour;
    // Two colours are day and night; of two pairs the first colour of each.
    const bool pairs = palette.size() > 2;
    const std::size_t night = pairs && (paired.bits & kDayTransparent) == 0 ? 2 : 1;
    layout.colours = {paired.colours[0], paired.colours[night]};
    return layout;
}

// A line without bitmap: its colour, or its colour and its border; a border is told by a
// `BorderWidth`, otherwise two colours are day and night.
Layout strokeLayout(const std::vector<PaletteLine>& palette, bool hasBorder) {
    Layout layout = pairedLayout(palette);
    if (palette.size() == 2 && layout.bits == 0 && !hasBorder) {
        layout.bits = kNight | kOneColour;
    }
    return layout;
}

Bytes storedColours(const Layout& layout) {
    Bytes bytes;
    for (const PaletteLine* line : layout.colours) {
        bytes.insert(bytes.end(), line->stored.begin(), line->stored.end());
    }
    return bytes;
}

// Empty without any alpha; colours without one are opaque.
Bytes storedAlpha(ParserContext& context, const Layout& layout) {
    Bytes bytes;
    bool any = false;
    for (const PaletteLine* line : layout.colours) {
        const auto value = parseHex(line->alpha.substr(0, 2));
        any = any || !line->alpha.empty();
        if (!line->alpha.empty() && !value) {
            context.tell(Fault::value, line->line);
        }
        bytes.push_back(static_cast<std::uint8_t>(value.value_or(0)));
    }
    return any ? bytes : Bytes();
}

// Colours that no layout has, and night pictures that none can show.
void tellLosses(ParserContext& context, const ParsedPattern& pattern, const Layout& layout) {
    const std::size_t kept = layout.colours.size();
    const auto colours = std::count_if(pattern.palette.begin(), pattern.palette.end(),
                                       [](const PaletteLine& line) { return !line.none; });
    if (static_cast<std::size_t>(colours) > kept) {
        context.tell(Fault::surplusColours, pattern.line);
    }
    if (layout.invertedNight && pattern.hasRows) {
        context.tell(Fault::invertedNight, pattern.line);
    }
}

void finishPolygon(ParserContext& context, std::size_t firstLine, Polygone& polygone,
                   const ParsedPattern& pattern) {
    Layout layout;
    if (!pattern.given || pattern.palette.empty()) {
        context.tell(Fault::noPicture, firstLine);
        polygone.Couleurs.assign(3, 0);
    } else {
        layout = pattern.hasRows ? pairedLayout(pattern.palette) : filledLayout(pattern.palette);
        polygone.Couleurs = storedColours(layout);
        polygone.Alpha = storedAlpha(context, layout);
        tellLosses(context, pattern, layout);
    }
    const bool hasRows = pattern.given && pattern.hasRows;
    polygone.Entete |=
        static_cast<std::uint8_t>(layout.bits | (hasRows ? polygon_bits::kBitmap : 0) |
                                  (polygone.Alpha.empty() ? 0 : polygon_bits::kAlpha));
    std::copy(pattern.rows.begin(), pattern.rows.end(), polygone.Bitmap.begin());
    polygone.Longueur = static_cast<std::int32_t>(
        1 + polygone.Couleurs.size() + (hasRows ? kPolygonBitmapSize : 0) +
        polygone.Strings.size() + polygone.ExtendedLabels.size() + polygone.Alpha.size());
}

// Values of `LineWidth` and `BorderWidth`.
struct Widths {
    int line = 0;
    int border = 0;
    bool hasBorder = false;      // a `BorderWidth` line, whatever its value
    std::size_t borderLine = 0;  // from 0
};

void finishWidths(ParserContext& context, Polyline& line, const Widths& widths) {
    line.Bitmap.assign(1, static_cast<std::uint8_t>(widths.line));
    if ((line.Entete & kDayTransparent) == 0) {
        const int whole = widths.line + 2 * widths.border;
        if (whole > 255) {
            context.tell(Fault::value, widths.borderLine);
        }
        line.Bitmap.push_back(static_cast<std::uint8_t>(std::min(whole, 255)));
    } else if (widths.border > 0) {
        context.tell(Fault::borderWithoutColour, widths.borderLine);
    }
}

void finishLine(ParserContext& context, std::size_t firstLine, Polyline& line,
                const ParsedPattern& pattern, const Widths& widths) {
    if (!pattern.given || pattern.palette.empty()) {
        context.tell(Fault::noPicture, firstLine);
        line.Entete = kOneColour;
        line.Couleurs.assign(3, 0);
        finishWidths(context, line, widths);
    } else {
        const Layout layout = pattern.hasRows ? pairedLayout(pattern.palette)
                                              : strokeLayout(pattern.palette, widths.hasBorder);
        line.Couleurs = storedColours(layout);
        tellLosses(context, pattern, layout);
        line.Entete = static_cast<std::uint8_t>(layout.bits + pattern.rowCount * 8);
        if (pattern.hasRows) {
            line.Bitmap = pattern.rows;
        } else {
            finishWidths(context, line, widths);
        }
    }
    line.Longueur = static_cast<std::int32_t>(2 + line.Couleurs.size() + line.Bitmap.size() +
                                              line.Strings.size() + line.ExtendedLabels.size());
}

void parseActivity(std::string_view name, std::array<std::uint8_t, 2>& bytes) {
    if (name.empty()) {
        bytes = {0, 0};
        return;
    }
    format::Activity found = format::kOtherActivity;
    for (const auto& activity : format::kReadActivities) {
        if (activity.name == name) {
            found = activity;
        }
    }
    bytes = {found.first, found.second};
}

// The decimal value behind a key of `keyLength` characters and one separator.
void parseWidth(ParserContext& context, std::size_t keyLength, int& value) {
    const std::string_view line = context.source.line();
    const auto number = parseDecimal(trimBlanks(line.substr(std::min(keyLength, line.size()))));
    context.source.next();
    if (!number || *number < 0 || *number > 255) {
        context.tell(Fault::value, context.source.index() - 1);
        return;
    }
    value = *number;
}

}  // namespace

Polygone parsePolygon(ParserContext& context) {
    Polygone polygone;
    ParsedPattern pattern;
    const std::size_t firstLine = context.source.index() - 1;
    runSection(context, [&](std::string_view line) {
        if (handleCommonKey(context, line, polygone, polygone.Entete, polygon_bits::kStrings)) {
            return true;
        }
        if (beginsWith(line, "xpm=")) {
            pattern = parsePattern(context, kPatternSide);
        } else if (beginsWith(line, "extendedlabels=y")) {
            polygone.Entete |= polygon_bits::kExtendedLabels;
            polygone.ExtendedLabels = parseExtendedLabels(context);
        } else if (beginsWith(line, "extendedlabels=")) {
            context.source.next();
        } else {
            return false;
        }
        return true;
    });
    finishPolygon(context, firstLine, polygone, pattern);
    finishType(context, firstLine, polygone);
    leaveSection(context);
    return polygone;
}

Polyline parseLine(ParserContext& context) {
    Polyline polyline;
    polyline.Entete2 = line_bits::kNoOrientation;
    ParsedPattern pattern;
    Widths widths;
    const std::size_t firstLine = context.source.index() - 1;
    runSection(context, [&](std::string_view line) {
        if (handleCommonKey(context, line, polyline, polyline.Entete2, line_bits::kStrings)) {
            return true;
        }
        if (beginsWith(line, "activity=")) {
            parseActivity(line.substr(9), polyline.ActiveRouting);
        } else if (beginsWith(line, "useorientation=y")) {
            polyline.Entete2 &= static_cast<std::uint8_t>(~line_bits::kNoOrientation);
        } else if (beginsWith(line, "linewidth")) {
            parseWidth(context, 10, widths.line);
            return true;
        } else if (beginsWith(line, "borderwidth")) {
            widths.hasBorder = true;
            widths.borderLine = context.source.index();
            parseWidth(context, 12, widths.border);
            return true;
        } else if (beginsWith(line, "xpm=")) {
            pattern = parsePattern(context, format::kMaxLineRows);
            return true;
        } else if (beginsWith(line, "extendedlabels=y")) {
            polyline.Entete2 |= line_bits::kExtendedLabels;
            polyline.ExtendedLabels = parseExtendedLabels(context);
            return true;
        } else if (!beginsWith(line, "extendedlabels=") && !beginsWith(line, "useorientation=")) {
            return false;
        }
        context.source.next();
        return true;
    });
    finishLine(context, firstLine, polyline, pattern, widths);
    finishType(context, firstLine, polyline);
    leaveSection(context);
    return polyline;
}

}  // namespace quillmark
