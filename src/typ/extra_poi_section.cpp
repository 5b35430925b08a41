#include "typ/extra_poi_section.h"

#include <algorithm>

#include "typ/poi_records.h"
#include "typ/record_order.h"

namespace quillmark {
namespace {

constexpr std::uint8_t kWidthBits = 0x18;
constexpr std::size_t kMaxMembersOfGroup = 255;
// Of all groups together: a bound on memory far above any file that is used.
constexpr std::size_t kMaxMembers = 131072;
constexpr std::size_t kLeastMemberSize = 6;  // prefix and the head of a point
constexpr std::size_t kTwoBytePrefix = 1U << 7U;
constexpr std::size_t kThreeBytePrefix = 1U << 14U;

std::size_t brandWidth(std::uint8_t flags) {
    return (flags & kWidthBits) / 8U + 1U;
}

std::size_t offsetWidthOfGroups(std::size_t dataSize) {
    return dataSize <= 0xFF ? 1 : dataSize <= 0xFFFF ? 2 : dataSize <= 0xFFFFFF ? 3 : 4;
}

std::size_t neededWidth(std::uint32_t largest) {
    return largest <= 0xFF ? 1 : largest <= 0xFFFF ? 2 : largest <= 0xFFFFFF ? 3 : 4;
}

std::uint8_t newFlags(std::uint8_t flags, std::size_t width) {
    // The masks for 1 and 4 leave the width bits alone, as files in use have them.
    const unsigned masked = width == 1   ? flags | 0xE7U
                            : width == 2 ? (flags & 0xEFU) | 0x08U
                            : width == 3 ? (flags | 0x10U) & 0xF7U
                                         : flags & 0x18U;
    const auto result = static_cast<std::uint8_t>(masked);
    // A reader goes by these bits, so they must not say less than the identifiers need.
    return brandWidth(result) < width ? static_cast<std::uint8_t>(result | kWidthBits) : result;
}

void writePrefix(ByteWriter& writer, std::size_t length) {
    const auto value = static_cast<std::uint32_t>(length);
    if (length < kTwoBytePrefix) {
        writer.number(value * 2 + 1, 1);
    } else if (length < kThreeBytePrefix) {
        writer.number(value * 4 + 2, 2);
    } else {
        writer.number(value * 8 + 4, 3);
    }
}

std::size_t readPrefix(ByteReader& cursor) {
    ByteReader ahead = cursor;
    const std::uint8_t first = ahead.u8();
    if ((first & 1U) != 0) {
        return cursor.number(1) >> 1U;
    }
    return (first & 2U) != 0 ? cursor.number(2) >> 2U : cursor.number(3) >> 3U;
}

class MemberReader {
  public:
    MemberReader(ReadContext& context, ByteView data, Document& document)
        : context_(context),
          data_(data),
          document_(document),
          left_(std::min(kMaxMembers, context.file().size() / kLeastMemberSize)) {}

    void run() {
        const bool byOffset = offsetsAreAnotherOrder();
        for (ExtraPOI& group : document_.ExtraPOI) {
            if (byOffset) {
                position_ = static_cast<std::size_t>(group.Offset);
            }
            // A group without members leaves the position at its count, so that a file may have
            // one count for several such groups; where the index knows better it is believed.
            if (afterEmpty_ && group.Offset == static_cast<std::int32_t>(position_ + 1)) {
                ++position_;
            }
            if (!readGroup(group)) {
                return;
            }
        }
    }

  private:
    // Where groups begin when each stands behind the one before; nothing when that can't be told.
    [[nodiscard]] std::vector<std::size_t> consecutiveStarts() const {
        std::vector<std::size_t> starts;
        ByteReader cursor(data_);
        try {
            for (std::size_t i = 0; i < document_.ExtraPOI.size(); ++i) {
                starts.push_back(cursor.position());
                const std::uint8_t count = cursor.u8();
                for (unsigned member = 0; member < count; ++member) {
                    const std::size_t length = readPrefix(cursor);
                    (void)cursor.take(length);
                    if (length == 0) {
                        return {};
                    }
                }
                if (count == 0) {
                    return {};
                }
            }
        } catch (const ReadError&) {
            return {};
        }
        return starts;
    }

    // Groups are found one behind the other, in the order of the index. Where the index names just
    // those places in another order, going by it keeps each group with its own identifier.
    [[nodiscard]] bool offsetsAreAnotherOrder() const {
        const std::vector<std::size_t> starts = consecutiveStarts();
        std::vector<std::size_t> named;
        for (const ExtraPOI& group : document_.ExtraPOI) {
            named.push_back(static_cast<std::uint32_t>(group.Offset));
        }
        if (starts.empty() || named == starts) {
            return false;
        }
        std::sort(named.begin(), named.end());
        return named == starts;
    }

    bool readGroup(ExtraPOI& group) {
        context_.setGroup(static_cast<std::uint32_t>(group.BrandID));
        return context_.guarded([&] {
            const std::uint8_t count = ByteReader(data_, position_).u8();
            afterEmpty_ = count == 0;
            if (count == 0) {
                return;
            }
            ++position_;
            group.POI.reserve(std::min<std::size_t>(count, left_));
            for (unsigned i = 0; i < count; ++i) {
                readMember(group);
                group.NbPOI = static_cast<std::uint8_t>(group.POI.size());
            }
        });
    }

    void readMember(ExtraPOI& group) {
        if (left_ == 0) {
            throw Failure(ErrorNumber::overflow, "trop de POI dans les Extra POI");
        }
        ByteReader cursor(data_, position_);
        const std::size_t length = readPrefix(cursor);
        --left_;
        POI& member = group.POI.emplace_back();
        if (length == 0) {
            return;  // the position stays before the prefix
        }
        if (context_.exhausted()) {
            return;
        }
        const ByteView record =
            data_.subspan(cursor.position(), std::min(length, data_.size() - cursor.position()));
        position_ = cursor.position() + record.size();
        const auto heading = [&] {
            return "POI, " + context_.Trad("Icones", "Brand ID", "BrandID") + ": " +
                   std::to_string(static_cast<std::uint32_t>(group.BrandID));
        };
        readPoi(context_, {record, 0, static_cast<std::int64_t>(length)}, heading, member);
        raiseDimension(document_.MaxDimensionExtraPOI, member);
    }

    ReadContext& context_;
    ByteView data_;
    Document& document_;
    std::size_t left_;
    std::size_t position_ = 0;
    bool afterEmpty_ = false;
};

}  // namespace

std::vector<ExtraPOI> readExtraPoiIndex(ReadContext& context, const EnteteExtraPOI& header) {
    const std::size_t width = brandWidth(header.flags);
    std::vector<ExtraPOI> groups(countEntries(context, header.index, width, kMaxObjects));
    const std::size_t offsetBytes = std::min<std::size_t>(
        4, header.index.entrySize - std::min<std::size_t>(width, header.index.entrySize));
    for (std::size_t i = 0; i < groups.size(); ++i) {
        ByteReader cursor(context.file(), header.index.offset + i * header.index.entrySize);
        groups[i].BrandID = static_cast<std::int32_t>(cursor.number(width));
        groups[i].Offset = static_cast<std::int32_t>(cursor.number(offsetBytes));
    }
    return groups;
}

void readExtraPoiMembers(ReadContext& context, Document& document) {
    document.MaxDimensionExtraPOI = 0;
    if (document.ExtraPOI.empty()) {
        return;
    }
    const SectionPlace& place = document.EnteteExtraPOI.data;
    if (!dataSectionThere(context, place)) {
        return;
    }
    const ByteView data = context.file().subspan(
        place.offset, std::min<std::size_t>(place.size, context.file().size() - place.offset));
    MemberReader(context, data, document).run();
    context.setGroup(std::nullopt);
}

std::vector<int> sortGroups(std::vector<ExtraPOI>& groups) {
    return sortByKey(groups, [](const ExtraPOI& group) { return std::int64_t{group.BrandID}; });
}

EnteteExtraPOI writeExtraPoi(ByteWriter& writer, std::vector<ExtraPOI>& groups,
                             const EnteteExtraPOI& old) {
    EnteteExtraPOI header;
    header.flags = old.flags;
    if (groups.empty()) {
        return header;
    }
    std::uint32_t largest = 0;
    std::size_t members = 0;
    const std::size_t start = writer.position();
    for (ExtraPOI& group : groups) {
        if (group.POI.size() > kMaxMembersOfGroup) {
            throw Failure(ErrorNumber::overflow, "plus de 255 POI dans un Extra POI");
        }
        members += group.POI.size();
        if (members > kMaxMembers) {
            throw Failure(ErrorNumber::overflow,
                          "plus de " + std::to_string(kMaxMembers) + " POI dans les Extra POI");
        }
        largest = std::max(largest, static_cast<std::uint32_t>(group.BrandID));
        group.Offset = static_cast<std::int32_t>(writer.position() - start);
        group.NbPOI = static_cast<std::uint8_t>(group.POI.size());
        writer.u8(group.NbPOI);
        for (POI& member : group.POI) {
            const std::size_t length = recordSize(member);
            member.Longueur = static_cast<std::int32_t>(length);
            writePrefix(writer, length);
            writePoi(writer, member);
        }
    }
    header.data = placeBetween(start, writer.position());
    header.flags = newFlags(header.flags, neededWidth(largest));
    const std::size_t width = brandWidth(header.flags);
    const std::size_t offsetBytes = offsetWidthOfGroups(header.data.size);
    header.index.offset = static_cast<std::uint32_t>(writer.position());
    header.index.entrySize = static_cast<std::uint16_t>(width + offsetBytes);
    for (const ExtraPOI& group : groups) {
        writer.number(static_cast<std::uint32_t>(group.BrandID), width);
        writer.number(static_cast<std::uint32_t>(group.Offset), offsetBytes);
    }
    header.index.size = static_cast<std::uint32_t>(writer.position() - header.index.offset);
    return header;
}

}  // namespace quillmark
