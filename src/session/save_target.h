// Choosing the file that a save goes to.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/dialogues.h"
#include "core/translation.h"

namespace quillmark {

// Asks for a name until it is one that doesn't exist yet or may be replaced. The filter's suffix
// is added to a name without it. Nothing when the user gives up.
[[nodiscard]] std::optional<std::filesystem::path> chooseSaveTarget(const std::string& titre,
                                                                    const FileFilter& filter,
                                                                    const std::string& proposed,
                                                                    Dialogues& dialogues,
                                                                    const Traduction& traduction);

// The name of the document without an ending that either kind of save has.
[[nodiscard]] std::string nameToSaveAs(const std::filesystem::path& current);
// The name of a file that is no TYP file, for the one that is to stand beside it.
[[nodiscard]] std::string typNameFor(const std::filesystem::path& current);

// True for a name that is free, or whose file the user lets go.
[[nodiscard]] bool mayReplace(const std::filesystem::path& file, Dialogues& dialogues,
                              const Traduction& traduction);

[[nodiscard]] FileFilter typFilter(const Traduction& traduction);
[[nodiscard]] FileFilter textFilter(const Traduction& traduction);

}  // namespace quillmark
