#include "views/readable_colour.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "bitmap/colour_spaces.h"

namespace quillmark {
namespace {

double linear(std::uint8_t part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(Couleur c) {
    return 0.2126 * linear(redOf(c)) + 0.7152 * linear(greenOf(c)) + 0.0722 * linear(blueOf(c));
}

// The lightness nearest to the colour's own towards `end`, 0 or 1, that can be read.
std::optional<float> readableTowards(const Hls& colour, float end, Couleur ground) {
    const auto readable = [&](float lightness) {
        return contrast(couleurFromHls({colour.H, lightness, colour.S}), ground) >=
               kReadableContrast;
    };
    if (!readable(end)) {
        return std::nullopt;
    }
    float unreadable = colour.L;
    float found = end;
    for (int step = 0; step < 12; ++step) {
        const float middle = (unreadable + found) / 2;
        (readable(middle) ? found : unreadable) = middle;
    }
    return found;
}

}  // namespace

double contrast(Couleur a, Couleur b) {
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

Couleur readableOn(Couleur colour, Couleur ground) {
    if (contrast(colour, ground) >= kReadableContrast) {
        return colour;
    }
    Hls moved = hlsOf(colour);
    const std::optional<float> darker = readableTowards(moved, 0, ground);
    const std::optional<float> lighter = readableTowards(moved, 1, ground);
    // Black or white can be read on any ground, so one of the two is there.
    const bool down = !lighter || (darker && moved.L - *darker < *lighter - moved.L);
    moved.L = down ? darker.value_or(0) : *lighter;
    return couleurFromHls(moved);
}

}  // namespace quillmark
