#include "core/draw_order.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>

#include "core/ascii.h"
#include "core/records.h"

namespace quillmark {
namespace {

// The number at the end of the last `width` characters, so that "0x5" is 5 as "005" is.
std::int32_t hexTail(std::string_view part, std::size_t width) {
    part = trimmed(part);
    part.remove_prefix(part.size() - std::min(part.size(), width));
    const std::size_t other = part.find_last_not_of("0123456789abcdefABCDEF");
    part.remove_prefix(other == std::string_view::npos ? 0 : other + 1);
    std::int32_t value = 0;
    std::from_chars(part.data(), part.data() + part.size(), value, 16);
    return value;
}

std::int32_t decimal(std::string_view part) {
    part = trimmed(part);
    std::int32_t value = 0;
    std::from_chars(part.data(), part.data() + part.size(), value);
    return value;
}

}  // namespace

void RebatirDraworder(Document& document) {
    if (document.ListDraworder.empty()) {
        return;
    }
    // An entry that can't be read is dropped: kept as a column of zeros it would come back as an
    // order of type 0x000 at level 0, which nobody gave.
    document.DrawOrder.clear();
    document.DrawOrder.reserve(document.ListDraworder.size());
    for (const std::string& entry : document.ListDraworder) {
        if (const auto item = parseDrawOrderEntry(entry)) {
            document.DrawOrder.push_back(*item);
        }
    }
    TrierDraworder(document.DrawOrder);
    document.ListDraworder.clear();
    for (const DrawOrderItem& item : document.DrawOrder) {
        document.ListDraworder.push_back(drawOrderEntry(item));
    }
}

void TrierDraworder(std::vector<DrawOrderItem>& table) {
    std::stable_sort(
        table.begin(), table.end(), [](const DrawOrderItem& a, const DrawOrderItem& b) {
            return std::tie(a.level, a.type, a.subtype) < std::tie(b.level, b.type, b.subtype);
        });
}

std::string drawOrderEntry(const DrawOrderItem& item) {
    std::string entry = "Type=0x" + hexText(static_cast<std::uint32_t>(item.type), 3);
    if (item.type >= 0x100 || item.subtype != 0) {
        entry += ",SubType=0x" + hexText(static_cast<std::uint32_t>(item.subtype), 2);
    }
    return entry + ',' + std::to_string(item.level);
}

std::optional<DrawOrderItem> parseDrawOrderEntry(std::string_view entry) {
    std::array<std::string_view, 3> parts;
    std::size_t count = 0;
    for (bool more = true; more; ++count) {
        if (count == parts.size()) {
            return std::nullopt;
        }
        const std::size_t comma = entry.find(',');
        more = comma != std::string_view::npos;
        parts[count] = entry.substr(0, comma);
        entry.remove_prefix(more ? comma + 1 : entry.size());
    }
    switch (count) {
        case 2:
            return DrawOrderItem{decimal(parts[1]), hexTail(parts[0], 3), 0};
        case 3:
            return DrawOrderItem{decimal(parts[2]), hexTail(parts[0], 3), hexTail(parts[1], 2)};
        default:
            return std::nullopt;
    }
}

}  // namespace quillmark
