#include "typ/writer.h"

#include <algorithm>
#include <limits>

#include "core/ascii.h"
#include "typ/draw_order_section.h"
#include "typ/extra_poi_section.h"
#include "typ/header.h"
#include "typ/label_sections.h"
#include "typ/poi_records.h"
#include "typ/polygon_records.h"
#include "typ/polyline_records.h"
#include "typ/record_order.h"

namespace quillmark {
namespace {

constexpr std::size_t kMaxFileSize = std::numeric_limits<std::int32_t>::max();

std::uint16_t headerNumber(const std::string& text) {
    const auto value = wholeNumber<std::uint16_t>(text);
    if (!value) {
        throw Failure(ErrorNumber::conversion, "nombre de 0 à 65535 attendu : " + text);
    }
    return *value;
}

void checkCounts(const Document& document) {
    const std::size_t most = std::max({document.Polygone.size(), document.Polyline.size(),
                                       document.POI.size(), document.ExtraPOI.size()});
    if (most > kMaxObjects) {
        throw Failure(ErrorNumber::overflow,
                      "plus de " + std::to_string(kMaxObjects) + " objets d'une sorte");
    }
}

// Takes out what the header has no place for.
void dropUnheld(Document& document, std::size_t understood) {
    if (understood < kActiveRoutingHeaderEnd) {
        std::erase_if(document.Polyline, [](const auto& line) { return line.isActiveRouting(); });
        document.EnteteActiveRouting = {};
    }
    if (understood < kBlocHeaderEnd) {
        document.EnteteBloc = {};
        document.BlocBrut.clear();
    }
    if (understood < kLabelsHeaderEnd) {
        document.EnteteLabels.strings = {};
        document.EnteteLabels.tableA = {};
        document.EnteteLabels.tableB = {};
        document.LabelsStrings.clear();
        document.LabelsTableA.clear();
        document.LabelsTableB.clear();
    }
    if (understood < kExtraPoiHeaderEnd) {
        // A header that holds only a part of their places must not lead to groups that are gone.
        if (!document.ExtraPOI.empty()) {
            std::fill(document.EnteteInconnu.begin(), document.EnteteInconnu.end(),
                      std::uint8_t{0});
        }
        document.ExtraPOI.clear();
        document.EnteteExtraPOI.index = {};
        document.EnteteExtraPOI.data = {};
    }
}

template <typename Record>
std::vector<int> sortByIdentity(std::vector<Record>& records) {
    return sortByKey(records, [](const Record& record) {
        return std::int64_t{identityValue(record.Type, record.SubType)};
    });
}

// Within one type Active Routing lines come first, by activity, then ordinary ones.
std::vector<int> sortForFile(std::vector<Polyline>& polylines) {
    return sortByKey(polylines, [](const Polyline& line) {
        const std::int64_t identity = identityValue(line.Type, line.SubType) & 0xFFFF;
        const int activity = line.ActiveRouting[0] << 8 | line.ActiveRouting[1];
        return identity << 32 | (activity == 0 ? 0x10000 : activity);
    });
}

template <typename Record>
std::size_t totalSize(const std::vector<Record>& records, std::size_t indexEntrySize) {
    std::size_t total = 0;
    for (const Record& record : records) {
        total += recordSize(record) + indexEntrySize;
    }
    return total;
}

// An estimate that spares the writer from growing; Extra POI and draw order are small.
std::size_t expectedSize(const Document& document) {
    return writtenHeaderSize(document.TailleEntete) + document.EntreSections.size() +
           totalSize(document.Polygone, 5) + totalSize(document.Polyline, 7) +
           totalSize(document.POI, 5) + document.LabelsStrings.size() +
           document.LabelsTableA.size() + document.LabelsTableB.size() + document.BlocBrut.size() +
           document.ListDraworder.size() * 10;
}

void writeSections(ByteWriter& writer, Document& document, std::size_t understood) {
    EnteteTYP& base = document.EnteteTYP;
    writer.bytes(document.EntreSections);
    writePolygons(writer, document.Polygone, base.polygonData, base.polygonIndex);
    const PolylinePlaces lines = writePolylines(writer, document.Polyline);
    base.polylineData = lines.data;
    base.polylineIndex = lines.index;
    document.EnteteActiveRouting.index = lines.activeRoutingIndex;
    writePois(writer, document.POI, base.poiData, base.poiIndex);
    document.EnteteExtraPOI = writeExtraPoi(writer, document.ExtraPOI, document.EnteteExtraPOI);
    writeDrawOrder(writer, document);
    if (understood >= kLabelsHeaderEnd) {
        writeLabels(writer, document);
    }
    if (understood >= kBlocHeaderEnd) {
        writeBloc(writer, document);
    }
}

void fillHeader(Document& document, const DateTime& now) {
    EnteteTYP& header = document.EnteteTYP;
    header.headerSize = static_cast<std::uint16_t>(writtenHeaderSize(document.TailleEntete));
    header.magic = kMagic;
    header.version = 1;
    header.year = static_cast<std::uint16_t>(now.year);
    header.month = static_cast<std::uint8_t>(now.month);
    header.day = static_cast<std::uint8_t>(now.day);
    header.hour = static_cast<std::uint8_t>(now.hour);
    header.minute = static_cast<std::uint8_t>(now.minute);
    header.second = static_cast<std::uint8_t>(now.second);
    header.codePage = static_cast<std::uint16_t>(document.CodePage);
    header.FID = headerNumber(document.FID);
    header.ProductCode = headerNumber(document.ProductCode);
}

std::size_t indexOf(ObjectKind kind) {
    return static_cast<std::size_t>(kind);
}

// Old indexes of the lines that stay; empty when all do.
std::vector<int> heldLines(const Document& document, std::size_t understood) {
    std::vector<int> held;
    if (understood >= kActiveRoutingHeaderEnd || document.NbPolylinesAR() == 0) {
        return held;
    }
    for (std::size_t i = 0; i < document.Polyline.size(); ++i) {
        if (!document.Polyline[i].isActiveRouting()) {
            held.push_back(static_cast<int>(i));
        }
    }
    return held;
}

// Old indexes by place after two changes of order; an empty one changed nothing.
std::vector<int> chained(const std::vector<int>& first, std::vector<int> second) {
    if (first.empty()) {
        return second;
    }
    if (second.empty()) {
        return first;
    }
    for (int& index : second) {
        index = first[static_cast<std::size_t>(index)];
    }
    return second;
}

// New indexes by old index, -1 for what is gone; `oldCount` is needed where something is.
std::vector<int> inverse(const std::vector<int>& oldIndex, std::size_t oldCount = 0) {
    std::vector<int> newIndex(oldIndex.empty() ? 0 : std::max(oldCount, oldIndex.size()), -1);
    for (std::size_t place = 0; place < oldIndex.size(); ++place) {
        newIndex[static_cast<std::size_t>(oldIndex[place])] = static_cast<int>(place);
    }
    return newIndex;
}

}  // namespace

WrittenTyp CreerTYP(Document document, const DateTime& now) {
    const std::size_t headerSize = writtenHeaderSize(document.TailleEntete);
    const std::size_t understood = understoodHeaderSize(headerSize);
    document.TailleEntete = static_cast<std::int32_t>(headerSize);
    fillHeader(document, now);
    const std::size_t lineCount = document.Polyline.size();
    const std::vector<int> kept = heldLines(document, understood);
    dropUnheld(document, understood);
    checkCounts(document);
    Reordering order;
    order.newIndex[indexOf(ObjectKind::Polygone)] = inverse(sortByIdentity(document.Polygone));
    std::vector<int> lines = chained(kept, sortForFile(document.Polyline));
    order.newIndex[indexOf(ObjectKind::POI)] = inverse(sortByIdentity(document.POI));
    order.newIndex[indexOf(ObjectKind::ExtraPOI)] = inverse(sortGroups(document.ExtraPOI));

    ByteWriter writer;
    writer.reserve(expectedSize(document));
    writer.zeros(headerSize);
    writeSections(writer, document, understood);
    if (writer.position() > kMaxFileSize) {
        throw Failure(ErrorNumber::overflow, "fichier de plus de 2 Go");
    }
    lines = chained(lines, sortLikeReader(document.Polyline));
    order.newIndex[indexOf(ObjectKind::Polyline)] = inverse(lines, lineCount);
    document.EnteteInconnu.resize(std::max(document.EnteteInconnu.size(), headerSize - understood));
    writer.overwrite(0, encodeHeader(document));
    return {writer.release(), std::move(document), std::move(order)};
}

int smallestHeader(const Document& document) {
    const auto& labels = document.EnteteLabels;
    const auto isZero = [](const auto& bytes) {
        return std::all_of(bytes.begin(), bytes.end(), [](auto byte) { return byte == 0; });
    };
    if (!isZero(document.EnteteInconnu)) {
        return document.TailleEntete;
    }
    if (document.NbPolylinesAR() > 0) {
        return kActiveRoutingHeaderEnd;
    }
    if (!document.BlocBrut.empty()) {
        return kBlocHeaderEnd;
    }
    if (!document.LabelsStrings.empty() || !document.LabelsTableA.empty() ||
        !document.LabelsTableB.empty() || labels.entrySizeA != 0 || labels.entrySizeB != 0 ||
        !isZero(labels.unknown1) || !isZero(labels.unknown2) || !isZero(labels.unknown3)) {
        return kLabelsHeaderEnd;
    }
    if (!document.ExtraPOI.empty() || document.EnteteExtraPOI.flags != 0) {
        return kExtraPoiHeaderEnd;
    }
    return kBaseHeaderEnd;
}

}  // namespace quillmark
