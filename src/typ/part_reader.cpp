#include "typ/part_reader.h"

#include <algorithm>

namespace quillmark {

void PartReader::fill(std::span<std::uint8_t> target) {
    if (target.size() <= remaining()) {
        std::copy_n(data_.begin() + static_cast<std::ptrdiff_t>(position_), target.size(),
                    target.begin());
        position_ += target.size();
        return;
    }
    ByteReader cursor(data_, position_);
    try {
        cursor.fill(target);
    } catch (const Failure& failure) {
        fail(failure);
    }
    position_ = cursor.position();
}

Bytes PartReader::bytes(std::size_t size) {
    if (size <= remaining()) {
        const ByteView part = data_.subspan(position_, size);
        position_ += size;
        return {part.begin(), part.end()};
    }
    Bytes part(size);
    fill(part);
    return part;
}

}  // namespace quillmark
