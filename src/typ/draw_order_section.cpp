#include "typ/draw_order_section.h"

#include <algorithm>

#include "core/draw_order.h"
#include "typ/index_entries.h"

namespace quillmark {
namespace {

constexpr std::size_t kEntrySize = 5;
constexpr std::int32_t kFirstExtendedType = 0x100;
constexpr std::int32_t kMaskBits = 32;
// Readers take the size as a signed 16-bit number; these are the whole entries below that.
constexpr std::size_t kMaxSize = 0x7FFF / kEntrySize * kEntrySize;

struct Entry {
    std::uint8_t type = 0;
    std::uint32_t mask = 0;
    [[nodiscard]] bool isSeparator() const { return type == 0 && mask == 0; }
};

Entry readEntry(ByteReader& cursor) {
    const std::uint8_t type = cursor.u8();
    return {type, cursor.u32()};
}

class Reader {
  public:
    Reader(ByteView section, std::vector<DrawOrderItem>& items) : cursor_(section), items_(items) {}

    void run() {
        std::int32_t level = 1;
        while (cursor_.remaining() > 0) {
            Entry entry = readEntry(cursor_);
            if (entry.isSeparator()) {
                if (cursor_.remaining() == 0) {
                    return;
                }
                // Only one separator is skipped: a second one stands for type 0.
                entry = readEntry(cursor_);
                ++level;
            }
            if (entry.mask == 0) {
                add({level, entry.type, 0});
            }
            for (std::int32_t bit = 0; bit < kMaskBits; ++bit) {
                if ((entry.mask >> bit & 1U) != 0) {
                    add({level, kFirstExtendedType + entry.type, bit});
                }
            }
        }
    }

  private:
    void add(const DrawOrderItem& item) {
        if (items_.size() == kMaxObjects) {
            throw Failure(ErrorNumber::overflow, "ordre d'affichage de plus de " +
                                                     std::to_string(kMaxObjects) + " lignes");
        }
        items_.push_back(item);
    }

    ByteReader cursor_;
    std::vector<DrawOrderItem>& items_;
};

// The subtypes of the items from `first` to before `last`.
std::uint32_t subtypeMask(const DrawOrderItem* first, const DrawOrderItem* last) {
    std::uint32_t mask = 0;
    for (; first != last; ++first) {
        if (first->subtype < 0 || first->subtype >= kMaskBits) {
            throw Failure(ErrorNumber::overflow, drawOrderEntry(*first));
        }
        mask |= 1U << static_cast<unsigned>(first->subtype);
    }
    return mask;
}

// An entry has 8 bits for the type: what lies above is lost, and mustn't upset the order.
void normalise(Document& document) {
    RebatirDraworder(document);
    for (DrawOrderItem& item : document.DrawOrder) {
        if (item.type >= kFirstExtendedType) {
            item.type = kFirstExtendedType + (item.type & 0xFF);
        }
    }
    TrierDraworder(document.DrawOrder);
    // At the very beginning type 0 would be taken for a separator.
    const auto written = std::find_if(document.DrawOrder.begin(), document.DrawOrder.end(),
                                      [](const DrawOrderItem& item) { return item.type != 0; });
    document.DrawOrder.erase(document.DrawOrder.begin(), written);
    document.ListDraworder.clear();
    for (const DrawOrderItem& item : document.DrawOrder) {
        document.ListDraworder.push_back(drawOrderEntry(item));
    }
}

}  // namespace

void readDrawOrder(ReadContext& context, Document& document) {
    const IndexPlace& place = document.EnteteTYP.drawOrder;
    if (place.size == 0) {
        return;
    }
    const std::size_t size = std::min<std::size_t>(place.size, kMaxSize);
    if (place.size > kMaxSize) {
        context.error(ErrorNumber::overflow,
                      "ordre d'affichage de " + std::to_string(place.size) + " octets");
    }
    const ByteView file = context.file();
    // The last entry may reach beyond the section, but not beyond the file.
    const std::size_t start = std::min<std::size_t>(place.offset, file.size());
    const std::size_t wanted =
        std::min(kMaxSize, (size + kEntrySize - 1) / kEntrySize * kEntrySize);
    if (start + wanted > file.size()) {
        tellPastEnd(context, {place.offset, place.size});
    }
    const std::size_t there = std::min(wanted, (file.size() - start) / kEntrySize * kEntrySize);
    std::vector<DrawOrderItem> items;
    context.guarded([&] { Reader(file.subspan(start, there), items).run(); });
    TrierDraworder(items);
    document.ListDraworder.reserve(items.size());
    for (const DrawOrderItem& item : items) {
        document.ListDraworder.push_back(drawOrderEntry(item));
    }
    document.DrawOrder = std::move(items);
}

void writeDrawOrder(ByteWriter& writer, Document& document) {
    IndexPlace& place = document.EnteteTYP.drawOrder;
    place = {};
    if (document.ListDraworder.empty()) {
        return;
    }
    normalise(document);
    const std::size_t start = writer.position();
    const DrawOrderItem* const end = document.DrawOrder.data() + document.DrawOrder.size();
    std::int32_t level = 0;
    for (const DrawOrderItem* item = document.DrawOrder.data(); item != end;) {
        const DrawOrderItem* next = item + 1;
        while (next != end && next->level == item->level && next->type == item->type) {
            ++next;
        }
        const auto type = static_cast<std::uint8_t>(item->type);
        const std::uint32_t mask = item->type < kFirstExtendedType ? 0 : subtypeMask(item, next);
        if (writer.position() != start && item->level > level) {
            writer.zeros(kEntrySize);
        }
        writer.u8(type);
        writer.u32(mask);
        level = item->level;
        item = next;
    }
    const std::size_t size = writer.position() - start;
    if (size > kMaxSize) {
        throw Failure(ErrorNumber::overflow,
                      "ordre d'affichage de " + std::to_string(size) + " octets");
    }
    if (size > 0) {
        place = {static_cast<std::uint32_t>(start), kEntrySize, static_cast<std::uint32_t>(size)};
    }
}

}  // namespace quillmark
