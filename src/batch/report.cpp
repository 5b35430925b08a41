#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>

#include "batch/commands.h"
#include "batch/wording.h"
#include "typ/writer.h"

namespace quillmark {
namespace {

// FNV-1a: enough to tell changed records from unchanged ones, not made against forgery.
class Checksum {
  public:
    void add(ByteView file, std::uint32_t offset, std::uint32_t size) {
        for (const std::uint8_t byte : file.subspan(size == 0 ? 0 : offset, size)) {
            value_ = (value_ ^ byte) * 16777619U;
        }
    }
    [[nodiscard]] std::string text() const { return hexText(value_, 8); }

  private:
    std::uint32_t value_ = 2166136261U;
};

// Checksums of each kind of object as a save writes them, wherever they lie in the file.
struct ObjectChecksums {
    std::string polygons, lines, points, extraPoi, drawOrder;
};

ObjectChecksums checksums(Document document) {
    // What isn't set yet must not stand in the way, and everything must be written.
    document.FID = document.ProductCode = "1";
    document.TailleEntete = std::max(document.TailleEntete, kHeaderSizes.back());
    ObjectChecksums sums;
    try {
        const WrittenTyp written = CreerTYP(std::move(document), DateTime{});
        const ByteView file = written.file;
        const auto sum = [&](const auto&... places) {
            Checksum checksum;
            (checksum.add(file, places.offset, places.size), ...);
            return checksum.text();
        };
        const EnteteTYP& base = written.document.EnteteTYP;
        const EnteteExtraPOI& extra = written.document.EnteteExtraPOI;
        sums.polygons = sum(base.polygonIndex, base.polygonData);
        sums.lines =
            sum(base.polylineIndex, base.polylineData, written.document.EnteteActiveRouting.index);
        sums.points = sum(base.poiIndex, base.poiData);
        sums.extraPoi = sum(extra.index, extra.data);
        sums.drawOrder = sum(base.drawOrder);
    } catch (const Failure&) {
        // Objects that no file can hold have no checksum.
    }
    return sums;
}

std::string isoDate(const EnteteTYP& header) {
    const auto digits = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    return std::to_string(header.year) + '-' + digits(header.month) + '-' + digits(header.day) +
           ' ' + digits(header.hour) + ':' + digits(header.minute) + ':' + digits(header.second);
}

class Description {
  public:
    explicit Description(std::ostream& out) : out_(out) {}
    void line(std::string_view label, std::string_view value) {
        out_ << "  " << label << ": " << (value.empty() ? wording::kNone : value) << '\n';
    }
    void count(std::string_view label, std::size_t count, const std::string& checksum = {}) {
        out_ << "  " << label << ": " << count << (count == 0 || checksum.empty() ? "" : " ")
             << (count == 0 ? "" : checksum) << '\n';
    }

  private:
    std::ostream& out_;
};

void describe(const OpenedFile& opened, Description& to) {
    const Document& document = opened.document;
    const EnteteTYP& header = document.EnteteTYP;
    to.line(wording::kKind, opened.OuvertEnTexte ? wording::kKindText : wording::kKindTyp);
    to.count(wording::kSize, opened.fileSize);
    if (!opened.OuvertEnTexte) {
        to.count(wording::kHeaderSize, header.headerSize);
        to.count(wording::kVersion, header.version);
        to.line(wording::kDate, isoDate(header));
    } else {
        to.line(wording::kEncoding,
                opened.utf8 ? wording::kEncodingUtf8 : wording::kEncodingCodePage);
    }
    to.line(wording::kCodePage, std::to_string(document.CodePage));
    to.line(wording::kFid, document.FID);
    to.line(wording::kProduct, document.ProductCode);

    const ObjectChecksums sums = checksums(document);
    std::size_t members = 0;
    for (const ExtraPOI& group : document.ExtraPOI) {
        members += group.POI.size();
    }
    to.count(wording::kPolygons, document.Polygone.size(), sums.polygons);
    to.count(wording::kLines, document.Polyline.size(), sums.lines);
    to.count(wording::kActiveRouting, static_cast<std::size_t>(document.NbPolylinesAR()));
    to.count(wording::kPoints, document.POI.size(), sums.points);
    to.count(wording::kExtraPoiGroups, document.ExtraPOI.size(), sums.extraPoi);
    to.count(wording::kExtraPoiMembers, members);
    to.count(wording::kDrawOrder, document.ListDraworder.size(), sums.drawOrder);
    to.count(wording::kLabelBytes, document.LabelsStrings.size());
    to.count(wording::kLabelEntriesA, static_cast<std::size_t>(document.NbLabelsA()));
    to.count(wording::kLabelEntriesB, static_cast<std::size_t>(document.NbLabelsB()));
    to.count(wording::kBlockBytes, document.BlocBrut.size());
    to.count(wording::kBetweenBytes, document.EntreSections.size());
}

}  // namespace

ExitStatus check(const BatchOptions& options, Console& console) {
    ExitStatus worst = ExitStatus::fine;
    for (const std::string& name : options.inputs) {
        const auto opened = console.open(name, console.out());
        ExitStatus status = ExitStatus::errors;
        if (opened) {
            Console::tell(console.out(), name, opened->journal);
            status = opened->journal.ErreurFlag()          ? ExitStatus::errors
                     : opened->journal.AvertissementFlag() ? ExitStatus::warnings
                                                           : ExitStatus::fine;
        }
        worst = std::max(worst, status);
    }
    return worst;
}

ExitStatus info(const BatchOptions& options, Console& console) {
    ExitStatus worst = ExitStatus::fine;
    for (const std::string& name : options.inputs) {
        const auto opened = console.open(name);
        if (!opened) {
            worst = ExitStatus::errors;
            continue;
        }
        console.out() << name << '\n';
        Description description(console.out());
        describe(*opened, description);
        if (opened->journal.ErreurFlag()) {
            console.tell(name, opened->journal);
            worst = ExitStatus::errors;
        }
    }
    return worst;
}

}  // namespace quillmark
