// The arithmetic of `frmCouleurs`: three sliders that pull the channels of a picture up or down.
#pragma once

#include <cstdint>

#include "bitmap/image.h"

namespace quillmark {

inline constexpr int kTintMiddle = 127;  // leaves a channel as it is
inline constexpr int kTintMax = 255;

// `slider` is from 0, which gives 0, to `kTintMax`, which gives 255.
[[nodiscard]] std::uint8_t teinterOctet(std::uint8_t value, int slider);
// What is transparent stays so.
[[nodiscard]] Image teinter(const Image& picture, int ScrollRouge, int ScrollVert, int ScrollBleu);

}  // namespace quillmark
