// The two blocks that end a record: names in several languages, and how the label is drawn. Both
// say their own length, and both are kept as they stand in the file.
//
// Names: a prefix of one byte (odd: size of the entries * 2 + 1) or of two (size * 4 + 2), then
// entries of a language byte and a text that ends with a zero.
// Label: a byte of flags, 3 bytes a custom colour by its bits 3 and 4, and, with one of the bits 5
// and 6, a length byte n with n / 2 bytes of contour colours.
#pragma once

#include "typ/part_reader.h"

namespace quillmark {

[[nodiscard]] Bytes readStrings(PartReader& parts);
[[nodiscard]] Bytes readExtendedLabels(PartReader& parts);

}  // namespace quillmark
