// Names of the languages that a label may be in.
#pragma once

#include <string>
#include <vector>

#include "core/translation.h"

namespace quillmark {

// Codes from 0 to 54, as a label's first byte has them.
inline constexpr int kLabelLanguages = 55;

// The names by code.
[[nodiscard]] std::vector<std::string> TableLangues(const Traduction& t);

}  // namespace quillmark
