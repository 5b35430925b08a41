// The order in which polygons are painted: `ListDraworder` is the master copy, `DrawOrder` its
// sorted table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"

namespace quillmark {

// Rebuilds `DrawOrder` from `ListDraworder`, sorts it and writes the list back in normal form.
// With an empty list nothing happens.
void RebatirDraworder(Document& document);

// By level, then type, then subtype; equal entries keep their order.
void TrierDraworder(std::vector<DrawOrderItem>& table);

// An entry as the list holds it: "Type=0x003,1" for a standard type without subtype, otherwise
// "Type=0x10f,SubType=0x04,2".
[[nodiscard]] std::string drawOrderEntry(const DrawOrderItem& item);
// Nothing when the entry hasn't two or three parts. A part that isn't a number counts as 0.
[[nodiscard]] std::optional<DrawOrderItem> parseDrawOrderEntry(std::string_view entry);

}  // namespace quillmark
