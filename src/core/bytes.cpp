#include "core/bytes.h"

#include <algorithm>

namespace quillmark {

void ByteReader::fill(std::span<std::uint8_t> target) {
    if (target.size() <= remaining()) {
        if (!target.empty()) {
            std::memcpy(target.data(), step(target.size()), target.size());
        }
        return;
    }
    const std::size_t there = remaining();
    const std::size_t start = position_;
    std::fill(target.begin(), target.end(), std::uint8_t{0});
    if (there > 0) {
        std::memcpy(target.data(), step(there), there);
    }
    throw ReadError(start, target.size());
}

}  // namespace quillmark
