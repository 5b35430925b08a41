// The whole icon sheet of a document as a PNG file, made without a window or a display.
#pragma once

#include "views/sheet_texts.h"

namespace quillmark {

struct SheetPngOptions {
    ObjectKind kind = ObjectKind::Polygone;
    int factor = 1;
    bool night = false;
    LabelMode labels = LabelMode::none;
    int LangueLabels = 1;
};

// Twenty cells a row, fewer of large ones; one empty cell for a kind without objects. Throws
// Failure when the picture would be too large for anyone to look at.
[[nodiscard]] Bytes sheetPng(const Document& document, const Traduction& traduction,
                             const SheetPngOptions& options);

}  // namespace quillmark
