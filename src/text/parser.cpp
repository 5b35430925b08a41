#include "text/parser.h"

#include <algorithm>
#include <utility>

#include "core/draw_order.h"
#include "text/code_pages.h"
#include "text/format.h"
#include "text/parser_sections.h"
#include "text/recode.h"
#include "text/unchanged_sections.h"
#include "text/view_text.h"

namespace quillmark {
namespace {

class Parser {
  public:
    Parser(std::string_view text, Document base, const ParseTarget& target,
           const GeneratedText* generated, const Traduction& traduction)
        : base_(std::move(base)),
          target_(target),
          source_(text),
          unchanged_(generated, text),
          generated_(generated != nullptr),
          context_{source_,        result_.journal,         traduction, result_.skippedLines,
                   base_.CodePage, text.size() + kPixelRoom} {
        context_.hadUnshown = unchanged_.hadUnshown();
        if (generated_) {
            takeCodePage();
        }
        result_.document = base_;
        if (target.codePage > 0) {
            result_.document.CodePage = target.codePage;
            context_.CodePage = target.codePage;
        }
        if (isWhole()) {
            Document& document = result_.document;
            document.Polygone.clear();
            document.Polyline.clear();
            document.POI.clear();
            document.ListDraworder.clear();
            document.DrawOrder.clear();
            document.Commentaire.clear();
        }
        if (generated != nullptr && isWhole()) {
            shownComments_ = commentsIn(generated->text);
        }
    }

    ParsedText parse() {
        while (!source_.atEnd()) {
            if (source_.line().empty()) {
                source_.next();
            } else if (parseSection(source_.line())) {
                stray_ = false;
            } else {
                // Somebody typed this a moment ago, and it would be gone with the next text.
                if (generated_ && !std::exchange(stray_, true)) {
                    context_.tell(Fault::stray);
                }
                context_.skip();
                source_.next();
            }
        }
        finish();
        return std::move(result_);
    }

  private:
    static constexpr int kMaxSubType = 0x1F;
    static constexpr std::size_t kPixelRoom = std::size_t{32} << 20U;

    [[nodiscard]] bool isWhole() const { return target_.ObjetVisualise == ObjectKind::none; }

    bool parseSection(std::string_view line) {
        // Some compilers take the identity from a section of this other name.
        if (isIdentity(line)) {
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
                if (target_.codePage <= 0) {
                    setCodePage(valueAt(line, 8));
                }
            } else {
                return false;
            }
            source_.next();
            return true;
        });
        leaveSection(context_);
    }

    // An edited text's page counts for all of the document, wherever its line stands, and labels
    // that the text doesn't hold follow it; one that doesn't exist leaves all as it is.
    void takeCodePage() {
        if (!isWhole()) {
            target_.codePage = base_.CodePage;
            return;
        }
        for (bool inside = false; !source_.atEnd(); source_.next()) {
            const std::string_view line = source_.line();
            if (beginsWith(line, "[")) {
                inside = isIdentity(line);
            } else if (inside && beginsWith(line, "codepage")) {
                const int page = leadingDecimal(valueAt(line, 8)).value_or(0);
                if (isCodePage(page)) {
                    for (const LabelLoss& loss : recodeLabels(base_, page)) {
                        tellLoss(loss);
                    }
                    context_.CodePage = page;
                }
                break;
            }
        }
        source_.setIndex(0);
    }

    void tellLoss(const LabelLoss& loss) {
        const std::size_t entry = result_.journal.entries().size();
        context_.tell(loss.cut ? Fault::labelsTooLong : Fault::lostCharacters);
        const auto index = static_cast<std::size_t>(loss.index);
        const auto name = [&](const auto& record) {
            const int identity = identityValue(record.Type, record.SubType);
            result_.journal.setObject(entry, loss.kind, static_cast<std::uint16_t>(identity));
        };
        if (loss.kind == ObjectKind::Polygone) {
            name(base_.Polygone[index]);
        } else if (loss.kind == ObjectKind::Polyline) {
            name(base_.Polyline[index]);
        } else if (loss.kind == ObjectKind::POI) {
            name(base_.POI[index]);
        }
    }

    static bool isIdentity(std::string_view line) {
        return beginsWith(line, "[_id]") || beginsWith(line, "[options]");
    }
    static bool isCodePage(int page) { return page > 0 && page <= 0xFFFF && codePageExists(page); }

    void setCodePage(std::string_view value) {
        const auto number = leadingDecimal(value);
        if (!number || (generated_ && *number != base_.CodePage)) {
            context_.tell(Fault::value);
            return;
        }
        int page = *number;
        if (!isCodePage(page)) {
            context_.tell(Fault::unknownCodePage);
            page = 1252;
        }
        result_.document.CodePage = page;
        context_.CodePage = page;
    }

    void parseComments() {
        takeComments(source_, result_.document.Commentaire);
        if (!source_.atEnd() && !isEnd(source_.line())) {
            context_.tell(Fault::unexpectedEnd);
            return;
        }
        leaveSection(context_);
    }

    // Up to the line that ends the section, or that begins another one.
    static void takeComments(TextSource& source, std::string& comment) {
        while (!source.atEnd() && !isEnd(source.line()) && !beginsSection(source)) {
            if (!comment.empty()) {
                comment += "\r\n";
            }
            comment += source.line();
            source.next();
        }
    }

    // What the view's own text says: taking it up again must change nothing, though text doesn't
    // hold every comment as it is.
    static std::string commentsIn(const std::string& generated) {
        const std::string shown = viewableText(generated);
        TextSource source(shown);
        while (!source.atEnd() && !beginsWith(source.line(), "[_comments]")) {
            if (beginsWith(source.line(), "[_polygon]") || beginsWith(source.line(), "[_line]") ||
                beginsWith(source.line(), "[_point]")) {
                return {};
            }
            source.next();
        }
        std::string comment;
        if (!source.atEnd()) {
            source.next();
            takeComments(source, comment);
        }
        return comment;
    }

    // Free text may look like a section: one has nothing behind its name and begins with a key.
    [[nodiscard]] static bool beginsSection(const TextSource& source) {
        if (!isSectionName(source.line()) || source.line().back() != ']') {
            return false;
        }
        std::size_t next = source.index() + 1;
        while (next < source.lineCount() && source.lineAt(next).empty()) {
            ++next;
        }
        constexpr std::array<std::string_view, 4> keys{"type", "productcode", "fid", "codepage"};
        return next < source.lineCount() &&
               std::any_of(keys.begin(), keys.end(), [&](std::string_view key) {
                   return beginsWith(source.lineAt(next), key);
               });
    }

    void parseDrawOrder() {
        runSection(context_, [&](std::string_view line) {
            parseDrawOrderLine(line);
            source_.next();
            return true;
        });
        leaveSection(context_);
    }

    // "Type=0x10f04,2": how many digits there are says where the type ends. The long form that
    // the list shows, "Type=0x10f,SubType=0x04,2", is taken too.
    void parseDrawOrderLine(std::string_view line) {
        const std::size_t comma = std::min(line.find(','), line.size());
        std::string type(draworderDigits(line.substr(0, comma)));
        std::string_view rest = line.substr(std::min(comma + 1, line.size()));
        std::string subtype = "00";
        if (beginsWith(trimBlanks(rest), "subtype")) {
            const std::size_t second = std::min(rest.find(','), rest.size());
            subtype = draworderDigits(rest.substr(0, second));
            rest = rest.substr(std::min(second + 1, rest.size()));
        } else if (type.size() == 5) {
            subtype = type.substr(3);
            type.resize(3);
        } else if (type.size() == 4) {
            subtype = type.substr(2);
            type = "0" + type.substr(0, 2);
        } else if (type.size() > 3) {
            type = type.substr(type.size() - 3);
        }
        const auto typeNumber = parseHex(type);
        const auto subtypeNumber = parseHex(subtype);
        const auto level = leadingDecimal(trimBlanks(rest));
        const bool valid =
            comma < line.size() && typeNumber && subtypeNumber && *subtypeNumber <= kMaxSubType;
        if (!valid || !level) {
            context_.tell(Fault::value);
        }
        if (valid) {
            result_.document.ListDraworder.push_back(
                drawOrderEntry({level.value_or(0), *typeNumber, *subtypeNumber}));
        }
    }

    // What stands behind "=" and an optional "0x".
    static std::string_view draworderDigits(std::string_view part) {
        std::string_view digits =
            trimBlanks(part.substr(std::min(part.find('=') + 1, part.size())));
        if (beginsWith(digits, "0x")) {
            digits.remove_prefix(2);
        }
        return trimBlanks(digits);
    }

    // A section that there is no room for any more; told once for each kind.
    void passOver(ObjectKind kind) {
        bool& told = tooManyTold_[static_cast<std::size_t>(kind)];
        if (!told) {
            context_.tell(Fault::tooManyObjects);
            told = true;
        }
        skipSection();
    }

    void ignoreSection() {
        context_.tell(Fault::ignoredSection);
        skipSection();
    }

    void skipSection() {
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
        Document& document = result_.document;
        const std::size_t count = kind == ObjectKind::Polygone   ? document.Polygone.size()
                                  : kind == ObjectKind::Polyline ? document.Polyline.size()
                                                                 : document.POI.size();
        if ((isWhole() || target_.index < 0) && count >= kMaxObjects) {
            passOver(kind);
            return;
        }
        if (keepUnchanged(kind)) {
            return;
        }
        source_.next();
        firstEntry_ = result_.journal.entries().size();
        if (kind == ObjectKind::Polygone) {
            place(kind, document.Polygone, parsePolygon(context_));
        } else if (kind == ObjectKind::Polyline) {
            place(kind, document.Polyline, parseLine(context_));
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
    void place(ObjectKind kind, std::vector<Record>& records, Record record) {
        // A section without any type is kept as type 0, as its digits would be read.
        if (record.Type.empty()) {
            record.Type = "000";
        }
        if (record.SubType.empty()) {
            record.SubType = "00";
        }
        result_.journal.setObject(
            firstEntry_, kind,
            static_cast<std::uint16_t>(identityValue(record.Type, record.SubType)));
        auto index = static_cast<std::size_t>(target_.index);
        if (isWhole() || target_.index < 0 || index >= records.size()) {
            index = records.size();
            records.push_back(std::move(record));
        } else {
            records[index] = std::move(record);
        }
        result_.index = isWhole() ? -1 : static_cast<int>(index);
        replaced_ = true;
    }

    void placePoint(std::size_t firstLine, POI poi) {
        Document& document = result_.document;
        if (target_.ObjetVisualise != ObjectKind::ExtraPOI) {
            place(ObjectKind::POI, document.POI, std::move(poi));
            return;
        }
        const auto group = static_cast<std::size_t>(target_.index);
        const auto member = static_cast<std::size_t>(target_.member);
        if (group >= document.ExtraPOI.size() || member >= document.ExtraPOI[group].POI.size()) {
            context_.tell(Fault::ignoredSection, firstLine);  // of a group without members
            return;
        }
        replaced_ = true;
        // A member of a group has no type of its own.
        if (typeValue(poi.Type) != 0 || typeValue(poi.SubType) != 0) {
            std::size_t line = firstLine;
            while (line < source_.index() && !beginsWith(source_.lineAt(line), "type") &&
                   !beginsWith(source_.lineAt(line), "subtype")) {
                ++line;
            }
            context_.tell(Fault::ignoredType, line);
        }
        poi.Type.clear();
        poi.SubType.clear();
        quillmark::POI& old = document.ExtraPOI[group].POI[member];
        poi.Type = old.Type;
        poi.SubType = old.SubType;
        poi.Offset = old.Offset;
        old = std::move(poi);
    }

    // Takes over the old record when the section stands as it was shown.
    bool keepUnchanged(ObjectKind kind) {
        const UnchangedSections::Match* match = unchanged_.at(source_.index());
        const ObjectKind shown = isWhole() ? kind : target_.ObjetVisualise;
        if (match == nullptr || match->kind != shown) {
            return false;
        }
        if (isWhole()) {
            const auto index = static_cast<std::size_t>(match->index);
            Document& document = result_.document;
            if (kind == ObjectKind::Polygone) {
                document.Polygone.push_back(base_.Polygone.at(index));
            } else if (kind == ObjectKind::Polyline) {
                document.Polyline.push_back(base_.Polyline.at(index));
            } else {
                document.POI.push_back(base_.POI.at(index));
            }
        }
        replaced_ = true;
        source_.setIndex(match->lastLine);
        leaveSection(context_);
        return true;
    }

    // Ordinary lines stand in front; the single object is found again behind it.
    void partitionLines(std::vector<Polyline>& lines) {
        const auto ordinary = [](const Polyline& line) { return !line.isActiveRouting(); };
        if (result_.index >= 0) {
            const auto place = lines.begin() + result_.index;
            const bool front = ordinary(*place);
            const auto before = std::count_if(lines.begin(), place, ordinary);
            result_.index = static_cast<int>(front ? before
                                                   : std::count_if(place, lines.end(), ordinary) +
                                                         (place - lines.begin()));
        }
        std::stable_partition(lines.begin(), lines.end(), ordinary);
    }

    void finish() {
        Document& document = result_.document;
        if (document.Commentaire == shownComments_) {
            document.Commentaire = base_.Commentaire;
        }
        if (generated_ && !isWhole() && !replaced_) {
            context_.tell(Fault::noSection, 0);
        }
        if (isWhole() || target_.ObjetVisualise == ObjectKind::Polyline) {
            partitionLines(document.Polyline);
        }
        if (isWhole()) {
            RebatirDraworder(document);
        }
        document.MaxDimensionPOI = 0;
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
    bool generated_ = false;  // the text is one that was shown, and edited since
    ParserContext context_;
    std::array<bool, 5> tooManyTold_{};  // by ObjectKind
    bool stray_ = false;                 // the line before belongs to no section
    std::string shownComments_;
    bool replaced_ = false;       // the single object has got its section
    std::size_t firstEntry_ = 0;  // of the journal about the section at hand
};

}  // namespace

ParsedText ouvrirtxt(std::string_view text, Document base, const ParseTarget& target,
                     const GeneratedText* generated, const Traduction& traduction) {
    return Parser(text, std::move(base), target, generated, traduction).parse();
}

}  // namespace quillmark
