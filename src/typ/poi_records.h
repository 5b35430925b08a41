// Point records: Entete, Largeur, Hauteur (1 byte each), the day picture (NbCouleurs, ColorMode,
// palette, pixels), by the bits of Entete a night picture (0x02; its pixels only with 0x01 or
// without palette, else it has those of the day), Strings (0x04) and ExtendedLabels (0x08). A
// point without width or height has neither palettes nor pixels.
//
// A picture whose colour mode is unknown can't be measured: all that is left of its record then
// lies in its `Bitmap`, and nothing follows it.
#pragma once

#include <functional>

#include "core/document.h"
#include "typ/index_entries.h"

namespace quillmark {

// Where a record lies, and how many bytes it has there.
struct PoiPlace {
    ByteView data;
    std::size_t position = 0;
    std::int64_t room = 0;
};

// Reads one record; `heading` names the point above warnings. Identity and offset stay.
void readPoi(ReadContext& context, const PoiPlace& place,
             const std::function<std::string()>& heading, POI& poi);

// One point an entry, in the order of the index; sets `MaxDimensionPOI` of the document.
void readPois(ReadContext& context, const SectionPlace& section,
              const std::vector<IndexEntry>& index, Document& document);
// The larger of the two sides and `dimension`.
void raiseDimension(std::int16_t& dimension, const POI& poi);

// Writes data and index and sets `Offset` and `Longueur`; an empty section has places of zeros.
// Throws Failure (6) for a type of 0x400 or above and for data beyond what an index can say.
void writePois(ByteWriter& writer, std::vector<POI>& pois, SectionPlace& data, IndexPlace& index);
void writePoi(ByteWriter& writer, const POI& poi);

// Bytes that `writePoi` writes.
[[nodiscard]] std::size_t recordSize(const POI& poi);

}  // namespace quillmark
