// The desktop's own way to take a colour from the screen.
#pragma once

#include "ui/screen_colour.h"

namespace quillmark {

// Null on platforms without one. `failed` is told in place of a pick's end when the desktop can't
// do what it offers.
[[nodiscard]] std::unique_ptr<ScreenColour> portalScreenColour(std::function<void()> failed);

}  // namespace quillmark
