// How file dialogs are told an ending.
#pragma once

#include <QString>

namespace quillmark {

// For an ending such as ".typ", whatever the case of a file's name.
[[nodiscard]] QString filePattern(const QString& suffix);

}  // namespace quillmark
