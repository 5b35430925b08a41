// Colours of text that anyone can read.
#pragma once

#include "bitmap/colour.h"

namespace quillmark {

// What text needs against the ground it stands on.
inline constexpr double kReadableContrast = 4.5;

// From 1 for equal colours to 21 for black and white.
[[nodiscard]] double contrast(Couleur a, Couleur b);

// The colour itself, or with its hue kept the nearest lightness that can be read on `ground`.
// Neither may be a system colour.
[[nodiscard]] Couleur readableOn(Couleur colour, Couleur ground);

}  // namespace quillmark
