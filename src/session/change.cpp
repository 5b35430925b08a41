#include "session/change.h"

namespace quillmark {

ObjectRef follow(ObjectRef object, const Change& change) {
    const bool sameKind = object.kind == change.object.kind;
    switch (change.what) {
        case Change::What::replaced:
            return {};
        case Change::What::reordered:
            return change.reordering ? change.reordering->follow(object) : object;
        case Change::What::added:
            if (sameKind && object.index >= change.object.index) {
                ++object.index;
            }
            return object;
        case Change::What::removed:
            if (sameKind && object.index == change.object.index) {
                object.index = -1;
            } else if (sameKind && object.index > change.object.index) {
                --object.index;
            }
            return object;
        default:
            return object;
    }
}

}  // namespace quillmark
