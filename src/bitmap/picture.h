// A picture made from the bytes of an object, and what these bytes left open.
#pragma once

#include "bitmap/image.h"

namespace quillmark {

struct PictureFaults {
    bool layout = false;      // the first byte names no known layout
    bool colourMode = false;  // unknown, so there is no picture
    bool colours = false;     // pixels whose colour isn't there; they are transparent
    bool bytes = false;       // pixels whose bytes aren't there; they are transparent
    [[nodiscard]] bool any() const { return layout || colourMode || colours || bytes; }
    bool operator==(const PictureFaults&) const = default;
};
// Of either of two pictures.
[[nodiscard]] constexpr PictureFaults operator|(const PictureFaults& a, const PictureFaults& b) {
    return {a.layout || b.layout, a.colourMode || b.colourMode, a.colours || b.colours,
            a.bytes || b.bytes};
}

// Pixels as in `bitmap/layers.h`.
struct Picture {
    Image image;  // 0 by 0 without a picture
    PictureFaults faults;
    bool operator==(const Picture&) const = default;
};

// A small sign that something is wrong with a picture.
[[nodiscard]] Image faultMark();

}  // namespace quillmark
