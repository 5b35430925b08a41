// Moves the labels of a document from its code page to another one.
#pragma once

#include <cstddef>
#include <vector>

#include "core/document.h"

namespace quillmark {

// An object whose labels the new page doesn't hold as they were.
struct LabelLoss {
    ObjectKind kind = ObjectKind::none;  // none: the special labels
    int index = 0;                       // in the array of its kind
    int member = 0;                      // of an Extra POI group
    std::size_t lost = 0;                // characters that became "?"
    bool cut = false;                    // the block became too long, its last labels are gone
};

// Sets `CodePage` and encodes every label anew; blocks whose bytes don't change stay as they are.
std::vector<LabelLoss> recodeLabels(Document& document, int CodePage);

}  // namespace quillmark
