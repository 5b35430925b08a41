// What happens to settings and files before the first window and after the last.
#pragma once

#include <string>

#include "core/folders.h"
#include "core/settings_table.h"

namespace quillmark {

struct StartFacts {
    std::string Langue;       // of the user interface; its file exists, or it is the built-in one
    bool firstStart = false;  // nobody chose a language before
};

// Stores what has no value yet. `ownsBackup`: the backup file is this process's own, and what a
// run before left in it is set aside.
StartFacts prepareStart(Settings& settings, const Folders& folders, bool ownsBackup);

// At the end of the window. `Version` is "v1.2.3".
void cleanUpAtExit(Settings& settings, const Folders& folders, const std::string& Version);

}  // namespace quillmark
