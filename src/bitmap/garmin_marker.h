// The marker `lblIsGarmin` of the editors: whether all colours of a picture belong to the palette
// of older devices, and what a click on it does.
#pragma once

#include <span>
#include <string>

#include "bitmap/colour.h"
#include "bitmap/poi_editing.h"
#include "core/translation.h"

namespace quillmark {

[[nodiscard]] bool toutesGarmin(std::span<const Couleur> colours);
// Of the palette, used or not; of all pixels that aren't transparent when there is none.
[[nodiscard]] bool toutesGarmin(const PoiWorkingForm& form);

[[nodiscard]] std::string lblIsGarminTip(bool allGarmin, const Traduction& traduction);

// Each colour becomes its nearest of the palette. A picture with palette gets a new one of what its
// pixels show, by colour and then alpha, also when all colours belong to it already; transparent
// pixels stay transparent.
void lblIsGarmin_Click(PoiWorkingForm& form, const Traduction& traduction);

}  // namespace quillmark
