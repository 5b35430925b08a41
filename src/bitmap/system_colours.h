// Colours that are named by a number instead of held: negative values of `Couleur`.
#pragma once

#include "bitmap/colour.h"

namespace quillmark {

// A plain colour for a system colour (0x80000000 plus its number), the same on every platform so
// that a picture doesn't depend on the desktop; black for a number that names none. Others stay.
[[nodiscard]] Couleur ResoudreCouleur(Couleur colour);

}  // namespace quillmark
