// Names one object of the document.
#pragma once

#include <array>
#include <vector>

#include "core/document.h"

namespace quillmark {

struct ObjectRef {
    ObjectKind kind = ObjectKind::none;
    int index = -1;  // in the array of its kind, Active Routing lines counted behind the others
    int member = 0;  // of an Extra POI group
    bool operator==(const ObjectRef&) const = default;
};

// Objects of a kind; groups for Extra POI.
[[nodiscard]] int objectCount(const Document& document, ObjectKind kind);
// False for a reference of no kind or beyond the array or the group.
[[nodiscard]] bool exists(const Document& document, const ObjectRef& object);

// Where objects went when the arrays were put in another order.
struct Reordering {
    // For each kind the new index of the object that had an index; empty: nothing moved.
    std::array<std::vector<int>, 5> newIndex;
    [[nodiscard]] ObjectRef follow(const ObjectRef& object) const;
};

}  // namespace quillmark
