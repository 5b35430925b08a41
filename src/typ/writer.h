// Writes a document as a TYP file: from a value to bytes, no questions, no files.
#pragma once

#include <optional>
#include <string>

#include "core/bytes.h"
#include "core/clock.h"
#include "core/document.h"
#include "core/object_ref.h"

namespace quillmark {

struct WrittenTyp {
    Bytes file;
    // The document in the order and with the offsets and header records of the file.
    Document document;
    // Where the objects went from where they stood in the document given. Those left out for want
    // of a header that holds them have no new index.
    Reordering order;
};

// Throws Failure (6 overflow) when an object or a section doesn't fit the format; nothing is
// written partly. `FID` and `ProductCode` must be numbers from 0 to 65535 (13 conversion).
// What `TailleEntete` doesn't hold (Extra POI, labels, raw block, Active Routing) is left out.
[[nodiscard]] WrittenTyp CreerTYP(Document document, const DateTime& now);

// The smallest header size (bytes) that loses nothing of the document.
[[nodiscard]] int smallestHeader(const Document& document);

}  // namespace quillmark
