#include "bitmap/hue_field.h"

#include <algorithm>
#include <cmath>

#include "bitmap/sixteen_bits.h"

namespace quillmark {
namespace {

constexpr float kLastColumn = kHueFieldWidth - 1;
constexpr float kLastRow = kHueFieldHeight - 1;

// From 1 on top to 0 at the bottom.
float partOfRow(int row) {
    return 1.0F - static_cast<float>(std::clamp(row, 0, kHueFieldHeight - 1)) / kLastRow;
}
int rowOfPart(float part) {
    return static_cast<int>(std::lround(kLastRow * (1.0F - part)));
}

}  // namespace

FieldPoint pointOfHls(const Hls& hls) {
    return {static_cast<int>(kLastColumn * hls.H), rowOfPart(hls.S)};
}

int rowOfLightness(float L) {
    return rowOfPart(L);
}

Hls hlsOfPoint(FieldPoint point, float L) {
    const int column = std::clamp(point.x, 0, kHueFieldWidth - 1);
    float H = static_cast<float>(column) / kLastColumn;
    if (static_cast<int>(kLastColumn * H) < column) {
        H = std::nextafter(H, 1.0F);  // the cross stands where it was put
    }
    return {H, L, partOfRow(point.y)};
}

float lightnessOfRow(int row) {
    return partOfRow(row);
}

Couleur fieldColour(const Hls& hls, bool bits16) {
    const Couleur colour = couleurFromHls(hls);
    return bits16 ? nearest16Bits(colour) : colour;
}

Image hueField(float L, bool bits16) {
    Image field(kHueFieldWidth, kHueFieldHeight);
    for (int y = 0; y < kHueFieldHeight; ++y) {
        for (int x = 0; x < kHueFieldWidth; ++x) {
            field.setPixel(x, y, fieldColour(hlsOfPoint({x, y}, L), bits16));
        }
    }
    return field;
}

Image lightnessStrip(const Hls& hls, bool bits16) {
    Image strip(1, kHueFieldHeight);
    for (int y = 0; y < kHueFieldHeight; ++y) {
        strip.setPixel(0, y, fieldColour({hls.H, lightnessOfRow(y), hls.S}, bits16));
    }
    return strip;
}

}  // namespace quillmark
