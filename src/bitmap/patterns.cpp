#include "bitmap/patterns.h"

#include <algorithm>
#include <array>

#include "bitmap/layers.h"

namespace quillmark {
namespace {

constexpr std::uint8_t kOneWidthByte = colour_bits::kDayTransparent;  // without a border
constexpr std::size_t kRowBytes = kPatternSide / 8;
constexpr std::uint8_t kTransparentAlpha = 255;

// The two colours of a picture, as pixels.
struct Paint {
    Couleur first = kTransparent;
    Couleur second = kTransparent;
    bool firstMissing = false;
    bool secondMissing = false;
};

Couleur stored(const Bytes& Couleurs, int index, bool& missing) {
    if (index < 0) {
        return kTransparent;
    }
    const auto position = static_cast<std::size_t>(index) * 3;
    missing = Couleurs.size() < position + 3;
    return missing
               ? kTransparent
               : couleurFromRgb(Couleurs[position + 2], Couleurs[position + 1], Couleurs[position]);
}

Paint paintOf(const Bytes& Couleurs, const ColourPair& roles) {
    Paint paint;
    paint.first = stored(Couleurs, roles.first, paint.firstMissing);
    paint.second = stored(Couleurs, roles.second, paint.secondMissing);
    return paint;
}

// With a pattern 255 alone is transparent; without one all values count.
Couleur withAlpha(Couleur pixel, const Polygone& polygone, int index) {
    const auto i = static_cast<std::size_t>(index);
    if (index < 0 || i >= polygone.Alpha.size() || pixel == kTransparent) {
        return pixel;
    }
    const bool pattern = (polygone.Entete & polygon_bits::kBitmap) != 0;
    const std::uint8_t alpha = polygone.Alpha[i];
    return seenThrough(pixel, pattern && alpha != kTransparentAlpha ? 0 : alpha);
}

// Rows of 32 bits, lowest first; `image` is 32 wide.
void drawRows(Picture& picture, ByteView bits, const Paint& paint) {
    for (int y = 0; y < picture.image.height(); ++y) {
        for (int x = 0; x < kPatternSide; ++x) {
            const std::size_t byte =
                static_cast<std::size_t>(y) * kRowBytes + static_cast<std::size_t>(x) / 8;
            if (byte >= bits.size()) {
                picture.faults.bytes = true;
                return;
            }
            const bool set = (bits[byte] >> (x % 8) & 1) != 0;
            picture.image.setPixel(x, y, set ? paint.first : paint.second);
            picture.faults.colours |= set ? paint.firstMissing : paint.secondMissing;
        }
    }
}

}  // namespace

std::optional<ColourRoles> colourRoles(std::uint8_t Entete) {
    constexpr std::array<ColourRoles, 8> kRoles{{
        {{0, 1}, {0, 1}},
        {{0, 1}, {2, 3}},
        {},
        {{0, -1}, {1, 2}},
        {},
        {{0, 1}, {2, -1}},
        {{0, -1}, {0, -1}},
        {{0, -1}, {1, -1}},
    }};
    if (NombreCouleurs(Entete) < 0) {
        return std::nullopt;
    }
    return kRoles[Entete & colour_bits::kAll];
}

Picture polygonPicture(const Polygone& polygone, bool night, bool blended) {
    Picture picture;
    picture.faults.layout = !isKnownPolygon(polygone.Entete);
    const auto roles = colourRoles(polygone.Entete);
    if (!roles) {
        return picture;
    }
    const ColourPair& pair = night ? roles->night : roles->day;
    Paint paint = paintOf(polygone.Couleurs, pair);
    if (blended && (polygone.Entete & polygon_bits::kAlpha) != 0) {
        paint.first = withAlpha(paint.first, polygone, pair.first);
        paint.second = withAlpha(paint.second, polygone, pair.second);
    }
    if ((polygone.Entete & polygon_bits::kBitmap) != 0) {
        picture.image = Image(kPatternSide, kPatternSide, kTransparent);
        drawRows(picture, polygone.Bitmap, paint);
    } else {
        picture.image = Image(kPatternSide, kPatternSide, paint.first);
        picture.faults.colours = paint.firstMissing;
    }
    return picture;
}

LineWidths lineWidths(const Polyline& polyline) {
    const auto byte = [&](std::size_t i) {
        return i < polyline.Bitmap.size() ? int{polyline.Bitmap[i]} : 0;
    };
    LineWidths widths{byte(0), 0};
    if ((polyline.Entete & kOneWidthByte) == 0) {
        widths.border = std::max(0, (byte(1) - byte(0)) / 2);
    }
    return widths;
}

Picture linePicture(const Polyline& polyline, bool night) {
    Picture picture;
    const auto roles = colourRoles(polyline.Entete);
    if (!roles) {
        picture.faults.layout = true;
        return picture;
    }
    const Paint paint = paintOf(polyline.Couleurs, night ? roles->night : roles->day);
    const int rows = polyline.Entete >> 3;
    if (rows > 0) {
        picture.image = Image(kPatternSide, rows, kTransparent);
        drawRows(picture, polyline.Bitmap, paint);
        return picture;
    }
    const LineWidths widths = lineWidths(polyline);
    const bool oneByte = (polyline.Entete & kOneWidthByte) != 0;
    picture.faults.bytes = polyline.Bitmap.size() < (oneByte ? 1U : 2U);
    if (widths.height() == 0) {
        return picture;
    }
    picture.image = Image(kPatternSide, widths.height(), paint.second);
    for (int y = widths.border; y < widths.border + widths.width; ++y) {
        for (int x = 0; x < kPatternSide; ++x) {
            picture.image.setPixel(x, y, paint.first);
        }
    }
    picture.faults.colours =
        (paint.firstMissing && widths.width > 0) || (paint.secondMissing && widths.border > 0);
    return picture;
}

}  // namespace quillmark
