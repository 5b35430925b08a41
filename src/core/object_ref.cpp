#include "core/object_ref.h"

#include <algorithm>

namespace quillmark {

int objectCount(const Document& document, ObjectKind kind) {
    switch (kind) {
        case ObjectKind::Polygone:
            return static_cast<int>(document.Polygone.size());
        case ObjectKind::Polyline:
            return static_cast<int>(document.Polyline.size());
        case ObjectKind::POI:
            return static_cast<int>(document.POI.size());
        case ObjectKind::ExtraPOI:
            return static_cast<int>(document.ExtraPOI.size());
        case ObjectKind::none:
            break;
    }
    return 0;
}

bool exists(const Document& document, const ObjectRef& object) {
    if (object.index < 0 || object.index >= objectCount(document, object.kind)) {
        return false;
    }
    if (object.kind != ObjectKind::ExtraPOI) {
        return object.member == 0;
    }
    const auto& group = document.ExtraPOI[static_cast<std::size_t>(object.index)];
    return object.member >= 0 &&
           static_cast<std::size_t>(object.member) < std::max<std::size_t>(group.POI.size(), 1);
}

ObjectRef Reordering::follow(const ObjectRef& object) const {
    const auto& indexes = newIndex[static_cast<std::size_t>(object.kind)];
    if (object.index < 0 || static_cast<std::size_t>(object.index) >= indexes.size()) {
        return object;
    }
    return {object.kind, indexes[static_cast<std::size_t>(object.index)], object.member};
}

}  // namespace quillmark
