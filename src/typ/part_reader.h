// Reads the parts of one record, each under its own guard: a part that the data don't hold whole
// keeps what there was and zeros, its failure is noted, and the next part is read.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/bytes.h"

namespace quillmark {

class PartReader {
  public:
    PartReader(ByteView data, std::size_t position) : data_(data), position_(position) {}

    [[nodiscard]] std::size_t position() const noexcept { return position_; }
    [[nodiscard]] std::size_t remaining() const noexcept {
        return position_ < data_.size() ? data_.size() - position_ : 0;
    }
    // The byte `distance` ahead, which isn't consumed; nothing beyond the end.
    [[nodiscard]] std::optional<std::uint8_t> peek(std::size_t distance) const noexcept {
        if (distance >= remaining()) {
            return std::nullopt;
        }
        return data_[position_ + distance];
    }
    // 0 beyond the end.
    [[nodiscard]] std::uint8_t byte() {
        std::uint8_t value = 0;
        fill({&value, 1});
        return value;
    }
    void fill(std::span<std::uint8_t> target);
    [[nodiscard]] Bytes bytes(std::size_t size);

    void fail(const Failure& failure) { failures_.push_back({failure.number(), failure.what()}); }
    // A read of `size` bytes that there are too few for.
    void failRead(std::size_t size) { fail(ReadError(position_, size)); }
    [[nodiscard]] const std::vector<ErrorFacts>& failures() const noexcept { return failures_; }

  private:
    ByteView data_;
    std::size_t position_;
    std::vector<ErrorFacts> failures_;
};

}  // namespace quillmark
