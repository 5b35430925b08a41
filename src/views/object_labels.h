// The labels of an object, as lists and sheet show them.
#pragma once

#include <string>
#include <string_view>

#include "core/object_ref.h"

namespace quillmark {

// Null for an object without labels: a block that its flag doesn't tell of belongs to no record.
// Of a group those of the member referred to.
[[nodiscard]] const Bytes* stringsOf(const Document& document, const ObjectRef& object);

// A line end is one blank, and so is any other mark within a label; none around it.
[[nodiscard]] std::string onOneLine(std::string_view label);

}  // namespace quillmark
