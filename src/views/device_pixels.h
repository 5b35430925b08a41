// From logical pixels, which windows lay out in, to those of the screen.
#pragma once

#include <algorithm>
#include <cmath>

namespace quillmark {

// Rounded down, also below 0.
[[nodiscard]] constexpr int floorHalf(int value) {
    return value >> 1;
}
[[nodiscard]] inline int deviceLength(double logical, double ratio) {
    return static_cast<int>(std::lround(logical * ratio));
}
// Device pixels for a picture's pixel: whole, so that all are of one size.
[[nodiscard]] inline int deviceScale(int factor, double ratio) {
    return std::max(1, deviceLength(factor, ratio));
}

}  // namespace quillmark
