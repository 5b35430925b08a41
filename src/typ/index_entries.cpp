#include "typ/index_entries.h"

#include <algorithm>

namespace quillmark {

void tellPastEnd(ReadContext& context, const SectionPlace& place) {
    context.error(ErrorNumber::readPastEnd, "section hors du fichier : position " +
                                                std::to_string(place.offset) + ", taille " +
                                                std::to_string(place.size));
}

std::size_t countEntries(ReadContext& context, const IndexPlace& place, std::size_t least,
                         std::size_t limit) {
    if (place.size == 0) {
        return 0;
    }
    if (place.entrySize < least) {
        context.error(ErrorNumber::other, "index de " + std::to_string(place.size) +
                                              " octets, entrées de " +
                                              std::to_string(place.entrySize));
        return 0;
    }
    const std::size_t entrySize = place.entrySize;
    std::size_t count = (std::size_t{place.size} + entrySize / 2) / entrySize;
    const std::size_t fileSize = context.file().size();
    const std::size_t there =
        place.offset < fileSize ? (fileSize - place.offset) / entrySize : std::size_t{0};
    if (count > there) {
        tellPastEnd(context, {place.offset, place.size});
        count = there;
    }
    if (count > limit) {
        context.error(ErrorNumber::overflow, "index de " + std::to_string(count) + " entrées, " +
                                                 std::to_string(limit) + " au plus");
        count = limit;
    }
    return count;
}

std::vector<IndexEntry> readIndex(ReadContext& context, const IndexPlace& place, IndexKind kind,
                                  std::size_t limit) {
    const std::size_t head = indexHeadSize(kind);
    std::vector<IndexEntry> entries(countEntries(context, place, head, limit));
    const std::uint8_t* p = context.file().data() + (entries.empty() ? 0 : place.offset);
    const std::size_t width =
        std::min<std::size_t>(4, place.entrySize - std::min<std::size_t>(head, place.entrySize));
    for (IndexEntry& entry : entries) {
        entry.identity = static_cast<std::uint16_t>(p[0] | p[1] << 8U);
        if (kind == IndexKind::activeRouting) {
            entry.activity = {p[2], p[3]};
        }
        for (std::size_t i = width; i-- > 0;) {
            entry.offset = entry.offset << 8U | p[head + i];
        }
        p += place.entrySize;
    }
    return entries;
}

IndexPlace writeIndex(ByteWriter& writer, const std::vector<IndexEntry>& entries, IndexKind kind,
                      std::size_t dataSize) {
    const std::size_t width = offsetWidth(dataSize);
    const std::size_t start = writer.position();
    for (const IndexEntry& entry : entries) {
        writer.u16(entry.identity);
        if (kind == IndexKind::activeRouting) {
            writer.bytes(entry.activity);
        }
        writer.number(entry.offset, width);
    }
    return {static_cast<std::uint32_t>(start),
            static_cast<std::uint16_t>(indexHeadSize(kind) + width),
            static_cast<std::uint32_t>(writer.position() - start)};
}

std::uint16_t checkedIdentity(const std::string& Type, const std::string& SubType, int largest) {
    const int identity = identityValue(Type, SubType);
    // A subtype of more than five bits would make it another type.
    if (identity < 0 || identity > largest || typeValue(SubType) > 0x1F) {
        throw Failure(ErrorNumber::overflow,
                      "type trop grand pour le fichier : 0x" + Type + '/' + SubType);
    }
    return static_cast<std::uint16_t>(identity);
}

std::uint32_t checkedOffset(std::size_t offset) {
    if (offset > kMaxRecordOffset) {
        throw Failure(ErrorNumber::overflow, "section de données de plus de " +
                                                 std::to_string(kMaxRecordOffset) + " octets");
    }
    return static_cast<std::uint32_t>(offset);
}

RecordRooms::RecordRooms(const std::vector<IndexEntry>& entries, std::uint32_t sectionSize)
    : sectionSize_(sectionSize) {
    offsets_.reserve(entries.size());
    for (const IndexEntry& entry : entries) {
        offsets_.push_back(entry.offset);
    }
    if (!std::is_sorted(offsets_.begin(), offsets_.end())) {
        std::sort(offsets_.begin(), offsets_.end());
    }
}

std::int64_t RecordRooms::room(std::uint32_t offset) {
    // Records mostly come in the order of their offsets: the next one is where the last one was.
    const bool hintHolds = hint_ < offsets_.size() && offsets_[hint_] > offset &&
                           (hint_ == 0 || offsets_[hint_ - 1] <= offset);
    if (!hintHolds) {
        hint_ = static_cast<std::size_t>(
            std::upper_bound(offsets_.begin(), offsets_.end(), offset) - offsets_.begin());
    }
    const std::int64_t end = hint_ < offsets_.size() ? offsets_[hint_] : sectionSize_;
    ++hint_;
    return end - offset;
}

bool dataSectionThere(ReadContext& context, const SectionPlace& place) {
    const std::size_t end = std::size_t{place.offset} + place.size;
    const bool there = place.offset != 0 && place.offset < context.file().size();
    if (!there || end > context.file().size()) {
        tellPastEnd(context, place);
    }
    return there;
}

bool recordThere(ReadContext& context, std::size_t position) {
    if (position >= context.file().size()) {
        const ReadError failure(position, 1);
        context.error(failure.number(), failure.what());
        return false;
    }
    return !context.exhausted();
}

}  // namespace quillmark
