#include "editors/recent_colours.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include "core/ascii.h"

namespace quillmark {
namespace {

constexpr char kSeparator = ',';

std::optional<Couleur> colourFromText(std::string_view text) {
    text = trimmed(text);
    Couleur value = 0;
    if (text.size() != 7 || text.front() != '#' || text[1] == '-') {
        return std::nullopt;
    }
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data() + 1, last, value, 16);
    if (error != std::errc() || end != last) {
        return std::nullopt;
    }
    return EchangeRB(value);
}

}  // namespace

std::vector<Couleur> recentColours(const Settings& settings) {
    std::vector<Couleur> colours;
    const std::string stored = settings.text(keys::kCouleursRecentes);
    for (std::string_view rest = stored; !rest.empty() && colours.size() < kRecentColours;) {
        const std::size_t length = std::min(rest.find(kSeparator), rest.size());
        const auto colour = colourFromText(rest.substr(0, length));
        if (colour && std::find(colours.begin(), colours.end(), *colour) == colours.end()) {
            colours.push_back(*colour);
        }
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return colours;
}

void rememberColour(Settings& settings, Couleur colour) {
    std::vector<Couleur> colours = recentColours(settings);
    std::erase(colours, colour);
    colours.insert(colours.begin(), colour);
    colours.resize(std::min(colours.size(), kRecentColours));
    std::string text;
    for (const Couleur recent : colours) {
        if (!text.empty()) {
            text += kSeparator;
        }
        text += colourText(recent);
    }
    settings.setText(keys::kCouleursRecentes, text);
}

}  // namespace quillmark
