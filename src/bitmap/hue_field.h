// The pictures in which people point at a colour: a field with the hue from left to right and the
// saturation from bottom to top, at one lightness, and a strip with the lightness from bottom to
// top. A click takes the very colour of the pixel.
#pragma once

#include "bitmap/colour.h"
#include "bitmap/colour_spaces.h"
#include "bitmap/image.h"

namespace quillmark {

inline constexpr int kHueFieldWidth = 360;
inline constexpr int kHueFieldHeight = 200;  // of the strip too

struct FieldPoint {
    int x = 0;
    int y = 0;
    bool operator==(const FieldPoint&) const = default;
};

// Where the cross stands for a colour.
[[nodiscard]] FieldPoint pointOfHls(const Hls& hls);
[[nodiscard]] int rowOfLightness(float L);
// Points outside count as the nearest inside.
[[nodiscard]] Hls hlsOfPoint(FieldPoint point, float L);
[[nodiscard]] float lightnessOfRow(int row);

// What a pixel shows and a click takes.
[[nodiscard]] Couleur fieldColour(const Hls& hls, bool bits16);
[[nodiscard]] Image hueField(float L, bool bits16);
// One pixel wide.
[[nodiscard]] Image lightnessStrip(const Hls& hls, bool bits16);

}  // namespace quillmark
