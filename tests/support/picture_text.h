// Pictures as text, one character a pixel, so that a test shows what it expects to see.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bitmap/layers.h"

namespace quillmark::testing {

// Of tests: red, green, blue and so on, by their first letter; "." is transparent.
inline Couleur colourOf(char letter) {
    switch (letter) {
        case 'r':
            return couleurFromRgb(255, 0, 0);
        case 'g':
            return couleurFromRgb(0, 255, 0);
        case 'b':
            return couleurFromRgb(0, 0, 255);
        case 'y':
            return couleurFromRgb(255, 255, 0);
        case 'k':
            return couleurFromRgb(0, 0, 0);
        case 'L':
            return kLightGround;
        case 'D':
            return kDarkGround;
        case 'w':
            return kCheckerLight;
        case 'x':
            return kCheckerDark;
        default:
            return kTransparent;
    }
}

inline char letterOf(Couleur pixel) {
    for (const char letter : std::string_view("rgbykLDwx.")) {
        if (colourOf(letter) == pixel) {
            return letter;
        }
    }
    return '?';
}

using Rows = std::vector<std::string>;

// The pixels of an area; "~" lies outside the picture.
inline Rows rowsOf(const Image& image, const Rectangle& area) {
    Rows rows;
    for (int y = area.y; y < area.y + area.height; ++y) {
        std::string row;
        for (int x = area.x; x < area.x + area.width; ++x) {
            row += image.contains(x, y) ? letterOf(image.pixel(x, y)) : '~';
        }
        rows.push_back(row);
    }
    return rows;
}
inline Rows rowsOf(const Image& image) {
    return rowsOf(image, {0, 0, image.width(), image.height()});
}

// Colours as on disk, blue first.
inline Bytes storedColours(std::string_view letters) {
    Bytes bytes;
    for (const char letter : letters) {
        const Couleur colour = colourOf(letter);
        bytes.insert(bytes.end(), {blueOf(colour), greenOf(colour), redOf(colour)});
    }
    return bytes;
}

inline Image imageOf(const Rows& rows) {
    Image image(static_cast<int>(rows.empty() ? 0 : rows[0].size()), static_cast<int>(rows.size()));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(
                x, y, colourOf(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]));
        }
    }
    return image;
}

}  // namespace quillmark::testing
