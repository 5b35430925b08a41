// When edits that stand in the text view are kept: a while after the last key, not too often.
#pragma once

#include <algorithm>
#include <chrono>
#include <optional>

namespace quillmark {

class BackupPace {
  public:
    using Time = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::milliseconds;

    // How long to wait after a key typed at `now`, when no other follows.
    [[nodiscard]] Duration wait(Time now) const {
        const Time due = std::max(now + kPause, last_ ? *last_ + kBetween : now);
        return std::chrono::duration_cast<Duration>(due - now);
    }
    void kept(Time now) { last_ = now; }

  private:
    static constexpr Duration kPause = std::chrono::seconds(10);
    static constexpr Duration kBetween = std::chrono::minutes(1);
    std::optional<Time> last_;
};

}  // namespace quillmark
