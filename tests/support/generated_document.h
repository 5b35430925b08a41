// Documents made from a seed, with every layout that the binary form knows. What is made is as a
// reader would hold it, so that writing and reading give the same document again.
#pragma once

#include <cstdint>

#include "core/document.h"

namespace quillmark::testing {

struct GeneratedShape {
    std::int32_t headerSize = 174;  // says which of the rarer sections there are
    int polygons = 40;
    int polylines = 60;
    int pois = 60;
    int activeRoutingLines = 6;
    int extraPoiGroups = 6;
    // Bytes of the largest identifier of an Extra POI group, 1 to 4.
    int brandWidth = 2;
    BlocSourceKind blocSource = BlocSourceKind::own;
    std::size_t betweenSections = 7;
};

Document generatedDocument(std::uint32_t seed, const GeneratedShape& shape = {});

}  // namespace quillmark::testing
