#include "views/readable_colour.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quillmark {
namespace {

double linear(std::uint8_t part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(Couleur c) {
    return 0.2126 * linear(redOf(c)) + 0.7152 * linear(greenOf(c)) + 0.0722 * linear(blueOf(c));
}

// All from 0 to 1.
struct HueColour {
    double hue = 0;
    double saturation = 0;
    double lightness = 0;
};

HueColour toHue(Couleur c) {
    const double red = redOf(c) / 255.0;
    const double green = greenOf(c) / 255.0;
    const double blue = blueOf(c) / 255.0;
    const double high = std::max({red, green, blue});
    const double low = std::min({red, green, blue});
    const double spread = high - low;
    HueColour result{0, 0, (high + low) / 2};
    if (spread > 0) {
        result.saturation = spread / (1 - std::abs(2 * result.lightness - 1));
        const double sixth = high == red     ? (green - blue) / spread + 6
                             : high == green ? (blue - red) / spread + 2
                                             : (red - green) / spread + 4;
        result.hue = std::fmod(sixth, 6) / 6;
    }
    return result;
}

Couleur fromHue(const HueColour& c) {
    const double chroma = (1 - std::abs(2 * c.lightness - 1)) * c.saturation;
    const auto part = [&](double shift) {
        const double place = std::fmod(c.hue * 6 + shift, 6);
        const double share = std::clamp(2 - std::abs(place - 3), 0.0, 1.0);
        return static_cast<std::uint8_t>(std::lround((c.lightness + chroma * (0.5 - share)) * 255));
    };
    // Each part is lowest at place 3, opposite its own hue.
    return couleurFromRgb(part(0), part(4), part(2));
}

// The lightness nearest to the colour's own towards `end`, 0 or 1, that can be read.
std::optional<double> readableTowards(const HueColour& colour, double end, Couleur ground) {
    const auto readable = [&](double share) {
        HueColour moved = colour;
        moved.lightness += (end - colour.lightness) * share;
        return contrast(fromHue(moved), ground) >= kReadableContrast;
    };
    if (!readable(1)) {
        return std::nullopt;
    }
    double low = 0;
    double high = 1;
    for (int step = 0; step < 12; ++step) {
        const double middle = (low + high) / 2;
        (readable(middle) ? high : low) = middle;
    }
    return colour.lightness + (end - colour.lightness) * high;
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
    HueColour moved = toHue(colour);
    const std::optional<double> darker = readableTowards(moved, 0, ground);
    const std::optional<double> lighter = readableTowards(moved, 1, ground);
    // Black or white can be read on any ground, so one of the two is there.
    const bool down =
        !lighter || (darker && moved.lightness - *darker < *lighter - moved.lightness);
    moved.lightness = down ? darker.value_or(0) : *lighter;
    return fromHue(moved);
}

}  // namespace quillmark
