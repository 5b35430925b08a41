// The one object that is selected: lists, sheet, preview and text view observe it.
#pragma once

#include "core/object_ref.h"
#include "core/signal.h"
#include "session/session.h"

namespace quillmark {

class CurrentObject {
  public:
    explicit CurrentObject(Session& session);

    [[nodiscard]] const ObjectRef& object() const { return object_; }
    // `ObjetCourant`.
    [[nodiscard]] ObjectKind kind() const { return object_.kind; }

    // A user's choice: the text view follows, after its question about edits where it shows single
    // objects. Nothing happens when the object is selected already. When the user stays with the
    // edits, `changed` is told with the old object, so that who showed the choice goes back.
    void choose(const ObjectRef& object);
    void clear() { choose({}); }

    Signal<> changed;

  private:
    void follow(const Change& change);
    void set(const ObjectRef& object);

    Session& session_;
    ObjectRef object_;
    Connection following_;
};

}  // namespace quillmark
