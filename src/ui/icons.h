// The program's own drawings, in the colour of the text they stand beside.
#pragma once

#include <QIcon>

namespace quillmark {

// `name` is a file of `data/icons` without its ending. Drawn again when the theme changes.
[[nodiscard]] QIcon icon(const char* name);

}  // namespace quillmark
