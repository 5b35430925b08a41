// The program without its windows: what a window test hands to the window under test.
#pragma once

#include <memory>

#include "core/settings.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"
#include "ui/app_context.h"

namespace quillmark::testing {

// Members are public: a test sets the scene with them and looks at what came of it.
struct Program {
    explicit Program(const std::string& langue = "Francais") : traduction({dataFolder()}, langue) {}

    TemporaryFolder folder;
    Folders folders{dataFolder(), folder.path() / "own", folder.path()};
    MemorySettings store;
    Settings settings{store};
    Traduction traduction;
    ScriptedDialogues dialogues;
    ImmediateTasks tasks;
    TextBackups backups;
    Profile types = Profile::load(dataFolder() / "MPCTypes.txt");
    Document document;
    Session session{document,
                    {dialogues,
                     tasks,
                     settings,
                     traduction,
                     [this]() -> const Profile& { return types; },
                     backups,
                     {}}};
    CurrentObject current{session};
    Signal<> languageChanged;
    AppContext context{folders, settings, traduction, dialogues,      tasks,
                       backups, session,  current,    languageChanged};
};

}  // namespace quillmark::testing
