#include "bitmap/layers.h"

#include <algorithm>
#include <array>

namespace quillmark {
namespace {

// `weight` of 255 parts of `above`, the rest of `below`.
std::uint8_t mixedPart(unsigned above, unsigned below, unsigned weight) {
    return static_cast<std::uint8_t>((above * weight + below * (255 - weight) + 127) / 255);
}

Couleur mixed(Couleur above, Couleur below, unsigned weight) {
    return couleurFromRgb(mixedPart(redOf(above), redOf(below), weight),
                          mixedPart(greenOf(above), greenOf(below), weight),
                          mixedPart(blueOf(above), blueOf(below), weight));
}

Couleur over(Couleur above, Couleur below) {
    const unsigned through = transparencyOf(above);
    const unsigned belowThrough = transparencyOf(below);
    if (through == 0 || belowThrough == 255) {
        return above;
    }
    if (belowThrough == 0) {
        return mixed(above, below, 255 - through);
    }
    const unsigned both = (through * belowThrough + 127) / 255;
    const unsigned weight = (255 - through) * 255 / (255 - both);
    return seenThrough(mixed(above, below, std::min(weight, 255U)),
                       static_cast<std::uint8_t>(both));
}

Couleur meanOf(const Image& source, const Rectangle& area) {
    std::array<std::uint64_t, 3> sums{};
    std::uint64_t opacity = 0;
    for (int y = area.y; y < area.y + area.height; ++y) {
        for (int x = area.x; x < area.x + area.width; ++x) {
            const Couleur pixel = source.pixel(x, y);
            const std::uint64_t weight = 255U - transparencyOf(pixel);
            sums[0] += redOf(pixel) * weight;
            sums[1] += greenOf(pixel) * weight;
            sums[2] += blueOf(pixel) * weight;
            opacity += weight;
        }
    }
    if (opacity == 0) {
        return kTransparent;
    }
    const auto count =
        static_cast<std::uint64_t>(area.width) * static_cast<std::uint64_t>(area.height);
    const auto part = [&](std::size_t i) {
        return static_cast<std::uint8_t>((sums[i] + opacity / 2) / opacity);
    };
    return seenThrough(couleurFromRgb(part(0), part(1), part(2)),
                       static_cast<std::uint8_t>(255 - (opacity + count / 2) / count));
}

}  // namespace

void layOver(Image& target, const Image& source, int x, int y, int scale) {
    const int left = std::max(0, x);
    const int right = std::min(target.width(), x + source.width() * scale);
    const int bottom = std::min(target.height(), y + source.height() * scale);
    for (int row = std::max(0, y); row < bottom; ++row) {
        const int sourceY = (row - y) / scale;
        for (int column = left; column < right; ++column) {
            const Couleur pixel = source.pixel((column - x) / scale, sourceY);
            if (transparencyOf(pixel) != 255) {
                target.setPixel(column, row, over(pixel, target.pixel(column, row)));
            }
        }
    }
}

Image shrunk(const Image& source, int width, int height) {
    assert(width > 0 && height > 0 && width <= source.width() && height <= source.height());
    Image result(width, height);
    for (int y = 0; y < height; ++y) {
        const int top = y * source.height() / height;
        const int bottom = (y + 1) * source.height() / height;
        for (int x = 0; x < width; ++x) {
            const int left = x * source.width() / width;
            const int right = (x + 1) * source.width() / width;
            result.setPixel(x, y, meanOf(source, {left, top, right - left, bottom - top}));
        }
    }
    return result;
}

void paintGround(Image& picture, Ground ground, bool night, int unit) {
    const bool dark = ground == Ground::dark || (ground == Ground::map && night);
    const Couleur plain = dark ? kDarkGround : kLightGround;
    const int square = kCheckerSide * unit;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Couleur pixel = picture.pixel(x, y);
            if (transparencyOf(pixel) == 0) {
                continue;
            }
            const bool odd = (x / square + y / square) % 2 != 0;
            const Couleur below = ground != Ground::checker ? plain
                                  : odd                     ? kCheckerDark
                                                            : kCheckerLight;
            picture.setPixel(x, y, over(pixel, below));
        }
    }
}

}  // namespace quillmark
