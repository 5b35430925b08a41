// A picture as a buffer of colours, for all drawing that needs no toolkit.
#pragma once

#include <cassert>
#include <cstddef>
#include <vector>

#include "bitmap/colour.h"
#include "core/bytes.h"

namespace quillmark {

// In pixels.
struct Rectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

class Image {
  public:
    Image() = default;
    Image(int width, int height, Couleur fill = 0);

    [[nodiscard]] int width() const noexcept { return width_; }
    [[nodiscard]] int height() const noexcept { return height_; }
    [[nodiscard]] bool contains(int x, int y) const noexcept {
        return x >= 0 && x < width_ && y >= 0 && y < height_;
    }
    [[nodiscard]] Couleur pixel(int x, int y) const { return pixels_[place(x, y)]; }
    void setPixel(int x, int y, Couleur colour) { pixels_[place(x, y)] = colour; }

    // Keeps the upper left part that fits; what is new takes `fill`.
    void resize(int width, int height, Couleur fill);
    // Copies a rectangle of `source`, which may be this image itself. Parts that lie outside
    // either image are left out, here and in the next two.
    void copy(const Image& source, const Rectangle& from, int x, int y);
    // The same, scaled to `to` by taking the nearest pixel.
    void stretch(const Image& source, const Rectangle& from, const Rectangle& to);
    // Draws a one-bit picture of the size of `to`: rows of `rowBytes` bytes, lowest bit first.
    // Bits that aren't there count as 0.
    void drawOneBit(ByteView bits, std::size_t rowBytes, const Rectangle& to, Couleur zero,
                    Couleur one);

    bool operator==(const Image&) const = default;

  private:
    [[nodiscard]] std::size_t place(int x, int y) const {
        assert(contains(x, y));
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

    int width_ = 0;
    int height_ = 0;
    std::vector<Couleur> pixels_;  // row after row
};

}  // namespace quillmark
