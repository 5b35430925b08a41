#include "core/settings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/ascii.h"
#include "core/settings_table.h"

namespace quillmark {
namespace {

std::string place(std::string_view section, std::string_view key) {
    return loweredAscii(section) + '\0' + loweredAscii(key);
}

constexpr std::array<std::string_view, 4> kTrueWords{"true", "vrai", "yes", "oui"};
constexpr std::array<std::string_view, 4> kFalseWords{"false", "faux", "no", "non"};

template <std::size_t N>
bool contains(const std::array<std::string_view, N>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

std::optional<std::string> MemorySettings::read(std::string_view section,
                                                std::string_view key) const {
    const auto found = values_.find(place(section, key));
    if (found == values_.end()) {
        return std::nullopt;
    }
    return found->second;
}

void MemorySettings::write(std::string_view section, std::string_view key, std::string_view value) {
    values_[place(section, key)] = std::string(value);
}

bool readBoolean(const SettingsStore& store, std::string_view section, std::string_view key,
                 bool defaut) {
    const std::optional<std::string> stored = store.read(section, key);
    if (!stored) {
        return defaut;
    }
    const std::string word = loweredAscii(trimmed(*stored));
    if (contains(kTrueWords, word)) {
        return true;
    }
    if (contains(kFalseWords, word)) {
        return false;
    }
    // Not by the C library, whose decimal sign changes with the locale.
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool isNumber = error == std::errc() && end == word.data() + word.size();
    return isNumber && std::isfinite(number) ? number != 0.0 : defaut;
}

TextSettings readTextSettings(const SettingsStore& store) {
    const auto boolean = [&store](const SettingKey& key) {
        return readBoolean(store, key.section, key.key, key.defaut == "True");
    };
    return {boolean(keys::kFormatPOI), !boolean(keys::kMasquerTextePOI)};
}

}  // namespace quillmark
