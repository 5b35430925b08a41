// Extra POI: groups of points of one brand.
//
// Data: for each group its member count (1 byte), for each member a length prefix and a point
// record. Prefix: 1 byte (length * 2 + 1) below 128, 2 bytes (* 4 + 2) below 16384, else 3 (* 8 +
// 4). Index: BrandID in 1 to 4 bytes as bits 0x18 of the header's flags say, then the group's
// offset.
#pragma once

#include "core/document.h"
#include "typ/index_entries.h"

namespace quillmark {

// The groups named by the index, without members.
[[nodiscard]] std::vector<ExtraPOI> readExtraPoiIndex(ReadContext& context,
                                                      const EnteteExtraPOI& header);
// Fills the groups; sets `MaxDimensionExtraPOI`.
void readExtraPoiMembers(ReadContext& context, Document& document);

// The same result as `sortByKey`.
std::vector<int> sortGroups(std::vector<ExtraPOI>& groups);
// Writes data and index, sets offsets and lengths, and returns the header part. Without groups
// `old` keeps its flags. Throws Failure (6) for more than 255 members and for too much data.
[[nodiscard]] EnteteExtraPOI writeExtraPoi(ByteWriter& writer, std::vector<ExtraPOI>& groups,
                                           const EnteteExtraPOI& old);

}  // namespace quillmark
