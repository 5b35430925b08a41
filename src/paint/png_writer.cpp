#include "paint/png_writer.h"

#include <zlib.h>

#include <array>
#include <cassert>
#include <new>
#include <string_view>

namespace quillmark {
namespace {

constexpr std::array<std::uint8_t, 8> kSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kChunkSize = std::size_t{1} << 16U;
constexpr std::uint8_t kNoFilter = 0;

void appendNumber(Bytes& file, std::uint32_t value) {
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        file.push_back(static_cast<std::uint8_t>(value >> shift & 0xFFU));
    }
}

void appendChunk(Bytes& file, std::string_view name, ByteView content) {
    appendNumber(file, static_cast<std::uint32_t>(content.size()));
    const std::size_t checked = file.size();
    file.insert(file.end(), name.begin(), name.end());
    file.insert(file.end(), content.begin(), content.end());
    appendNumber(
        file, static_cast<std::uint32_t>(crc32_z(0, file.data() + checked, file.size() - checked)));
}

}  // namespace

struct PngWriter::Stream {
    z_stream state{};
    Bytes chunk = Bytes(kChunkSize);
    std::uint32_t rowSize = 0;
};

PngWriter::PngWriter(std::uint32_t width, std::uint32_t height)
    : file_(kSignature.begin(), kSignature.end()), stream_(std::make_unique<Stream>()) {
    if (deflateInit(&stream_->state, Z_DEFAULT_COMPRESSION) != Z_OK) {
        throw std::bad_alloc();
    }
    stream_->rowSize = width * 3;
    stream_->state.next_out = stream_->chunk.data();
    stream_->state.avail_out = static_cast<uInt>(kChunkSize);
    Bytes header;
    appendNumber(header, width);
    appendNumber(header, height);
    constexpr std::array<std::uint8_t, 5> kEightBitsRgb{8, 2, 0, 0, 0};
    header.insert(header.end(), kEightBitsRgb.begin(), kEightBitsRgb.end());
    appendChunk(file_, "IHDR", header);
}

PngWriter::~PngWriter() {
    deflateEnd(&stream_->state);
}

void PngWriter::row(ByteView pixels) {
    assert(pixels.size() == stream_->rowSize);
    compress(ByteView(&kNoFilter, 1), false);
    compress(pixels, false);
}

Bytes PngWriter::finish() {
    compress({}, true);
    appendChunk(file_, "IEND", {});
    return std::move(file_);
}

void PngWriter::compress(ByteView bytes, bool last) {
    z_stream& state = stream_->state;
    state.next_in = const_cast<Bytef*>(bytes.data());  // zlib only reads it
    state.avail_in = static_cast<uInt>(bytes.size());
    int done = Z_OK;
    do {
        done = deflate(&state, last ? Z_FINISH : Z_NO_FLUSH);
        if (state.avail_out == 0 || done == Z_STREAM_END) {
            appendChunk(file_, "IDAT",
                        ByteView(stream_->chunk).first(kChunkSize - state.avail_out));
            state.next_out = stream_->chunk.data();
            state.avail_out = static_cast<uInt>(kChunkSize);
        }
    } while (last ? done != Z_STREAM_END : state.avail_in > 0);
}

}  // namespace quillmark
