#include "core/settings_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "core/ascii.h"

namespace quillmark {
namespace {

constexpr int kTwipsPerPixel = 15;
// Far beyond any screen, and safe to compute with.
constexpr double kLargestTwips = 1.0e7;

std::optional<int> pixelsOf(std::string_view text) {
    std::string number(trimmed(text));
    std::replace(number.begin(), number.end(), ',', '.');
    double twips = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), twips);
    if (error != std::errc() || end != number.data() + number.size() ||
        !(std::abs(twips) <= kLargestTwips)) {  // nor what is no number at all
        return std::nullopt;
    }
    return static_cast<int>(std::lround(std::trunc(twips) / kTwipsPerPixel));
}

}  // namespace

bool Settings::isStored(const SettingKey& key) const {
    return store_.read(key.section, key.key).has_value();
}

std::string Settings::text(const SettingKey& key) const {
    return store_.read(key.section, key.key).value_or(std::string(key.defaut));
}

bool Settings::boolean(const SettingKey& key) const {
    const bool defaut = key.defaut == "True" || key.defaut == "1";
    return readBoolean(store_, key.section, key.key, defaut);
}

int Settings::number(const SettingKey& key) const {
    const std::optional<int> value = wholeNumber<int>(trimmed(text(key)));
    const bool bounded = key.form == SettingForm::number;
    if (value && (!bounded || (*value >= key.low && *value <= key.high))) {
        return *value;
    }
    return wholeNumber<int>(key.defaut).value_or(0);
}

int Settings::pixels(const SettingKey& key) const {
    return pixelsOf(text(key)).value_or(pixelsOf(key.defaut).value_or(0));
}

void Settings::setText(const SettingKey& key, std::string_view value) {
    store_.write(key.section, key.key, value);
}

void Settings::setBoolean(const SettingKey& key, bool value) {
    const bool words = key.form == SettingForm::words;
    setText(key, words ? (value ? "True" : "False") : (value ? "1" : "0"));
}

void Settings::setNumber(const SettingKey& key, int value) {
    setText(key, std::to_string(value));
}

void Settings::setPixels(const SettingKey& key, int pixels) {
    setText(key, std::to_string(pixels * kTwipsPerPixel));
}

}  // namespace quillmark
