#include "text/generator.h"

#include <algorithm>

#include "text/code_pages.h"
#include "text/format.h"
#include "text/generator_parts.h"
#include "text/labels.h"
#include "text/text_writer.h"

namespace quillmark {
namespace {

std::string padded(int value, std::size_t digits) {
    std::string text = std::to_string(value);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string dateText(int day, int month, int year) {
    return padded(day, 2) + "/" + padded(month, 2) + "/" + padded(year, 4);
}

std::string timeText(int hour, int minute, int second) {
    return padded(hour, 2) + ":" + padded(minute, 2) + ":" + padded(second, 2);
}

void writeSourceComments(TextWriter& out, const SourceComments& comments, int CodePage) {
    if (!comments.folder.empty()) {
        // Names of folders may be any bytes.
        std::string folder = bytesToText(
            {reinterpret_cast<const std::uint8_t*>(comments.folder.data()), comments.folder.size()},
            kUtf8);
        std::replace_if(
            folder.begin(), folder.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
        out.raw("; ").line(folder);
    }
    out.raw("; Longueur: ").raw(comments.fileSize).line(" octets");
    out.raw(commentText("; Fichier TYP compilé ", CodePage)).line(comments.compiledAt);
    const DateTime& now = comments.now;
    out.raw(commentText("; Décompilé le ", CodePage));
    out.raw(dateText(now.day, now.month, now.year)).raw(commentText(" à ", CodePage));
    out.line(timeText(now.hour, now.minute, now.second));
}

void writeIdentity(TextWriter& out, const Document& document) {
    out.line(format::kIdentity);
    out.raw("ProductCode=").line(document.ProductCode);
    out.raw("FID=").line(document.FID);
    out.raw("CodePage=").number(document.CodePage).end();
    out.line(format::kEnd).end();
}

void writeComments(TextWriter& out, const Document& document) {
    out.line(format::kCommentsBanner).line(format::kComments);
    if (!document.Commentaire.empty()) {
        std::string comment = document.Commentaire;
        std::erase(comment, '\0');
        out.line(comment);
    }
    out.line(format::kEnd).end();
}

void writeDrawOrder(TextWriter& out, const Document& document) {
    out.line(format::kDrawOrderBanner).line(format::kDrawOrder);
    for (const std::string& entry : document.ListDraworder) {
        // "Type=0x10f,SubType=0x04,2" is written "Type=0x10f04,2".
        const std::string_view view = entry;
        if (view.size() >= 24 && view.substr(11, 7) == "SubType") {
            out.raw(view.substr(0, 10)).raw(view.substr(21, 2)).character(',');
            out.line(view.substr(24));
        } else {
            out.line(view);
        }
    }
    out.line(format::kEnd).end();
}

// Lines of text are trimmed, and some characters within a label mean something there.
bool textChanges(ByteView label) {
    const std::string_view text(reinterpret_cast<const char*>(label.data()), label.size());
    return text.find_first_of(";=\t\r\n") != std::string_view::npos ||
           text.find("0x") != std::string_view::npos || text.find("0X") != std::string_view::npos ||
           (!text.empty() && (text.back() == ' ' || text.back() == ','));
}

// The names that are written and read for an activity don't agree.
bool changesActivity(const Polyline& line) {
    const auto same = [&line](const format::Activity& activity) {
        return activity.first == line.ActiveRouting[0] && activity.second == line.ActiveRouting[1];
    };
    const auto* written =
        std::find_if(format::kWrittenActivities.begin(), format::kWrittenActivities.end(), same);
    const auto* read =
        std::find_if(format::kReadActivities.begin(), format::kReadActivities.end(), same);
    const bool known = written != format::kWrittenActivities.end();
    return line.isActiveRouting() &&
           (known ? read == format::kReadActivities.end() || read->name != written->name
                  : !same(format::kOtherActivity));
}

int changedLabels(const Document& document) {
    int count = 0;
    const auto countIn = [&count](const auto& records) {
        for (const auto& record : records) {
            for (const RawLabel& label : splitStrings(record.Strings)) {
                count += textChanges(label.text) ? 1 : 0;
            }
        }
    };
    countIn(document.Polygone);
    countIn(document.Polyline);
    countIn(document.POI);
    return count;
}

// Collects where each section stands while sections are appended.
class SectionRecorder {
  public:
    SectionRecorder(GeneratedText& result) : result_(result) { countLines(); }

    template <typename Record, typename Append>
    void add(ObjectKind kind, const std::vector<Record>& records, Append append) {
        for (std::size_t i = 0; i < records.size(); ++i) {
            addOne(kind, records[i], i, append);
        }
    }

  private:
    template <typename Record, typename Append>
    void addOne(ObjectKind kind, const Record& record, std::size_t index, Append append) {
        const int first = countLines();
        const std::size_t entries = result_.journal.entries().size();
        append(record, result_.text, result_.journal);
        if (result_.journal.entries().size() > entries) {
            const int identity = identityValue(record.Type, record.SubType);
            result_.journal.setObject(entries, kind, static_cast<std::uint16_t>(identity));
        }
        result_.sections.push_back({kind, static_cast<int>(index), first, countLines() - 1});
        result_.text += "\r\n\r\n";
    }

    // Lines of the text so far; only what was appended since the last call is looked at.
    int countLines() {
        const auto begin = result_.text.begin() + static_cast<std::ptrdiff_t>(counted_);
        lines_ += static_cast<int>(std::count(begin, result_.text.end(), '\n'));
        counted_ = result_.text.size();
        return lines_;
    }

    GeneratedText& result_;
    std::size_t counted_ = 0;
    int lines_ = 0;
};

}  // namespace

GeneratedText genererTexte(const Document& document, const GeneratorContext& context,
                           const SourceComments* comments) {
    GeneratedText result;
    TextWriter out(result.text);
    if (comments != nullptr) {
        writeSourceComments(out, *comments, document.CodePage);
    }
    writeIdentity(out, document);
    writeComments(out, document);
    writeDrawOrder(out, document);
    result.sections.reserve(document.Polygone.size() + document.Polyline.size() +
                            document.POI.size());

    out.line(format::kPolygonBanner);
    SectionRecorder recorder(result);
    recorder.add(ObjectKind::Polygone, document.Polygone,
                 [&](const auto& record, std::string& text, Journal& journal) {
                     AffichePolygone(record, context, document.CodePage, text, journal);
                 });
    out.line(format::kLineBanner);
    recorder.add(ObjectKind::Polyline, document.Polyline,
                 [&](const auto& record, std::string& text, Journal& journal) {
                     AffichePolyline(record, context, document.CodePage, text, journal);
                 });
    out.line(format::kPointBanner);
    recorder.add(ObjectKind::POI, document.POI,
                 [&](const auto& record, std::string& text, Journal& journal) {
                     AffichePOI(record, context, document.CodePage, text, journal);
                 });
    return result;
}

std::string creationDateText(const EnteteTYP& header) {
    return dateText(header.day, header.month, header.year) + "    " +
           timeText(header.hour, header.minute, header.second) + "     ";
}

TextLosses textLosses(const Document& document) {
    TextLosses losses;
    losses.extraPoi = !document.ExtraPOI.empty();
    losses.specialLabels = !document.LabelsStrings.empty() || !document.LabelsTableA.empty() ||
                           !document.LabelsTableB.empty();
    losses.rawBlock = !document.BlocBrut.empty();
    losses.betweenSections = !document.EntreSections.empty();
    losses.labels = changedLabels(document);
    losses.activities = static_cast<int>(
        std::count_if(document.Polyline.begin(), document.Polyline.end(), changesActivity));
    const auto losesSubtype = [](const auto& object) {
        return !object.Type.empty() && object.Type[0] == '0' && object.SubType != "00";
    };
    losses.subtypes = static_cast<int>(
        std::count_if(document.Polygone.begin(), document.Polygone.end(), losesSubtype) +
        std::count_if(document.Polyline.begin(), document.Polyline.end(), losesSubtype));
    return losses;
}

}  // namespace quillmark
