// Bytes of a file and the two ways through them: a bounded cursor that reads, and a growing end
// that is written to. All numbers are little-endian.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "core/errors.h"

namespace quillmark {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

// A read succeeds whole or throws ReadError and leaves the cursor where it was.
class ByteReader {
  public:
    explicit ByteReader(ByteView data, std::size_t position = 0)
        : data_(data), position_(position) {}

    [[nodiscard]] std::size_t position() const noexcept { return position_; }
    [[nodiscard]] std::size_t size() const noexcept { return data_.size(); }
    [[nodiscard]] std::size_t remaining() const noexcept {
        return position_ < data_.size() ? data_.size() - position_ : 0;
    }
    // May be set beyond the end: the next read throws then.
    void seek(std::size_t position) noexcept { position_ = position; }

    std::uint8_t u8() { return *step(1); }
    std::uint16_t u16() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t u32() { return number(4); }
    // 0 to 4 bytes.
    std::uint32_t number(std::size_t width) {
        const std::uint8_t* p = step(width);
        std::uint32_t value = 0;
        for (std::size_t i = width; i-- > 0;) {
            value = value << 8U | p[i];
        }
        return value;
    }
    ByteView take(std::size_t count) { return {step(count), count}; }

    // Fills `target`, which keeps what there was and zeros behind it when the data are too short;
    // the cursor then stands at the end and ReadError is thrown.
    void fill(std::span<std::uint8_t> target);

  private:
    const std::uint8_t* step(std::size_t count) {
        if (count > remaining()) {
            throw ReadError(position_, count);
        }
        const std::uint8_t* p = data_.data() + position_;
        position_ += count;
        return p;
    }

    ByteView data_;
    std::size_t position_ = 0;
};

class ByteWriter {
  public:
    [[nodiscard]] std::size_t position() const noexcept { return data_.size(); }
    void reserve(std::size_t size) { data_.reserve(size); }
    void u8(std::uint8_t value) { data_.push_back(value); }
    void u16(std::uint32_t value) { number(value, 2); }
    void u32(std::uint32_t value) { number(value, 4); }
    // The low `width` bytes of `value`, 0 to 4.
    void number(std::uint32_t value, std::size_t width) {
        for (std::size_t i = 0; i < width; ++i) {
            data_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
        }
    }
    void bytes(ByteView value) { data_.insert(data_.end(), value.begin(), value.end()); }
    void zeros(std::size_t count) { data_.resize(data_.size() + count); }
    // Overwrites bytes that were written before; `position + value.size()` must not pass the end.
    void overwrite(std::size_t position, ByteView value) {
        std::memcpy(data_.data() + position, value.data(), value.size());
    }
    [[nodiscard]] const Bytes& data() const noexcept { return data_; }
    Bytes release() { return std::move(data_); }

  private:
    Bytes data_;
};

}  // namespace quillmark
