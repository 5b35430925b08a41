// The moment that headers and comments carry. `SOURCE_DATE_EPOCH` sets it, so that builds repeat.
#pragma once

#include <ctime>

namespace quillmark {

struct DateTime {
    int year = 0;   // full year
    int month = 0;  // 1 to 12
    int day = 0;    // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool operator==(const DateTime&) const = default;
};

// Local time, or UTC of `SOURCE_DATE_EPOCH` (seconds since 1970) when that is set to a number.
[[nodiscard]] DateTime currentDateTime();

// The platform's local time of a moment, safe to ask for from any thread.
[[nodiscard]] std::tm localTime(std::time_t moment);

}  // namespace quillmark
