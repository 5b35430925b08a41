// The desktop's own way to take a colour from the screen.
#pragma once

#include "ui/screen_colour.h"

namespace quillmark {

// Null on platforms without one.
[[nodiscard]] std::unique_ptr<ScreenColour> portalScreenColour();

}  // namespace quillmark
