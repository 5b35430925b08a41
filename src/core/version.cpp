#include "core/version.h"

#include <charconv>

#include "core/ascii.h"

namespace quillmark {
namespace {

constexpr std::uint32_t kLargestPart = 99;

// The number at the start of `text`, which moves behind it. Digits only.
std::optional<std::uint32_t> takeNumber(std::string_view& text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

bool takePoint(std::string_view& text) {
    if (text.empty() || text.front() != '.') {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

}  // namespace

std::string Version::text() const {
    return 'v' + std::to_string(Major) + '.' + std::to_string(Minor) + '.' +
           std::to_string(Revision);
}

std::optional<Version> readVersion(std::string_view note) {
    note = trimmed(note, " \t\r\n\v\f");
    if (!note.empty() && note.front() == 'v') {
        note.remove_prefix(1);
    }
    const auto major = takeNumber(note);
    const bool first = takePoint(note);
    const auto minor = takeNumber(note);
    const bool second = takePoint(note);
    const auto revision = takeNumber(note);
    if (!major || !first || !minor || !second || !revision || !note.empty() ||
        *minor > kLargestPart || *revision > kLargestPart) {
        return std::nullopt;
    }
    return Version{*major, *minor, *revision};
}

}  // namespace quillmark
