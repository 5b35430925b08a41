// Hue, lightness and saturation of a colour, and the number fields in which people type them. All
// in 32-bit floats, each operation rounded by itself: other floats show and give other numbers.
#pragma once

#include <cstdint>

#include "bitmap/colour.h"
#include "bitmap/garmin_palette.h"

namespace quillmark {

// All from 0 to 1; H and S are 0 for greys.
struct Hls {
    float H = 0;
    float L = 0;
    float S = 0;
};
[[nodiscard]] Hls RGBversHLS(std::uint8_t red, std::uint8_t green, std::uint8_t blue);
// Halves go to the even byte.
[[nodiscard]] Composantes HLSversRGB(float H, float S, float L);

// The same with colours.
[[nodiscard]] Hls hlsOf(Couleur colour);
[[nodiscard]] Couleur couleurFromHls(const Hls& hls);

// Fields that run to 240 for 1.0.
inline constexpr int kHlsFieldMax = 240;
struct HlsFields {
    int hue = 0;
    int sat = 0;
    int lum = 0;
};
[[nodiscard]] HlsFields fieldsFromHls(const Hls& hls);
[[nodiscard]] Hls hlsFromFields(const HlsFields& fields);

}  // namespace quillmark
