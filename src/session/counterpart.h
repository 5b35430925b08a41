// Finds an object in another state of the document.
#pragma once

#include "core/object_ref.h"

namespace quillmark {

// The object of `to` with the identity that `object` has in `from`, the same one in a row where
// several share it: a save puts the arrays in another order. None when there is no such object.
[[nodiscard]] ObjectRef counterpart(const Document& from, const Document& to,
                                    const ObjectRef& object);

}  // namespace quillmark
