#include "text/generator_parts.h"

#include <algorithm>
#include <array>

#include "text/code_pages.h"
#include "text/format.h"
#include "text/labels.h"
#include "text/utf8.h"

namespace quillmark {
namespace {

using colour_bits::kDayTransparent;
using colour_bits::kNight;
using colour_bits::kNightTransparent;

void writeAlpha(TextWriter& out, const Bytes* Alpha, std::size_t index) {
    if (Alpha != nullptr && index < Alpha->size()) {
        out.raw("   alpha=").hexByte((*Alpha)[index]);
    }
}

bool replaceLineEnds(std::string& label) {
    if (label.find_first_of("\r\n") == std::string::npos) {
        return false;
    }
    std::size_t to = 0;
    for (std::size_t i = 0; i < label.size(); ++i) {
        const bool pair = label[i] == '\r' && i + 1 < label.size() && label[i + 1] == '\n';
        label[to++] = label[i] == '\r' || label[i] == '\n' ? ' ' : label[i];
        i += pair ? 1 : 0;
    }
    label.resize(to);
    return true;
}

// Colours of labels or contours, in the order day, night.
void writeLabelColours(TextWriter& out, unsigned mode, std::string_view dayKey,
                       std::string_view nightKey, ByteView colours) {
    std::size_t index = 0;
    if ((mode & 1U) != 0) {
        out.raw(dayKey).storedColour(colours, index++).end();
    }
    if ((mode & 2U) != 0) {
        out.raw(nightKey).storedColour(colours, index).end();
    }
}

}  // namespace

std::string translate(const GeneratorContext& context, std::string_view section,
                      std::string_view defaut, std::string_view cle) {
    return context.traduction == nullptr ? std::string(defaut)
                                         : context.traduction->Trad(section, defaut, cle);
}

std::string commentText(std::string text, int CodePage) {
    if (isAscii(text) || textToBytes(text, CodePage).lost == 0) {
        return text;
    }
    struct Letter {
        std::string_view accented, plain;
    };
    static constexpr std::array<Letter, 25> letters{
        {{"à", "a"}, {"â", "a"},  {"ä", "a"},  {"ç", "c"}, {"è", "e"}, {"é", "e"}, {"ê", "e"},
         {"ë", "e"}, {"î", "i"},  {"ï", "i"},  {"ô", "o"}, {"ö", "o"}, {"ù", "u"}, {"û", "u"},
         {"ü", "u"}, {"œ", "oe"}, {"æ", "ae"}, {"’", "'"}, {"²", "2"}, {"À", "A"}, {"Ç", "C"},
         {"É", "E"}, {"È", "E"},  {"Ê", "E"},  {"Î", "I"}}};
    for (const Letter& letter : letters) {
        for (std::size_t at = text.find(letter.accented); at != std::string::npos;
             at = text.find(letter.accented, at)) {
            text.replace(at, letter.accented.size(), letter.plain);
        }
    }
    return text;
}

void writeTypeLine(ObjectLines& object) {
    TextWriter& out = object.out;
    out.raw("Type=0x");
    if (!object.Type.empty() && object.Type[0] != '0') {
        out.raw(object.Type).raw(object.SubType);
    } else {
        out.raw(std::string_view(object.Type).substr(std::min<std::size_t>(1, object.Type.size())));
    }
    out.end();
}

void writeDescription(ObjectLines& object, std::string_view section) {
    object.out.raw(";GRMN_TYPE: ");
    std::optional<std::string> found;
    if (object.context.types != nullptr) {
        found = object.context.types->find(section, "0x" + object.Type + object.SubType);
    }
    object.out.line(found ? commentText(std::move(*found), object.CodePage) : "//");
}

void writeComment(ObjectLines& object, const std::string& Comment) {
    if (!Comment.empty()) {
        object.out.raw("Comment=").line(Comment);
    }
}

void writeCustomName(ObjectLines& object, const std::string& CustomMPCName) {
    if (!CustomMPCName.empty()) {
        object.out.raw("CustomMPCName=").line(CustomMPCName);
    }
}

void writeStrings(ObjectLines& object, ByteView Strings,
                  std::string (*problem)(const GeneratorContext& context)) {
    int number = 0;
    bool malformed = false;
    bool lineEnds = false;
    for (const RawLabel& raw : splitStrings(Strings)) {
        object.out.raw("String").number(++number).raw("=0x").hexByte(raw.language).character(',');
        std::string label = bytesToText(raw.text, object.CodePage);
        malformed = malformed || isMalformed(raw.text, label, object.CodePage);
        lineEnds = replaceLineEnds(label) || lineEnds;
        object.out.line(label);
    }
    if (!malformed && !lineEnds) {
        return;
    }
    const std::string place = " Type=0x" + object.Type + "  SubTypes = 0x" + object.SubType;
    if (malformed) {
        object.journal.warning(problem(object.context) + place, place);
    }
    if (lineEnds) {
        object.journal.warning(translate(object.context, "Main",
                                         "Fin de ligne dans un label, remplacée par un espace dans "
                                         "le texte:",
                                         "msgFinDeLigne") +
                                   place,
                               place);
    }
}

void lecture_ExtendedLabels(ObjectLines& object, bool present, ByteView ExtendedLabels) {
    TextWriter& out = object.out;
    if (!present || ExtendedLabels.empty()) {
        out.line("ExtendedLabels=N");
        return;
    }
    out.line("ExtendedLabels=Y");
    const unsigned header = ExtendedLabels[0];
    const std::size_t font = header & 7U;
    if (font < format::kFontStyles.size()) {
        out.raw("FontStyle=").line(format::kFontStyles[font]);
    }
    const unsigned colourMode = header >> 3U & 3U;
    out.raw("CustomColor=").line(format::kDayNightModes[colourMode]);
    const std::size_t colourBytes = colourMode == 0 ? 0 : colourMode == 3 ? 6 : 3;
    const auto from = [&](std::size_t start) {
        return ExtendedLabels.subspan(std::min(start, ExtendedLabels.size()));
    };
    writeLabelColours(out, colourMode, "DaycustomColor:", "NightcustomColor:", from(1));
    const unsigned contourMode = header >> 5U & 3U;
    out.raw("ContourColor=").line(format::kDayNightModes[contourMode]);
    // A length byte stands between the colours of the label and those of its contour.
    writeLabelColours(out, contourMode,
                      "DayContourColor:", "NightContourColor:", from(2 + colourBytes));
}

void writePatternPalette(TextWriter& out, std::uint8_t Entete, ByteView Couleurs,
                         const Bytes* Alpha) {
    std::size_t stored = 0;
    const auto colourLine = [&](std::size_t code) {
        out.character('"').character(format::kPatternCodes[code]).raw(" c ");
        out.storedColour(Couleurs, stored).character('"');
        writeAlpha(out, Alpha, stored);
        out.end();
        ++stored;
    };
    colourLine(0);
    if ((Entete & kDayTransparent) != 0) {
        out.line("\"  c none\"");
    } else {
        colourLine(1);
    }
    if ((Entete & kNight) == 0) {
        return;
    }
    colourLine(2);
    if ((Entete & kNightTransparent) != 0) {
        out.line("\"4 c none\"");
    } else {
        colourLine(3);
    }
}

void writeNumberedPalette(TextWriter& out, ByteView Couleurs, const Bytes* Alpha) {
    for (std::size_t i = 0; i < Couleurs.size() / 3; ++i) {
        out.character('"').number(static_cast<int>(i) + 1).raw(" c ");
        out.storedColour(Couleurs, i).character('"');
        writeAlpha(out, Alpha, i);
        out.end();
    }
}

void writePatternRows(TextWriter& out, std::uint8_t Entete, ByteView rows) {
    const char clear = (Entete & kDayTransparent) != 0 ? ' ' : '#';
    std::array<char, 36> line{};
    line[0] = '"';
    line[33] = '"';
    line[34] = '\r';
    line[35] = '\n';
    for (std::size_t row = 0; row + 4 <= rows.size(); row += 4) {
        for (std::size_t x = 0; x < 32; ++x) {
            line[1 + x] = (unsigned{rows[row + x / 8]} >> (x % 8) & 1U) != 0 ? '!' : clear;
        }
        out.raw({line.data(), line.size()});
    }
    out.line(format::kRuler);
}

}  // namespace quillmark
