#include "core/clock.h"

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "core/ascii.h"

namespace quillmark {
namespace {

constexpr std::int64_t kEndOfYear9999 = 253402300799;

std::optional<std::int64_t> fixedMoment() {
    const char* variable = std::getenv("SOURCE_DATE_EPOCH");
    if (variable == nullptr) {
        return std::nullopt;
    }
    const auto seconds = wholeNumber<std::int64_t>(variable);
    const bool fits = seconds && *seconds >= 0 && *seconds <= kEndOfYear9999;
    return fits ? seconds : std::nullopt;
}

DateTime utc(std::int64_t seconds) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(seconds)};
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

}  // namespace

DateTime currentDateTime() {
    if (const auto seconds = fixedMoment()) {
        return utc(*seconds);
    }
    const std::tm now = localTime(std::time(nullptr));
    return {now.tm_year + 1900, now.tm_mon + 1, now.tm_mday, now.tm_hour, now.tm_min, now.tm_sec};
}

}  // namespace quillmark
