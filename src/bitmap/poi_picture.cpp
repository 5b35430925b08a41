#include "bitmap/poi_picture.h"

#include <algorithm>
#include <array>

#include "bitmap/layers.h"
#include "bitmap/poi_coding.h"

namespace quillmark {
namespace {

constexpr std::uint8_t kTransparentAlpha = 15;

Couleur alphaPixel(const AlphaColour& item, bool blended) {
    if (item.alpha == kTransparentAlpha) {
        return kTransparent;
    }
    return seenThrough(item.colour, blended ? static_cast<std::uint8_t>(item.alpha * 17) : 0);
}

// What each pixel value looks like.
struct PixelColours {
    std::array<Couleur, 256> colour{};
    std::array<bool, 256> there{};
};

PixelColours paletteOf(const ImagePOI& source, bool blended) {
    PixelColours palette;
    palette.colour.fill(kTransparent);
    for (std::size_t i = 0; i < source.NbCouleurs; ++i) {
        const bool alpha = source.ColorMode == kModeAlpha;
        palette.there[i] = source.Couleurs.size() >= (alpha ? alphaStreamSize(i + 1) : (i + 1) * 3);
        if (palette.there[i]) {
            const AlphaColour item = paletteColour(source, i);
            palette.colour[i] = alpha ? alphaPixel(item, blended) : item.colour;
        }
    }
    if (source.ColorMode == kModeOneTransparent) {
        palette.there[source.NbCouleurs] = source.Retente != -1;
    }
    return palette;
}

void readIndexed(const ImagePOI& source, int bits, bool blended, Picture& picture) {
    Image& image = picture.image;
    const PixelColours palette = paletteOf(source, blended);
    const auto width = static_cast<std::size_t>(image.width());
    const auto rowBytes = static_cast<std::size_t>(GetRoundedWidth(bits, image.width()) * bits / 8);
    const std::size_t perByte = 8U / static_cast<std::size_t>(bits);
    std::array<std::uint8_t, 256> values{};
    ByteView rest = source.Bitmap;
    for (int y = 0; y < image.height(); ++y) {
        const ByteView row = rest.first(std::min(rowBytes, rest.size()));
        rest = rest.subspan(row.size());
        const std::size_t known = std::min(width, row.size() * perByte);
        unpackRow(row, bits, std::span(values).first(known));
        for (std::size_t x = 0; x < known; ++x) {
            image.setPixel(static_cast<int>(x), y, palette.colour[values[x]]);
            picture.faults.colours |= !palette.there[values[x]];
        }
        picture.faults.bytes |= known < width;
    }
}

void readTrueColours(const ImagePOI& source, bool blended, Picture& picture) {
    Image& image = picture.image;
    const bool key = source.ColorMode == kModeOneTransparent;
    const ByteView bytes = source.Bitmap;
    const auto colourAt = [&](std::size_t position) {
        return couleurFromRgb(bytes[position + 2], bytes[position + 1], bytes[position]);
    };
    const auto width = static_cast<std::size_t>(image.width());
    const std::size_t count = width * static_cast<std::size_t>(image.height());
    for (std::size_t i = 0; i < count; ++i) {
        Couleur pixel = kTransparent;
        if (source.ColorMode == kModeAlpha) {
            if (bytes.size() < alphaStreamSize(i + 1)) {
                picture.faults.bytes = true;
                return;
            }
            pixel = alphaPixel(readAlphaItem(bytes, i), blended);
        } else {
            const std::size_t position = (i + (key ? 1 : 0)) * 3;
            if (bytes.size() < position + 3) {
                picture.faults.bytes = true;
                return;
            }
            pixel = colourAt(position);
            if (key && pixel == colourAt(0)) {
                pixel = kTransparent;
            }
        }
        image.setPixel(static_cast<int>(i % width), static_cast<int>(i / width), pixel);
    }
}

}  // namespace

Picture poiPicture(const ImagePOI& source, int width, int height, bool blended) {
    Picture picture;
    if (width <= 0 || height <= 0) {
        return picture;
    }
    const auto bits = NbBitsParPixel(source.ColorMode, source.NbCouleurs);
    if (!bits) {
        picture.faults.colourMode = true;
        return picture;
    }
    picture.image = Image(width, height, kTransparent);
    if (source.NbCouleurs > 0 || source.Retente == -1) {
        readIndexed(source, *bits, blended, picture);
    } else {
        readTrueColours(source, blended, picture);
    }
    return picture;
}

}  // namespace quillmark
