#include "views/current_object.h"

#include <algorithm>

namespace quillmark {

CurrentObject::CurrentObject(Session& session)
    : session_(session),
      following_(
          session.documentChanged.connect([this](const Change& change) { follow(change); })) {}

void CurrentObject::choose(const ObjectRef& object) {
    if (object == object_) {
        return;
    }
    session_.selectInText(object, [this, object](bool done) { set(done ? object : object_); });
}

void CurrentObject::set(const ObjectRef& object) {
    object_ = object;
    changed();
}

void CurrentObject::follow(const Change& change) {
    ObjectRef next = object_;
    switch (change.what) {
        case Change::What::replaced:
            next = {};
            break;
        case Change::What::reordered:
            if (change.reordering) {
                next = change.reordering->follow(object_);
            }
            break;
        case Change::What::added:
            if (next.kind == change.object.kind && next.index >= change.object.index) {
                ++next.index;
            }
            break;
        case Change::What::removed:
            if (next.kind == change.object.kind) {
                if (next.index > change.object.index) {
                    --next.index;
                } else if (next.index == change.object.index) {
                    next.member = 0;
                    next.index =
                        std::min(next.index, objectCount(session_.document(), next.kind) - 1);
                }
            }
            break;
        default:
            break;
    }
    if (change.select.kind != ObjectKind::none) {
        next = change.select;
    }
    if (!exists(session_.document(), next)) {
        next = {};
    }
    // Told even when it has the same place, since another object may stand there now.
    set(next);
}

}  // namespace quillmark
