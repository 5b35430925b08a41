// Stable sorts of records by a number that is worked out once for each.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillmark {

// `keyOf` yields a std::int64_t for a record. Records already in order aren't touched. Returns for
// each place the old index of the record that stands there now; empty when nothing moved.
template <typename Record, typename KeyOf>
std::vector<int> sortByKey(std::vector<Record>& records, KeyOf keyOf) {
    std::vector<std::pair<std::int64_t, std::size_t>> keys;
    keys.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        keys.emplace_back(keyOf(records[i]), i);
    }
    if (std::is_sorted(keys.begin(), keys.end())) {
        return {};
    }
    std::sort(keys.begin(), keys.end());
    std::vector<Record> sorted;
    std::vector<int> oldIndex;
    sorted.reserve(records.size());
    oldIndex.reserve(records.size());
    for (const auto& key : keys) {
        sorted.push_back(std::move(records[key.second]));
        oldIndex.push_back(static_cast<int>(key.second));
    }
    records = std::move(sorted);
    return oldIndex;
}

}  // namespace quillmark
