// What each command does. All of them tell faults on the console and go on where they can.
#pragma once

#include <filesystem>

#include "batch/console.h"
#include "batch/options.h"

namespace quillmark {

// `dataFolder` holds `MPCTypes.txt`.
ExitStatus writeText(const BatchOptions& options, const std::filesystem::path& dataFolder,
                     Console& console);
ExitStatus writeTyp(const BatchOptions& options, Console& console);
ExitStatus writeIcons(const BatchOptions& options, Console& console);
ExitStatus check(const BatchOptions& options, Console& console);
ExitStatus info(const BatchOptions& options, Console& console);

}  // namespace quillmark
