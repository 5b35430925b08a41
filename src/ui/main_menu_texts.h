// The texts of the main window's menus and commands.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/translation.h"

namespace quillmark {

// Pairs of a command's name and its text; "&" is before the access key, which no menu has twice.
// Keys that text controls answer themselves stand behind a tab.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> mainMenuTexts(
    const Traduction& traduction);

}  // namespace quillmark
