// Colours chosen lately, kept in the settings.
#pragma once

#include <cstddef>
#include <vector>

#include "bitmap/colour.h"
#include "core/settings_table.h"

namespace quillmark {

inline constexpr std::size_t kRecentColours = 16;

// The latest first; what is no colour in the settings is left out.
[[nodiscard]] std::vector<Couleur> recentColours(const Settings& settings);
void rememberColour(Settings& settings, Couleur colour);

}  // namespace quillmark
