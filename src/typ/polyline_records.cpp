#include "typ/polyline_records.h"

#include "typ/record_order.h"
#include "typ/strings_block.h"

namespace quillmark {
namespace {

constexpr std::uint8_t kOneWidth = colour_bits::kDayTransparent;  // without a border
using line_bits::kExtendedLabels;
using line_bits::kStrings;
constexpr std::size_t kRowSize = 4;

std::size_t bitmapSize(std::uint8_t Entete) {
    const std::size_t rows = Entete >> 3U;
    return rows > 0 ? rows * kRowSize : (Entete & kOneWidth) != 0 ? 1 : 2;
}

std::int64_t orderKey(const std::array<std::uint8_t, 2>& activity, int identity) {
    return (std::int64_t{activity[0]} << 8 | activity[1]) << 32 | identity;
}

std::int64_t signed16(unsigned value) {
    return static_cast<std::int16_t>(value);
}

void readRecord(PartReader& parts, Polyline& line) {
    std::array<std::uint8_t, 2> head{};
    parts.fill(head);
    line.Entete = head[0];
    line.Entete2 = head[1];
    const int colours = NombreCouleurs(line.Entete);
    if (colours < 0) {
        parts.fail(Failure(ErrorNumber::index,
                           "nombre de couleurs inconnu, en-tête " + std::to_string(line.Entete)));
    } else {
        line.Couleurs = parts.bytes(static_cast<std::size_t>(colours) * 3);
    }
    line.Bitmap = parts.bytes(bitmapSize(line.Entete));
    if ((line.Entete2 & kStrings) != 0) {
        line.Strings = readStrings(parts);
    }
    if ((line.Entete2 & kExtendedLabels) != 0) {
        line.ExtendedLabels = readExtendedLabels(parts);
    }
}

void writeRecord(ByteWriter& writer, const Polyline& line) {
    writer.u8(line.Entete);
    writer.u8(line.Entete2);
    writer.bytes(line.Couleurs);
    writer.bytes(line.Bitmap);
    if ((line.Entete2 & kStrings) != 0) {
        writer.bytes(line.Strings);
    }
    if ((line.Entete2 & kExtendedLabels) != 0) {
        writer.bytes(line.ExtendedLabels);
    }
}

}  // namespace

std::size_t recordSize(const Polyline& line) {
    return 2 + line.Couleurs.size() + line.Bitmap.size() +
           ((line.Entete2 & kStrings) != 0 ? line.Strings.size() : 0) +
           ((line.Entete2 & kExtendedLabels) != 0 ? line.ExtendedLabels.size() : 0);
}

void sortPolylineIndex(std::vector<IndexEntry>& index) {
    sortByKey(index,
              [](const IndexEntry& entry) { return orderKey(entry.activity, entry.identity); });
}

std::vector<int> sortLikeReader(std::vector<Polyline>& polylines) {
    return sortByKey(polylines, [](const Polyline& line) {
        return orderKey(line.ActiveRouting, identityValue(line.Type, line.SubType) & 0xFFFF);
    });
}

void readPolylines(ReadContext& context, const SectionPlace& section,
                   const std::vector<IndexEntry>& index, std::vector<Polyline>& polylines) {
    polylines.resize(index.size());
    if (index.empty()) {
        return;
    }
    const bool there = dataSectionThere(context, section);
    for (std::size_t i = 0; i < index.size(); ++i) {
        Polyline& line = polylines[i];
        setIdentity(line.Type, line.SubType, index[i].identity);
        line.Offset = std::to_string(index[i].offset);
        line.ActiveRouting = index[i].activity;
        const std::size_t position = std::size_t{section.offset} + index[i].offset;
        context.setObject({ObjectKind::Polyline, index[i].identity});
        if (!there || !recordThere(context, position)) {
            line.Couleurs.resize(static_cast<std::size_t>(NombreCouleurs(0)) * 3);
            line.Bitmap.resize(bitmapSize(0));
        } else {
            PartReader parts(context.file(), position);
            readRecord(parts, line);
            context.errors(parts.failures());
        }
        line.Longueur = static_cast<std::int32_t>(recordSize(line));
        context.charge(recordSize(line));
    }
    context.setObject({});
}

PolylinePlaces writePolylines(ByteWriter& writer, std::vector<Polyline>& polylines) {
    PolylinePlaces places;
    if (polylines.empty()) {
        return places;
    }
    const std::size_t start = writer.position();
    std::vector<IndexEntry> ordinary;
    std::vector<IndexEntry> activeRouting;
    ordinary.reserve(polylines.size());
    for (Polyline& line : polylines) {
        const std::size_t position = writer.position();
        const std::uint32_t offset = checkedOffset(position - start);
        const std::uint16_t identity = checkedIdentity(line.Type, line.SubType, 0xFFFF);
        (line.isActiveRouting() ? activeRouting : ordinary)
            .push_back({identity, line.ActiveRouting, offset});
        line.Offset = std::to_string(offset);
        writeRecord(writer, line);
        line.Longueur = static_cast<std::int32_t>(writer.position() - position);
    }
    places.data = placeBetween(start, writer.position());
    if (!ordinary.empty()) {
        places.index = writeIndex(writer, ordinary, IndexKind::plain, places.data.size);
    }
    if (!activeRouting.empty()) {
        sortByKey(activeRouting, [](const IndexEntry& entry) {
            const unsigned number = entry.activity[0] * 256U + entry.activity[1];
            return signed16(number) * 65536 + signed16(entry.identity);
        });
        places.activeRoutingIndex =
            writeIndex(writer, activeRouting, IndexKind::activeRouting, places.data.size);
    }
    return places;
}

}  // namespace quillmark
