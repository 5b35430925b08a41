#include "bitmap/image.h"

#include <algorithm>
#include <cstdint>

namespace quillmark {
namespace {

// The part of `to` that lies in a picture of this size, relative to `to`.
struct Span {
    int first;
    int last;  // behind the end
};
Span visible(int start, int length, int size) {
    return {std::max(0, -start), std::min(length, size - start)};
}

int scaled(int offset, int from, int to) {
    return static_cast<int>(std::int64_t{offset} * from / to);
}

}  // namespace

Image::Image(int width, int height, Couleur fill)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill) {
    assert(width >= 0 && height >= 0);
}

void Image::resize(int width, int height, Couleur fill) {
    Image resized(width, height, fill);
    resized.copy(*this, {0, 0, width_, height_}, 0, 0);
    *this = std::move(resized);
}

void Image::copy(const Image& source, const Rectangle& from, int x, int y) {
    stretch(source, from, {x, y, from.width, from.height});
}

void Image::stretch(const Image& source, const Rectangle& from, const Rectangle& to) {
    if (&source == this) {
        return stretch(Image(source), from, to);
    }
    const Span columns = visible(to.x, to.width, width_);
    const Span rows = visible(to.y, to.height, height_);
    for (int row = rows.first; row < rows.last; ++row) {
        const int sourceY = from.y + scaled(row, from.height, to.height);
        for (int column = columns.first; column < columns.last; ++column) {
            const int sourceX = from.x + scaled(column, from.width, to.width);
            if (source.contains(sourceX, sourceY)) {
                setPixel(to.x + column, to.y + row, source.pixel(sourceX, sourceY));
            }
        }
    }
}

void Image::drawOneBit(ByteView bits, std::size_t rowBytes, const Rectangle& to, Couleur zero,
                       Couleur one) {
    const Span columns = visible(to.x, to.width, width_);
    const Span rows = visible(to.y, to.height, height_);
    for (int row = rows.first; row < rows.last; ++row) {
        for (int column = columns.first; column < columns.last; ++column) {
            const auto bit = static_cast<std::size_t>(column);
            const std::size_t byte = static_cast<std::size_t>(row) * rowBytes + bit / 8;
            const bool set = byte < bits.size() && (bits[byte] >> (bit % 8) & 1) != 0;
            setPixel(to.x + column, to.y + row, set ? one : zero);
        }
    }
}

}  // namespace quillmark
