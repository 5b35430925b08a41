// Pictures of points as they are seen.
#pragma once

#include "bitmap/picture.h"
#include "core/records.h"

namespace quillmark {

// `blended`: alpha between opaque and transparent is kept; otherwise only a pixel of alpha 15 is
// transparent and every other one is opaque.
[[nodiscard]] Picture poiPicture(const ImagePOI& source, int width, int height, bool blended);

}  // namespace quillmark
