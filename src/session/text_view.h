// What the text control stands for: the whole document or one object, and the text that was made
// for it.
#pragma once

#include "core/object_ref.h"
#include "text/generator.h"
#include "text/parser.h"

namespace quillmark {

struct TextView {
    // The switch in the view; `wholeDocument` is `ObjetVisualise` 0.
    bool wholeDocument = true;
    // The object shown otherwise, followed through changes of order; index -1 when it is gone.
    ObjectRef shown;
    // What the control was given last, or is compared with. Its sections are looked up by object.
    GeneratedText generated;
    bool stale = true;  // the document changed since, or the control isn't to be seen

    [[nodiscard]] ObjectKind ObjetVisualise() const;
    [[nodiscard]] ParseTarget target() const;
    // The section of an object in a text of the whole document; null without one.
    [[nodiscard]] const TextSection* sectionOf(const ObjectRef& object) const;
};

}  // namespace quillmark
