// The largest document there can be, filled with objects of the kinds and sizes that styles have.
#pragma once

#include "core/document.h"

namespace quillmark::bench {

// `objects` of each kind, at most kMaxObjects.
[[nodiscard]] Document largeDocument(int objects);

}  // namespace quillmark::bench
