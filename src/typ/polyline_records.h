// Line records: Entete and Entete2 (1 byte each), Couleurs (3 a colour), then the bitmap of
// 4 bytes a row, or without rows the width (1 byte) or the width and the border (2), and by the
// bits of Entete2 Strings (0x01) and ExtendedLabels (0x04). Ordinary and Active Routing lines
// share the data section; each have an index of their own.
#pragma once

#include "typ/index_entries.h"

namespace quillmark {

// Puts the entries of both indexes in the order of the document: by activity, then by type.
void sortPolylineIndex(std::vector<IndexEntry>& index);
// The same order for lines.
// The same result as `sortByKey`.
std::vector<int> sortLikeReader(std::vector<Polyline>& polylines);

// One line an entry, in the order of the index.
void readPolylines(ReadContext& context, const SectionPlace& section,
                   const std::vector<IndexEntry>& index, std::vector<Polyline>& polylines);

// Where the parts of the section were written.
struct PolylinePlaces {
    SectionPlace data;
    IndexPlace index;
    IndexPlace activeRoutingIndex;
};
// Writes data and indexes and sets `Offset` and `Longueur`. A type too large for 16 bits wraps.
// Throws Failure (6) for data beyond what an index can say.
[[nodiscard]] PolylinePlaces writePolylines(ByteWriter& writer, std::vector<Polyline>& polylines);

[[nodiscard]] std::size_t recordSize(const Polyline& polyline);

}  // namespace quillmark
