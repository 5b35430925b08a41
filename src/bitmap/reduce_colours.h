// Fewer colours: the closest ones go first.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "bitmap/colour.h"

namespace quillmark {

// The first element of the first closest pair. Elements 765 apart are no pair; without any pair 0.
[[nodiscard]] std::size_t IndexPairePlusProche(std::span<const Couleur> colours);

// Takes `IndexPairePlusProche` out until at most `n` colours are left; a count below 0 is 0.
void ReduireCouleurs(std::vector<Couleur>& colours, int n);

}  // namespace quillmark
