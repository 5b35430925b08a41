// Reads a TYP file. Nothing is refused: what can't be read is told in the journal, and the
// document holds what could be had.
#pragma once

#include "core/bytes.h"
#include "core/document.h"
#include "core/journal.h"
#include "core/translation.h"

namespace quillmark {

struct OpenedTyp {
    Document document;
    Journal journal;
    bool hasMagic = false;  // the file says that it is a TYP file
};

[[nodiscard]] OpenedTyp ouvrir(ByteView file, const Traduction& traduction);

}  // namespace quillmark
