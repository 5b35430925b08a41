#include "text/parser.h"

#include <algorithm>
#include <unordered_map>

#include "core/draw_order.h"
#include "text/code_pages.h"
#include "text/format.h"
#include "text/parser_sections.h"

namespace quillmark {
namespace {

// Sections of the text that a document was shown as, to find those that nobody edited.
class UnchangedSections {
  public:
    explicit UnchangedSections(const GeneratedText* generated) {
        if (generated == nullptr) {
            return;
        }
        const std::vector<std::string_view> lines = splitLines(generated->text);
        for (const TextSection& section : generated->sections) {
            sections_.emplace(join(lines, static_cast<std::size_t>(section.firstLine),
                                   static_cast<std::size_t>(section.lastLine)),
                              Place{section.kind, section.index});
        }
    }

    struct Place {
        ObjectKind kind = ObjectKind::none;
        int index = 0;
    };

    [[nodiscard]] bool empty() const { return sections_.empty(); }
    // The record that a section with these lines came from. Of equal sections each is given once.
    std::optional<Place> take(const std::vector<std::string_view>& lines, std::size_t first,
                              std::size_t last) {
        const auto found = sections_.find(join(lines, first, last));
        if (found == sections_.end()) {
            return std::nullopt;
        }
        const Place place = found->second;
        sections_.erase(found);
        return place;
    }

  private:
    static std::string join(const std::vector<std::string_view>& lines, std::size_t first,
                            std::size_t last) {
        std::string text;
        for (std::size_t i = first; i <= last && i < lines.size(); ++i) {
            text.append(lines[i]);
            text.push_back('\n');
        }
        return text;
    }

    std::unordered_multimap<std::string, Place> sections_;
};

class Parser {
  public:
    Parser(std::string_view text, Document base, const ParseTarget& target,
           const GeneratedText* generated, const Traduction& traduction)
        : base_(std::move(base)),
          target_(target),
          source_(text),
          unchanged_(generated),
          rawLines_(unchanged_.empty() ? std::vector<std::string_view>() : splitLines(text)),
          context_{source_,        result_.journal,         traduction, result_.skippedLines,
                   base_.CodePage, text.size() + kPixelRoom} {
        result_.document = base_;
        if (isWhole()) {
            Document& document = result_.document;
            document.Polygone.clear();
            document.Polyline.clear();
            document.POI.clear();
            document.ListDraworder.clear();
            document.DrawOrder.clear();
            document.Commentaire.clear();
            document.MaxDimensionPOI = 0;
        }
    }

    ParsedText parse() {
        while (!source_.atEnd()) {
            if (source_.line().empty()) {
                source_.next();
            } else if (!parseSection(source_.line())) {
                context_.skip();
                source_.next();
            }
        }
        finish();
        return std::move(result_);
    }

  private:
    static constexpr std::size_t kPixelRoom = std::size_t{32} << 20U;

    [[nodiscard]] bool isWhole() const { return target_.ObjetVisualise == ObjectKind::none; }

    bool parseSection(std::string_view line) {
        // Some compilers take the identity from a section of this other name.
        if (beginsWith(line, "[_id]") || beginsWith(line, "[options]")) {
            enter();
            parseIdentity();
        } else if (beginsWith(line, "[_comments]")) {
            isWhole() ? enterAnd(&Parser::parseComments) : ignoreSection();
        } else if (beginsWith(line, "[_draworder]")) {
            isWhole() ? enterAnd(&Parser::parseDrawOrder) : ignoreSection();
        } else if (beginsWith(line, "[_polygon]")) {
            parseObject(ObjectKind::Polygone);
        } else if (beginsWith(line, "[_line]")) {
            parseObject(ObjectKind::Polyline);
        } else if (beginsWith(line, "[_point]")) {
            parseObject(ObjectKind::POI);
        } else {
            return false;
        }
        return true;
    }

    void enter() { source_.next(); }
    void enterAnd(void (Parser::*parse)()) {
        enter();
        (this->*parse)();
    }

    // The value behind a key of `keyLength` characters and one separator.
    static std::string_view valueAt(std::string_view line, std::size_t keyLength) {
        std::string_view value = trimBlanks(line.substr(std::min(keyLength + 1, line.size())));
        if (!value.empty() && (value.front() == '=' || value.front() == ':')) {
            value = trimBlanks(value.substr(1));
        }
        return value;
    }

    // A number as a field shows it. Hexadecimal ones become decimal; they are 16 bits wide and
    // kept without sign, which makes the same bytes in a file.
    std::optional<std::string> fieldText(std::string_view value) {
        if (!beginsWith(value, "0x")) {
            return std::string(value);
        }
        const auto number = parseHex(value.substr(2));
        if (!number || *number > 0xFFFF) {
            context_.tell(Fault::value);
            return std::nullopt;
        }
        return std::to_string(*number);
    }

    void setField(std::string& field, std::string_view value) {
        if (auto text = fieldText(value)) {
            field = std::move(*text);
        }
    }

    void parseIdentity() {
        Document& document = result_.document;
        runSection(context_, [&](std::string_view line) {
            if (beginsWith(line, "productcode")) {
                setField(document.ProductCode, valueAt(line, 11));
            } else if (beginsWith(line, "fid")) {
                setField(document.FID, valueAt(line, 3));
            } else if (beginsWith(line, "codepage")) {
                setCodePage(valueAt(line, 8));
            } else {
                return false;
            }
            source_.next();
            return true;
        });
        leaveSection(context_);
    }

    void setCodePage(std::string_view value) {
        const auto number = parseDecimal(value);
        if (!number) {
            context_.tell(Fault::value);
            return;
        }
        int page = *number;
        if (page <= 0 || page > 0xFFFF || !codePageExists(page)) {
            context_.tell(Fault::unknownCodePage);
            page = 1252;
        }
        result_.document.CodePage = page;
        context_.CodePage = page;
    }

    void parseComments() {
        std::string& comment = result_.document.Commentaire;
        while (!source_.atEnd() && !isEnd(source_.line())) {
            if (isSectionName(source_.line())) {
                context_.tell(Fault::unexpectedEnd);
                return;
            }
            if (!comment.empty()) {
                comment += "\r\n";
            }
            comment += source_.line();
            source_.next();
        }
        leaveSection(context_);
    }

    void parseDrawOrder() {
        runSection(context_, [&](std::string_view line) {
            parseDrawOrderLine(line);
            source_.next();
            return true;
        });
        leaveSection(context_);
    }

    // "Type=0x10f04,2": how many digits there are says where the type ends.
    void parseDrawOrderLine(std::string_view line) {
        const std::size_t comma = line.find(',');
        std::string_view digits = line.substr(0, comma);
        digits = digits.substr(std::min(digits.find('=') + 1, digits.size()));
        if (beginsWith(digits, "0x")) {
            digits.remove_prefix(2);
        }
        if (comma == std::string_view::npos || digits.empty()) {
            context_.tell(Fault::value);
            return;
        }
        std::string type(digits);
        std::string subtype = "00";
        if (digits.size() == 5) {
            subtype = type.substr(3);
            type.resize(3);
        } else if (digits.size() == 4) {
            subtype = type.substr(2);
            type = "0" + type.substr(0, 2);
        } else if (digits.size() > 3) {
            type = type.substr(digits.size() - 3);
        }
        std::string_view level = line.substr(comma + 1);
        level = trimBlanks(level.substr(0, level.find(',')));
        const auto typeNumber = parseHex(type);
        const auto subtypeNumber = parseHex(subtype);
        const auto levelNumber = parseDecimal(level);
        if (!typeNumber || !subtypeNumber || !levelNumber) {
            context_.tell(Fault::value);
        }
        if (typeNumber && subtypeNumber) {
            result_.document.ListDraworder.push_back(
                drawOrderEntry({levelNumber.value_or(0), *typeNumber, *subtypeNumber}));
        }
    }

    void ignoreSection() {
        context_.tell(Fault::ignoredSection);
        source_.next();
        runSection(context_, [&](std::string_view) {
            source_.next();
            return true;
        });
        leaveSection(context_);
    }

    void parseObject(ObjectKind kind) {
        if (!isWhole() && (replaced_ || kind != sectionKind())) {
            ignoreSection();
            return;
        }
        if (keepUnchanged(kind)) {
            return;
        }
        source_.next();
        Document& document = result_.document;
        if (kind == ObjectKind::Polygone) {
            place(document.Polygone, parsePolygon(context_));
        } else if (kind == ObjectKind::Polyline) {
            place(document.Polyline, parseLine(context_));
        } else {
            const std::size_t firstLine = source_.index() - 1;
            placePoint(firstLine, parsePoint(context_));
        }
    }

    // The kind of section that a single object is written as.
    [[nodiscard]] ObjectKind sectionKind() const {
        return target_.ObjetVisualise == ObjectKind::ExtraPOI ? ObjectKind::POI
                                                              : target_.ObjetVisualise;
    }

    template <typename Record>
    void place(std::vector<Record>& records, Record record) {
        // A section without any type is kept as type 0, as its digits would be read.
        if (record.Type.empty()) {
            record.Type = "000";
        }
        if (record.SubType.empty()) {
            record.SubType = "00";
        }
        const auto index = static_cast<std::size_t>(target_.index);
        if (isWhole() || target_.index < 0 || index >= records.size()) {
            records.push_back(std::move(record));
        } else {
            records[index] = std::move(record);
        }
        replaced_ = true;
    }

    void placePoint(std::size_t firstLine, POI poi) {
        Document& document = result_.document;
        if (target_.ObjetVisualise != ObjectKind::ExtraPOI) {
            place(document.POI, std::move(poi));
            return;
        }
        replaced_ = true;
        // A member of a group has no type of its own.
        if (typeValue(poi.Type) != 0 || typeValue(poi.SubType) != 0) {
            context_.tell(Fault::ignoredSection, firstLine + 1);
        }
        poi.Type.clear();
        poi.SubType.clear();
        const auto group = static_cast<std::size_t>(target_.index);
        const auto member = static_cast<std::size_t>(target_.member);
        if (group < document.ExtraPOI.size() && member < document.ExtraPOI[group].POI.size()) {
            quillmark::POI& old = document.ExtraPOI[group].POI[member];
            poi.Type = old.Type;
            poi.SubType = old.SubType;
            poi.Offset = old.Offset;
            old = std::move(poi);
        }
    }

    // Takes over the old record when the section stands as it was shown. Its labels only mean the
    // same in the same code page.
    bool keepUnchanged(ObjectKind kind) {
        if (unchanged_.empty() || !isWhole() || context_.CodePage != base_.CodePage) {
            return false;
        }
        std::size_t last = source_.index();
        while (last < source_.lineCount() && !isEnd(source_.lineAt(last))) {
            ++last;
        }
        const auto found = unchanged_.take(rawLines_, source_.index(), last);
        if (!found || found->kind != kind) {
            return false;
        }
        const auto index = static_cast<std::size_t>(found->index);
        Document& document = result_.document;
        if (kind == ObjectKind::Polygone) {
            document.Polygone.push_back(base_.Polygone[index]);
        } else if (kind == ObjectKind::Polyline) {
            document.Polyline.push_back(base_.Polyline[index]);
        } else {
            document.POI.push_back(base_.POI[index]);
        }
        source_.setIndex(last);
        leaveSection(context_);
        return true;
    }

    void finish() {
        Document& document = result_.document;
        if (isWhole()) {
            std::stable_partition(document.Polyline.begin(), document.Polyline.end(),
                                  [](const auto& line) { return !line.isActiveRouting(); });
            RebatirDraworder(document);
        }
        for (const quillmark::POI& poi : document.POI) {
            const std::int16_t larger = std::max(poi.Largeur, poi.Hauteur);
            document.MaxDimensionPOI = std::max(document.MaxDimensionPOI, larger);
        }
    }

    Document base_;
    ParseTarget target_;
    ParsedText result_;
    TextSource source_;
    UnchangedSections unchanged_;
    std::vector<std::string_view> rawLines_;
    ParserContext context_;
    bool replaced_ = false;  // the single object has got its section
};

}  // namespace

ParsedText ouvrirtxt(std::string_view text, Document base, const ParseTarget& target,
                     const GeneratedText* generated, const Traduction& traduction) {
    return Parser(text, std::move(base), target, generated, traduction).parse();
}

}  // namespace quillmark
