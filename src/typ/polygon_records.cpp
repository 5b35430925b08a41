#include "typ/polygon_records.h"

#include <algorithm>

#include "typ/strings_block.h"

namespace quillmark {
namespace {

using polygon_bits::kAlpha;
using polygon_bits::kBitmap;
using polygon_bits::kExtendedLabels;
using polygon_bits::kStrings;
using polygon_bits::kUnknown;

// Surplus bytes shown in a warning at most.
constexpr std::size_t kMaxDump = 4096;

void readRecord(PartReader& parts, Polygone& polygon) {
    polygon.Entete = parts.byte();
    const int colours = NombreCouleurs(polygon.Entete);
    if (colours < 0) {
        parts.fail(Failure(ErrorNumber::index, "nombre de couleurs inconnu, en-tête " +
                                                   std::to_string(polygon.Entete)));
    } else {
        polygon.Couleurs = parts.bytes(static_cast<std::size_t>(colours) * 3);
    }
    if ((polygon.Entete & kBitmap) != 0) {
        parts.fill(polygon.Bitmap);
    }
    if ((polygon.Entete & kStrings) != 0) {
        polygon.Strings = readStrings(parts);
    }
    if ((polygon.Entete & kExtendedLabels) != 0) {
        polygon.ExtendedLabels = readExtendedLabels(parts);
    }
    if ((polygon.Entete & kAlpha) != 0) {
        polygon.Alpha = parts.bytes(polygon.Couleurs.size() / 3);
    }
}

std::string surplusDump(ByteView surplus) {
    constexpr const char* digits = "0123456789ABCDEF";
    const ByteView shown = surplus.first(std::min(surplus.size(), kMaxDump));
    std::string dump;
    dump.reserve(shown.size() * 3 + 4);
    for (const std::uint8_t byte : shown) {
        dump += {digits[byte >> 4U], digits[byte & 15U], ' '};
    }
    return shown.size() < surplus.size() ? dump + "..." : dump;
}

void warn(ReadContext& context, const Polygone& polygon, std::size_t position, std::int64_t room,
          std::size_t end) {
    const auto expected = static_cast<std::int64_t>(recordSize(polygon));
    if (room == expected && (polygon.Entete & kUnknown) == 0 && isKnownPolygon(polygon.Entete)) {
        return;
    }
    if (!context.journalOpen()) {
        context.warning({});
        return;
    }
    const std::string object = ", " + context.contextMessage();
    if ((polygon.Entete & kUnknown) != 0) {
        context.warning(context.Trad("Main", "Flags inconnus dans le header du polygone",
                                     "msgErreurPolygone4") +
                        object + ", " + hexTextUpper(polygon.Entete, 2) + ", " +
                        hexTextUpper(static_cast<std::uint32_t>(position), 8));
    }
    if (room < expected) {
        context.warning(context.Trad("Main", "Longueur inattendue", "msgErreurPolygone2") + object);
    } else if (room > expected) {
        const ByteView file = context.file();
        const std::size_t from = std::min(end, file.size());
        const auto wanted = static_cast<std::size_t>(room - expected);
        context.warning(
            context.Trad("Main", "Données inconnues dans le polygone", "msgErreurPolygone3") +
            object + ", " + surplusDump(file.subspan(from, std::min(wanted, file.size() - from))));
    }
    if (!isKnownPolygon(polygon.Entete)) {
        context.add(JournalKind::warning, context.Trad("Main", "Attention", "msgWarning") +
                                              ": Polygone de type inconnu. Son header est: " +
                                              std::to_string(polygon.Entete) + "    ");
    }
}

}  // namespace

std::size_t recordSize(const Polygone& polygon) {
    return 1 + polygon.Couleurs.size() +
           ((polygon.Entete & kBitmap) != 0 ? polygon.Bitmap.size() : 0) +
           ((polygon.Entete & kStrings) != 0 ? polygon.Strings.size() : 0) +
           ((polygon.Entete & kExtendedLabels) != 0 ? polygon.ExtendedLabels.size() : 0) +
           ((polygon.Entete & kAlpha) != 0 ? polygon.Alpha.size() : 0);
}

void readPolygons(ReadContext& context, const SectionPlace& section,
                  const std::vector<IndexEntry>& index, std::vector<Polygone>& polygons) {
    polygons.resize(index.size());
    if (index.empty()) {
        return;
    }
    const bool there = dataSectionThere(context, section);
    RecordRooms rooms(index, section.size);
    for (std::size_t i = 0; i < index.size(); ++i) {
        Polygone& polygon = polygons[i];
        setIdentity(polygon.Type, polygon.SubType, index[i].identity);
        polygon.Offset = std::to_string(index[i].offset);
        const std::int64_t room = rooms.room(index[i].offset);
        polygon.Longueur = static_cast<std::int32_t>(room);
        const std::size_t position = std::size_t{section.offset} + index[i].offset;
        context.setObject({ObjectKind::Polygone, index[i].identity});
        if (!there || !recordThere(context, position)) {
            polygon.Couleurs.resize(static_cast<std::size_t>(NombreCouleurs(0)) * 3);
            continue;
        }
        PartReader parts(context.file(), position);
        readRecord(parts, polygon);
        context.charge(recordSize(polygon));
        context.errors(parts.failures());
        warn(context, polygon, position, room, parts.position());
    }
    context.setObject({});
}

void writePolygons(ByteWriter& writer, std::vector<Polygone>& polygons, SectionPlace& data,
                   IndexPlace& index) {
    data = {};
    index = {};
    if (polygons.empty()) {
        return;
    }
    const std::size_t start = writer.position();
    std::vector<IndexEntry> entries;
    entries.reserve(polygons.size());
    for (Polygone& polygon : polygons) {
        const std::size_t position = writer.position();
        const std::uint32_t offset = checkedOffset(position - start);
        entries.push_back({checkedIdentity(polygon.Type, polygon.SubType), {}, offset});
        polygon.Offset = std::to_string(offset);
        writer.u8(polygon.Entete);
        writer.bytes(polygon.Couleurs);
        if ((polygon.Entete & kBitmap) != 0) {
            writer.bytes(polygon.Bitmap);
        }
        if ((polygon.Entete & kStrings) != 0) {
            writer.bytes(polygon.Strings);
        }
        if ((polygon.Entete & kExtendedLabels) != 0) {
            writer.bytes(polygon.ExtendedLabels);
        }
        if ((polygon.Entete & kAlpha) != 0) {
            writer.bytes(polygon.Alpha);
        }
        polygon.Longueur = static_cast<std::int32_t>(writer.position() - position);
    }
    data = placeBetween(start, writer.position());
    index = writeIndex(writer, entries, IndexKind::plain, data.size);
}

}  // namespace quillmark
