// Fetches a version note. The one thing in the program that asks a network, and only where the
// settings name an address.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>

namespace quillmark {

inline constexpr int kFetchLimit = 10'000;        // milliseconds
inline constexpr int kLongestVersionNote = 4096;  // bytes

// `done` is called once from the event loop, unless `owner` is gone by then; with nothing when
// there is no note within the limits. Addresses other than http and https are never asked.
void fetchVersionNote(QObject* owner, const std::string& address,
                      std::function<void(const std::optional<std::string>&)> done);

}  // namespace quillmark
