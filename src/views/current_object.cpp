#include "views/current_object.h"

namespace quillmark {

CurrentObject::CurrentObject(Session& session)
    : session_(session),
      following_(
          session.documentChanged.connect([this](const Change& change) { follow(change); })) {}

void CurrentObject::choose(const ObjectRef& object) {
    if (object == object_) {
        return;
    }
    session_.selectInText(object, [this](bool done) {
        // Not where it was chosen: edits that were applied first may have moved it.
        set(done ? session_.textView().shown : object_);
    });
}

void CurrentObject::set(const ObjectRef& object) {
    object_ = object;
    changed();
}

void CurrentObject::follow(const Change& change) {
    const bool told = change.select.kind != ObjectKind::none;
    ObjectRef next = told ? change.select : quillmark::follow(object_, change);
    if (change.selectNothing || !exists(session_.document(), next)) {
        next = {};
    }
    // Told even when it has the same place, since another object may stand there now.
    set(next);
}

}  // namespace quillmark
