// What every window is handed: the parts of the program that `main` owns.
#pragma once

#include "core/folders.h"
#include "core/settings_table.h"
#include "core/signal.h"
#include "core/tasks.h"
#include "core/translation.h"
#include "session/session.h"
#include "text/backups.h"
#include "views/current_object.h"

namespace quillmark {

struct AppContext {
    const Folders& folders;
    Settings& settings;
    Traduction& traduction;  // assigned anew by a change of language
    Dialogues& dialogues;
    Tasks& tasks;
    TextBackups& backups;
    Session& session;
    CurrentObject& current;
    // After `traduction` changed: who shows texts composes them again.
    Signal<>& languageChanged;
    // As `mnuAProposDe` and the title show it.
    std::string Version = "v" QUILLMARK_VERSION;
    // Nobody chose a language for the windows yet.
    bool firstStart = false;
};

}  // namespace quillmark
