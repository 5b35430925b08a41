// Draw order: entries of 5 bytes, a type and a mask of subtypes. Mask 0 is a standard type, any
// other the extended type 0x100 + type with a subtype for each bit; five zeros begin a new level.
#pragma once

#include "core/document.h"
#include "typ/read_context.h"

namespace quillmark {

// Fills `ListDraworder` and `DrawOrder`.
void readDrawOrder(ReadContext& context, Document& document);

// Normalises the list and writes it; an empty one has a place of zeros. Throws Failure (6) for a
// subtype above 31 and for a section of 32768 bytes or more, which no reader would see whole.
void writeDrawOrder(ByteWriter& writer, Document& document);

}  // namespace quillmark
