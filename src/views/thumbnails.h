// Small pictures for rows of lists, made when a row is first seen.
#pragma once

#include "bitmap/layers.h"
#include "views/content_cache.h"
#include "views/object_pictures.h"

namespace quillmark {

struct ThumbnailShape {
    int side = 32;     // logical pixels
    double ratio = 1;  // device pixels to a logical one
    Ground ground = Ground::map;
    bool blended = false;
    bool operator==(const ThumbnailShape&) const = default;
};

// Squares of `side` logical pixels in device pixels, the ground and marks painted.
struct Thumbnail {
    Image day;    // 0 by 0 for an object without any picture
    Image night;  // 0 by 0 for an object that looks the same by night
};

class Thumbnails {
  public:
    // `room` in bytes.
    explicit Thumbnails(const Document& document, std::size_t room = std::size_t{16} << 20U)
        : document_(document), cache_(room) {}

    void setShape(const ThumbnailShape& shape);
    [[nodiscard]] const ThumbnailShape& shape() const { return shape_; }
    // Never null. By content, so that nothing needs to be told of changes of the document.
    [[nodiscard]] std::shared_ptr<const Thumbnail> of(const ObjectRef& object);

    [[nodiscard]] std::size_t used() const { return cache_.used(); }

  private:
    const Document& document_;
    ThumbnailShape shape_;
    ContentCache<Thumbnail> cache_;
};

}  // namespace quillmark
