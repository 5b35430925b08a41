// The palette of the eTrex and 60 series as it is laid out for people: columns of one hue with the
// lightest colour on top, vivid ones first, dull ones behind, and the greys in a last row that
// isn't full.
#pragma once

#include "bitmap/colour.h"

namespace quillmark {

inline constexpr int kSwatches = 254;
inline constexpr int kSwatchColumns = 20;

// Swatch `n` from 1, row after row: column (n - 1) % kSwatchColumns, row (n - 1) / kSwatchColumns.
[[nodiscard]] Couleur couleurDuCarre(int n);
// 0 for a colour without a swatch.
[[nodiscard]] int carreDeCouleur(Couleur colour);

}  // namespace quillmark
