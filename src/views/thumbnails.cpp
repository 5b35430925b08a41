#include "views/thumbnails.h"

#include <algorithm>

#include "views/device_pixels.h"

namespace quillmark {
namespace {

std::size_t bytesOf(const Image& image) {
    return static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()) *
           sizeof(Couleur);
}

void layCentred(Image& square, const Image& tile, int scale) {
    layOver(square, tile, floorHalf(square.width() - tile.width() * scale),
            floorHalf(square.height() - tile.height() * scale), scale);
}

// Patterns go on over the whole square, lines over its width.
void layRepeated(Image& square, const Image& tile, bool line, int scale) {
    const int width = tile.width() * scale;
    const int height = tile.height() * scale;
    int y = line ? floorHalf(square.height() - height) : 0;
    do {
        for (int x = 0; x < square.width(); x += width) {
            layOver(square, tile, x, y, scale);
        }
        y += height;
    } while (!line && y < square.height());
}

// A point is shown whole: larger ones are made smaller.
void layWhole(Image& square, const Image& tile, int scale) {
    const int side = square.width();
    const int largest = std::max(tile.width(), tile.height());
    scale = std::min(scale, side / largest);
    if (scale > 0) {
        return layCentred(square, tile, scale);
    }
    const auto fitted = [&](int length) { return std::max(1, length * side / largest); };
    layCentred(square, shrunk(tile, fitted(tile.width()), fitted(tile.height())), 1);
}

Image inSquare(const Picture& picture, ObjectKind kind, const ThumbnailShape& shape, bool night) {
    const int side = deviceLength(shape.side, shape.ratio);
    const int scale = deviceScale(1, shape.ratio);
    const Image& tile = picture.image;
    const bool empty = tile.width() == 0 || tile.height() == 0;
    if (empty && !picture.faults.any()) {
        return {};
    }
    Image square(side, side, kTransparent);
    if (!empty) {
        const bool line = kind == ObjectKind::Polyline;
        if (line || kind == ObjectKind::Polygone) {
            layRepeated(square, tile, line, scale);
        } else {
            layWhole(square, tile, scale);
        }
    }
    paintGround(square, shape.ground, night, scale);
    if (picture.faults.any()) {
        const Image mark = faultMark();
        layOver(square, mark, side - (mark.width() + 1) * scale, side - (mark.height() + 1) * scale,
                scale);
    }
    return square;
}

}  // namespace

void Thumbnails::setShape(const ThumbnailShape& shape) {
    if (!(shape == shape_)) {
        shape_ = shape;
        cache_.clear();
    }
}

std::shared_ptr<const Thumbnail> Thumbnails::of(const ObjectRef& object) {
    const auto make = [&] {
        const ObjectPictures pictures = afficheObjet(document_, object, shape_.blended);
        Thumbnail thumbnail;
        thumbnail.day = inSquare(pictures.day, object.kind, shape_, false);
        if (pictures.hasNight) {
            thumbnail.night = inSquare(pictures.night, object.kind, shape_, true);
        }
        return thumbnail;
    };
    return cache_.get(pictureContent(document_, object), make, [](const Thumbnail& thumbnail) {
        return sizeof(Thumbnail) + bytesOf(thumbnail.day) + bytesOf(thumbnail.night);
    });
}

}  // namespace quillmark
