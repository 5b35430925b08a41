// Stable sorts of records by a number that is worked out once for each.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillmark {

// `keyOf` yields a std::int64_t for a record. Records already in order aren't touched.
template <typename Record, typename KeyOf>
void sortByKey(std::vector<Record>& records, KeyOf keyOf) {
    std::vector<std::pair<std::int64_t, std::size_t>> keys;
    keys.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        keys.emplace_back(keyOf(records[i]), i);
    }
    if (std::is_sorted(keys.begin(), keys.end())) {
        return;
    }
    std::sort(keys.begin(), keys.end());
    std::vector<Record> sorted;
    sorted.reserve(records.size());
    for (const auto& key : keys) {
        sorted.push_back(std::move(records[key.second]));
    }
    records = std::move(sorted);
}

}  // namespace quillmark
