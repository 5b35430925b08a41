#include "text/parser_parts.h"

#include <algorithm>

#include "text/code_pages.h"
#include "text/format.h"
#include "text/utf8.h"

namespace quillmark {
namespace {

std::string reasonText(Fault fault, const Traduction& traduction) {
    switch (fault) {
        case Fault::value:
            return {};
        case Fault::unexpectedEnd:
            return traduction.Trad("Main", "fin de section inattendue", "msgTexteFin");
        case Fault::unknownCode:
            return traduction.Trad("Main", "code de pixel absent de la palette", "msgTexteCode");
        case Fault::shortRow:
            return traduction.Trad("Main", "ligne de pixels trop courte ou absente",
                                   "msgTexteCourt");
        case Fault::longRow:
            return traduction.Trad("Main", "ligne de pixels trop longue", "msgTexteLong");
        case Fault::patternSize:
            return traduction.Trad("Main",
                                   "un motif a 32 pixels de large, celui d'un polygone 32 de haut",
                                   "msgTexteMotif");
        case Fault::tooManyRows:
            return traduction.Trad("Main", "31 lignes de pixels au plus", "msgTexteHauteur");
        case Fault::surplusRows:
            return traduction.Trad("Main", "lignes de pixels en trop", "msgTexteLignes");
        case Fault::invertedNight:
            return traduction.Trad("Main", "motif de nuit inversé par rapport au jour",
                                   "msgTexteInverse");
        case Fault::borderWithoutColour:
            return traduction.Trad("Main", "bordure sans couleur", "msgTexteBordure");
        case Fault::tooManyObjects:
            return traduction.Trad("Main", "32767 objets au plus de chaque sorte",
                                   "msgTexteObjets");
        case Fault::noPicture:
            return traduction.Trad("Main", "pas de Xpm: noir par défaut", "msgTexteSansXpm");
        case Fault::surplusColours:
            return traduction.Trad("Main", "couleurs en trop", "msgTexteCouleurs");
        case Fault::pictureSize:
            return traduction.Trad("Main", "les images de jour et de nuit ont la même taille",
                                   "msgTexteTaille");
        case Fault::labelsTooLong:
            return traduction.Trad("Main", "labels trop longs", "msgTexteLabels");
        case Fault::lostCharacters:
            return traduction.Trad("Main",
                                   "caractères absents de la page de code, remplacés par \"?\"",
                                   "msgTexteCaracteres");
        case Fault::unknownCodePage:
            return traduction.Trad("Main", "page de code inconnue, remplacée par 1252",
                                   "msgTexteCodePage");
        case Fault::ignoredSection:
            return traduction.Trad("Main", "section ignorée", "msgTexteIgnore");
        case Fault::repeatedLabels:
            return traduction.Trad("Main", "ces labels remplacent les précédents",
                                   "msgTexteRepetes");
        case Fault::noType:
            return traduction.Trad("Main", "objet sans type", "msgTexteSansType");
        case Fault::stray:
            return traduction.Trad("Main", "hors de toute section, ignoré", "msgTexteHors");
        case Fault::noSection:
            return traduction.Trad("Main", "aucune section d'objet", "msgTexteSansSection");
        case Fault::ignoredType:
            return traduction.Trad("Main", "type ignoré: c'est celui du groupe",
                                   "msgTexteTypeIgnore");
        case Fault::unshownCharacters:
            return traduction.Trad("Main",
                                   "caractères impossibles à afficher, remplacés dans le label",
                                   "msgTexteInaffichables");
    }
    return {};
}

// Characters replaced on the way are a limit of the code page or of the view; all else is a fault
// of the text.
JournalKind kindOf(Fault fault) {
    return fault == Fault::lostCharacters || fault == Fault::unshownCharacters
               ? JournalKind::warning
               : JournalKind::error;
}

std::optional<int> hexDigits(std::string_view digits) {
    return std::all_of(digits.begin(), digits.end(), [](char c) { return c != '+' && c != ' '; })
               ? parseHex(digits)
               : std::nullopt;
}

std::string lastPadded(std::string_view text, std::size_t length) {
    const std::size_t kept = std::min(text.size(), length);
    return std::string(length - kept, '0').append(text.substr(text.size() - kept));
}

// Five bits on disk: a larger number would turn the object into another type.
void takeSubType(ParserContext& context, const std::string& value, std::string& SubType) {
    const auto number = hexDigits(value);
    if (!number || *number > 0x1F) {
        context.tell(Fault::value);
        return;
    }
    SubType = value;
}

Label parseLabel(std::string_view line) {
    std::size_t separator = line.find('=');
    if (separator == std::string_view::npos) {
        separator = line.find(':');
    }
    if (separator == std::string_view::npos) {
        return {};
    }
    std::string_view piece = line.substr(separator + 1);
    if (line[separator] == '=') {
        piece = piece.substr(0, piece.find('='));
    }
    const std::string value = withoutHexPrefixes(piece);
    const std::size_t comma = value.find(',');
    const std::optional<int> language = hexDigits(trimBlanks(value.substr(0, comma)));
    // What isn't a language code belongs to the label, so that nothing of it is lost.
    if (!language || *language > 255) {
        return {0, value};
    }
    return {static_cast<std::uint8_t>(*language),
            comma == std::string::npos ? std::string() : value.substr(comma + 1)};
}

// The value behind one of the extended-label keys; nothing when the line isn't that key's.
std::optional<std::string_view> valueOf(std::string_view line, std::string_view lowerKey) {
    if (!beginsWith(line, lowerKey)) {
        return std::nullopt;
    }
    std::string_view value = trimBlanks(line.substr(lowerKey.size()));
    if (value.empty() || (value.front() != '=' && value.front() != ':')) {
        return std::nullopt;
    }
    return trimBlanks(value.substr(1));
}

class ExtendedLabelsParser {
  public:
    explicit ExtendedLabelsParser(ParserContext& context) : context_(context) {}

    Bytes parse() {
        unsigned header = fontStyle();
        const unsigned colourMode = mode("customcolor");
        header += colourMode << 3U;
        Bytes block{0};
        colours(colourMode, "daycustomcolor", "nightcustomcolor", block);
        const unsigned contourMode = mode("contourcolor");
        header += contourMode << 5U;
        if (contourMode != 0) {
            const std::size_t place = block.size();
            block.push_back(0);
            colours(contourMode, "daycontourcolor", "nightcontourcolor", block);
            block[place] = static_cast<std::uint8_t>((block.size() - place - 1) * 2 + 1);
        }
        block[0] = static_cast<std::uint8_t>(header);
        return block;
    }

  private:
    // The value of the next line when it is this key's; the line is then done with.
    std::optional<std::string_view> take(std::string_view lowerKey) {
        const std::size_t start = context_.source.index();
        context_.source.skipBlankLines();
        if (!context_.source.atEnd()) {
            if (auto value = valueOf(context_.source.line(), lowerKey)) {
                lastLine_ = context_.source.index();
                context_.source.next();
                return value;
            }
        }
        context_.source.setIndex(start);
        return std::nullopt;
    }

    unsigned fontStyle() {
        const auto value = take("fontstyle");
        const std::string start = lowerCase(value.value_or("").substr(0, 5));
        return start == "nolab"   ? 1
               : start == "small" ? 2
               : start == "norma" ? 3
               : start == "large" ? 4
                                  : 0;
    }

    unsigned mode(std::string_view lowerKey) {
        const std::string value = lowerCase(take(lowerKey).value_or(""));
        return value == "day" ? 1 : value == "night" ? 2 : value == "dayandnight" ? 3 : 0;
    }

    void colour(std::string_view lowerKey, Bytes& block) {
        std::array<std::uint8_t, 3> stored{};
        if (const auto value = take(lowerKey)) {
            const std::size_t hash = value->find('#');
            if (hash == std::string_view::npos ||
                !parseColour(value->substr(hash + 1, 6), stored)) {
                context_.tell(Fault::value, lastLine_);
            }
        }
        block.insert(block.end(), stored.begin(), stored.end());
    }

    void colours(unsigned mode, std::string_view dayKey, std::string_view nightKey, Bytes& block) {
        if ((mode & 1U) != 0) {
            colour(dayKey, block);
        }
        if ((mode & 2U) != 0) {
            colour(nightKey, block);
        }
    }

    ParserContext& context_;
    std::size_t lastLine_ = 0;
};

std::size_t characterLength(std::string_view text, std::size_t position) {
    const std::size_t start = position;
    (void)nextCharacter(text, position);
    return position - start;
}

}  // namespace

void ParserContext::tell(Fault fault, std::size_t line) {
    line = std::min(line, source.lineCount() - std::min<std::size_t>(1, source.lineCount()));
    const std::string reason = reasonText(fault, traduction);
    std::string text = "\r\n" + traduction.Trad("Main", "Ligne", "msgLigne") + " " +
                       std::to_string(line + 1) + " : \"";
    if (line < source.lineCount()) {
        text += source.lineAt(line);
    }
    text += '"';
    if (!reason.empty()) {
        text += "  (" + reason + ")";
    }
    journal.add(
        {kindOf(fault), {}, static_cast<int>(line) + 1, std::move(text), ObjectKind::none, 0});
}

bool isEnd(std::string_view line) {
    return beginsWith(line, "[end]");
}

bool isSectionName(std::string_view line) {
    if (!beginsWith(line, "[_")) {
        return false;
    }
    constexpr std::array<std::string_view, 6> names{"[_id]",      "[_comments]", "[_draworder]",
                                                    "[_polygon]", "[_line]",     "[_point]"};
    return std::any_of(names.begin(), names.end(),
                       [line](std::string_view name) { return beginsWith(line, name); });
}

bool atBlockLine(ParserContext& context) {
    context.source.skipBlankLines();
    if (context.source.atEnd()) {
        context.tell(Fault::unexpectedEnd);
        return false;
    }
    if (isEnd(context.source.line()) || isSectionName(context.source.line())) {
        context.tell(Fault::unexpectedEnd);
        return false;
    }
    return true;
}

void parseType(ParserContext& context, std::string& Type, std::string& SubType) {
    constexpr std::size_t kKey = 5;  // "type="
    const std::string line = lowerCase(withoutHexPrefixes(context.source.line()));
    const std::string value(trimBlanks(std::string_view(line).substr(kKey)));
    std::string type;
    std::string subType = "00";
    if (value.size() == 5) {
        type = value.substr(0, 3);
        subType = value.substr(3);
    } else if (value.size() == 4) {
        type = "0" + value.substr(0, 2);
        subType = value.substr(2);
    } else {
        type = lastPadded(value, 3);
    }
    if (!hexDigits(type)) {
        context.tell(Fault::value);
        return;
    }
    Type = type;
    SubType = "00";
    takeSubType(context, subType, SubType);
}

void parseSubType(ParserContext& context, std::string& SubType) {
    constexpr std::size_t kKey = 8;  // "subtype="
    const std::string line = lowerCase(withoutHexPrefixes(context.source.line()));
    const std::string value(trimBlanks(std::string_view(line).substr(kKey)));
    takeSubType(context, lastPadded(value, 2), SubType);
}

Bytes parseStrings(ParserContext& context) {
    std::vector<Label> labels;
    std::vector<std::size_t> lines;
    std::size_t behind = context.source.index();
    const std::size_t first = behind;
    while (!context.source.atEnd()) {
        const std::string_view line = context.source.line();
        if (beginsWith(line, "string")) {
            if (line.find_first_of("=:") == std::string_view::npos) {
                context.tell(Fault::value);
            } else {
                labels.push_back(parseLabel(line));
                lines.push_back(context.source.index());
                if (context.hadUnshown && line.find("\xEF\xBF\xBD") != std::string_view::npos) {
                    context.tell(Fault::unshownCharacters);
                }
            }
            behind = context.source.index() + 1;
        } else if (!line.empty()) {
            break;
        }
        context.source.next();
    }
    context.source.setIndex(behind);
    if (labels.empty()) {
        return {};
    }
    EncodedStrings encoded = encodeStrings(labels, context.CodePage);
    for (const std::size_t label : encoded.lossyLabels) {
        context.tell(Fault::lostCharacters, lines[label]);
    }
    if (encoded.truncated) {
        context.tell(Fault::labelsTooLong, first);
    }
    return std::move(encoded.Strings);
}

Bytes parseExtendedLabels(ParserContext& context) {
    context.source.next();
    return ExtendedLabelsParser(context).parse();
}

XpmHeader parseXpmHeader(std::string_view line) {
    XpmHeader header;
    const std::size_t first = line.find('"');
    if (first == std::string_view::npos) {
        return header;
    }
    const std::size_t second = std::min(line.find('"', first + 1), line.size());
    std::string_view inside = line.substr(first + 1, second - first - 1);
    header.behind = line.substr(std::min(second + 1, line.size()));
    std::size_t count = 0;
    while (count < header.fields.size()) {
        inside.remove_prefix(std::min(inside.find_first_not_of(' '), inside.size()));
        if (inside.empty()) {
            break;
        }
        const std::size_t length = std::min(inside.find(' '), inside.size());
        const auto number = parseDecimal(inside.substr(0, length));
        if (!number || *number < 0) {
            return header;
        }
        header.fields[count++] = *number;
        inside.remove_prefix(length);
    }
    header.valid = count >= 3;
    return header;
}

bool parseColour(std::string_view digits, std::array<std::uint8_t, 3>& stored) {
    bool complete = digits.size() >= 6;
    for (std::size_t i = 0; i < 3 && i * 2 + 2 <= digits.size(); ++i) {
        const auto pair = hexDigits(digits.substr(i * 2, 2));
        stored[2 - i] = static_cast<std::uint8_t>(pair.value_or(0));
        complete = complete && pair.has_value();
    }
    return complete;
}

PaletteLine parsePaletteLine(std::string_view line, std::size_t charactersPerPixel) {
    PaletteLine result;
    if (line.empty() || line.front() != '"') {
        return result;
    }
    std::size_t position = 1;
    for (std::size_t i = 0; i < charactersPerPixel && position < line.size(); ++i) {
        position += characterLength(line, position);
    }
    result.code = line.substr(1, position - 1);
    const std::size_t c = line.find_first_of("cC", position);
    if (c == std::string_view::npos) {
        return result;
    }
    std::string_view value = line.substr(c + 1);
    value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    if (beginsWith(value, "none")) {
        result.none = true;
        result.valid = true;
    } else if (!value.empty() && value.front() == '#') {
        result.valid = parseColour(value.substr(1, 6), result.stored);
    }
    const std::string lowered = lowerCase(value);
    const std::size_t alpha = lowered.find("alpha");
    if (alpha != std::string::npos) {
        result.alpha = trimBlanks(value.substr(std::min(alpha + 6, value.size())));
    }
    return result;
}

void skipSurplusRows(ParserContext& context) {
    const std::size_t first = context.source.index();
    while (!context.source.atEnd() && !context.source.line().empty() &&
           context.source.line().front() == '"') {
        context.source.next();
    }
    if (context.source.index() > first) {
        context.tell(Fault::surplusRows, first);
    }
}

std::string_view quoted(std::string_view line) {
    const std::size_t last = line.rfind('"');
    return last == 0 ? line.substr(1) : line.substr(1, last - 1);
}

std::vector<std::string_view> splitCodes(std::string_view row, std::size_t charactersPerPixel) {
    std::vector<std::string_view> codes;
    codes.reserve(row.size() / std::max<std::size_t>(charactersPerPixel, 1));
    for (std::size_t position = 0; position < row.size();) {
        const std::size_t start = position;
        for (std::size_t i = 0; i < charactersPerPixel && position < row.size(); ++i) {
            position += characterLength(row, position);
        }
        codes.push_back(row.substr(start, position - start));
    }
    return codes;
}

}  // namespace quillmark
