// PNG files made row by row, so that a picture may be larger than memory.
#pragma once

#include <cstdint>
#include <memory>

#include "core/bytes.h"

namespace quillmark {

// Of 8 bits a channel, without transparency.
class PngWriter {
  public:
    PngWriter(std::uint32_t width, std::uint32_t height);
    ~PngWriter();
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    // The next row: red, green, blue for each pixel.
    void row(ByteView pixels);
    // The file, after the last row.
    [[nodiscard]] Bytes finish();

  private:
    struct Stream;
    void compress(ByteView bytes, bool last);

    Bytes file_;
    std::unique_ptr<Stream> stream_;
};

}  // namespace quillmark
