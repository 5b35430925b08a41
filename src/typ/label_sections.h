// Special labels (texts and two tables of fixed-size entries) and the raw block that goes with
// them. Their meaning isn't known: they are carried as they are.
#pragma once

#include "core/document.h"
#include "typ/read_context.h"

namespace quillmark {

// What there is of a section; one that reaches beyond the file is told.
[[nodiscard]] Bytes readSection(ReadContext& context, const SectionPlace& place);

void readLabels(ReadContext& context, Document& document);
// After the labels, whose tables the block may share.
void readBloc(ReadContext& context, Document& document);

// Write texts and tables, and then the block; set the header parts. What is empty has no place,
// and the unknown fields of the header stay.
void writeLabels(ByteWriter& writer, Document& document);
void writeBloc(ByteWriter& writer, Document& document);

}  // namespace quillmark
