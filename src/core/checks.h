// Checks of typed fields. Each returns -1 for a legal text, or shows its message and returns 0.
#pragma once

#include <string>

#include "core/dialogues.h"
#include "core/translation.h"

namespace quillmark {

// Hexadecimal, 0x00 to 0x7F or 0x100 to 0x17F.
int ControleType(const std::string& texte, Dialogues& dialogues, const Traduction& traduction);
// Hexadecimal, 0x00 to 0x1F.
int ControleSubType(const std::string& texte, Dialogues& dialogues, const Traduction& traduction);
// Decimal, above 0.
int ControleDraworder(const std::string& texte, Dialogues& dialogues, const Traduction& traduction);

}  // namespace quillmark
