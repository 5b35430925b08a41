// The index of a section: entries of one size that name an object (16 bits, type * 32 + subtype)
// and where its record begins, counted from the start of the data section. Active Routing lines
// have their two activity bytes in between.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/header_records.h"
#include "typ/read_context.h"

namespace quillmark {

struct IndexEntry {
    std::uint16_t identity = 0;
    std::array<std::uint8_t, 2> activity{};
    std::uint32_t offset = 0;
};

enum class IndexKind : std::uint8_t { plain, activeRouting };

// Bytes of an entry before the offset.
[[nodiscard]] constexpr std::size_t indexHeadSize(IndexKind kind) {
    return kind == IndexKind::plain ? 2 : 4;
}
// Records must begin within this many bytes: no entry has more than three bytes of offset.
inline constexpr std::size_t kMaxRecordOffset = 0xFFFFFF;
// The bytes of offset that a data section of this size takes.
[[nodiscard]] constexpr std::size_t offsetWidth(std::size_t dataSize) {
    return dataSize <= 0xFF ? 1 : dataSize <= 0xFFFF ? 2 : 3;
}

// At most `limit` entries, all of them whole; what is wrong with the index is told once.
[[nodiscard]] std::vector<IndexEntry> readIndex(ReadContext& context, const IndexPlace& place,
                                                IndexKind kind, std::size_t limit);
// Entries that an index of this place has within the file, at most `limit`; `least` bytes make an
// entry. Tells what is wrong.
[[nodiscard]] std::size_t countEntries(ReadContext& context, const IndexPlace& place,
                                       std::size_t least, std::size_t limit);

// The place of the index that was written; `dataSize` is the size of the section it belongs to.
IndexPlace writeIndex(ByteWriter& writer, const std::vector<IndexEntry>& entries, IndexKind kind,
                      std::size_t dataSize);

[[nodiscard]] inline SectionPlace placeBetween(std::size_t start, std::size_t end) {
    return {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end - start)};
}
// Type * 32 + SubType as a signed 16-bit number; throws Failure (6) for a type of 0x400 or above.
[[nodiscard]] std::uint16_t checkedIdentity(const std::string& Type, const std::string& SubType,
                                            int largest = 0x7FFF);
// Throws Failure (6) for a record that begins beyond what an index entry can say.
[[nodiscard]] std::uint32_t checkedOffset(std::size_t offset);

// The distance from a record to the next higher offset, or to the end of the section: the bytes
// that the record has. May be negative in a damaged file.
class RecordRooms {
  public:
    RecordRooms(const std::vector<IndexEntry>& entries, std::uint32_t sectionSize);
    [[nodiscard]] std::int64_t room(std::uint32_t offset);

  private:
    std::vector<std::uint32_t> offsets_;  // ascending
    std::size_t hint_ = 0;
    std::uint32_t sectionSize_;
};

// Tells of a section that reaches beyond the file.
void tellPastEnd(ReadContext& context, const SectionPlace& place);
// True when the records of a section can be looked for at all; tells what is wrong with it.
[[nodiscard]] bool dataSectionThere(ReadContext& context, const SectionPlace& place);
// True when a record begins at this position and the file may still cost something; tells why not.
[[nodiscard]] bool recordThere(ReadContext& context, std::size_t position);

}  // namespace quillmark
