// Polygon records: Entete (1 byte), Couleurs (3 a colour), and by the bits of Entete a bitmap of
// 128 bytes (0x08), Strings (0x10), ExtendedLabels (0x20) and Alpha (0x40, 1 a colour).
#pragma once

#include "typ/index_entries.h"

namespace quillmark {

// One polygon an entry, in the order of the index.
void readPolygons(ReadContext& context, const SectionPlace& section,
                  const std::vector<IndexEntry>& index, std::vector<Polygone>& polygons);

// Writes data and index and sets `Offset` and `Longueur`; an empty section has places of zeros.
// Throws Failure (6) for a type of 0x400 or above and for data beyond what an index can say.
void writePolygons(ByteWriter& writer, std::vector<Polygone>& polygons, SectionPlace& data,
                   IndexPlace& index);

[[nodiscard]] std::size_t recordSize(const Polygone& polygon);

}  // namespace quillmark
