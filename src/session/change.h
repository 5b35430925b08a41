// What a change of the document touched: the one notice that lists, sheet, preview and text get.
#pragma once

#include <memory>

#include "core/object_ref.h"

namespace quillmark {

struct Change {
    enum class What : std::uint8_t {
        replaced,   // another document, or none: nothing of before is there any more
        content,    // anything may differ: an undo, applied text
        header,     // header fields, code page, header size
        added,      // `object` is new, those behind it moved up
        modified,   // `object` alone
        removed,    // `object` is gone, those behind it moved down
        reordered,  // `reordering` says where objects went
        drawOrder,
    };
    What what = What::content;
    ObjectRef object;
    std::shared_ptr<const Reordering> reordering;
    // The object to select afterwards; none leaves the choice to who selects.
    ObjectRef select;
    // Whatever was selected is gone; with `content`, which doesn't say where objects went.
    bool selectNothing = false;
};

// Where an object is after the change, as far as the change tells: index -1 when it is gone, kind
// none when another document stands.
[[nodiscard]] ObjectRef follow(ObjectRef object, const Change& change);

}  // namespace quillmark
