// The header: up to five parts in a row, of which the stated size says how many there are.
//
//   0  base           91   sections of polygons, lines, points and the draw order
//  91  Extra POI      19
// 110  labels         46   special labels
// 156  block           8
// 164  Active Routing 10
#pragma once

#include "core/document.h"
#include "typ/read_context.h"

namespace quillmark {

inline constexpr std::size_t kBaseHeaderEnd = 91;
inline constexpr std::size_t kExtraPoiHeaderEnd = kBaseHeaderEnd + 19;
inline constexpr std::size_t kLabelsHeaderEnd = kExtraPoiHeaderEnd + 46;
inline constexpr std::size_t kBlocHeaderEnd = kLabelsHeaderEnd + 8;
inline constexpr std::size_t kActiveRoutingHeaderEnd = kBlocHeaderEnd + 10;

// The Extra POI part is read as soon as the stated size begins it, though it may reach beyond.
inline constexpr std::size_t kExtraPoiHeaderSeen = kBaseHeaderEnd + 1;

inline constexpr std::array<char, 10> kMagic{'G', 'A', 'R', 'M', 'I', 'N', ' ', 'T', 'Y', 'P'};
// Where the draw order's size stands in the base.
inline constexpr std::size_t kDrawOrderSizeField = 87;

// The header size a file is written with: nothing is shorter than the base.
[[nodiscard]] std::size_t writtenHeaderSize(std::int32_t TailleEntete);
// The part of a header of this size that is understood.
[[nodiscard]] std::size_t understoodHeaderSize(std::size_t headerSize);

// Each reads what the stated size promises; a part that the file doesn't hold is told.
void readBaseHeader(ReadContext& context, Document& document);
void readHeaderExtensions(ReadContext& context, Document& document);

// The header of `document` in `writtenHeaderSize` bytes.
[[nodiscard]] Bytes encodeHeader(const Document& document);

}  // namespace quillmark
