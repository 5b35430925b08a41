#include <chrono>
#include <cstdlib>
#include <optional>

#include "core/folders.h"
#include "core/lock_file.h"
#include "core/program.h"
#include "core/start_arguments.h"
#include "session/start.h"
#include "ui/application.h"
#include "ui/end_signals.h"
#include "ui/frm_main.h"
#include "ui/frm_update.h"
#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/main_status_bar.h"
#include "ui/qt_dialogues.h"
#include "ui/qt_settings_store.h"
#include "ui/qt_tasks.h"
#include "ui/terminal.h"
#include "ui/toolkit_texts.h"
#include "ui/window_place.h"

namespace quillmark {
namespace {

// How long the end of the program waits for what is still being written.
constexpr std::chrono::seconds kLastWrites(10);

std::filesystem::path withSuffix(std::filesystem::path file, const char* suffix) {
    return file += suffix;
}

// Everything that the windows stand on, in the order in which one needs the other.
struct Program {
    Folders folders = platformFolders();
    LockFile backupLock{withSuffix(folders.backupFile(), ".lock")};
    QtSettingsStore store{platformSettings()};
    Settings settings{store};
    StartFacts start = prepareStart(settings, folders, backupLock.isOwned());
    Traduction traduction{folders.dataFolders(), start.Langue};
    QtTasks tasks;
    QtDialogues dialogues{traduction};
    TextBackups backups;
    std::optional<Profile> typesRead;
    Document document;
    Session session{
        document,
        {dialogues, tasks, settings, traduction,
         [this]() -> const Profile& {
             if (!typesRead) {
                 typesRead = Profile::load(folders.dataFile("MPCTypes.txt"));
             }
             return *typesRead;
         },
         // Where no lock can be made, the failing write tells it.
         backups, backupLock.isTaken() ? std::filesystem::path() : folders.backupFile()}};
    CurrentObject current{session};
    Signal<> languageChanged;
    AppContext context{folders, settings, traduction, dialogues,      tasks,
                       backups, session,  current,    languageChanged};
};

void showWork(QtTasks& tasks, MainStatusBar& line, std::vector<Connection>& connections) {
    connections.push_back(
        tasks.started.connect([&line](const std::string& label, bool cancellable) {
            line.workStarted(label, cancellable);
        }));
    connections.push_back(
        tasks.progressed.connect([&line](double fraction) { line.workProgressed(fraction); }));
    connections.push_back(tasks.ended.connect([&line] { line.workEnded(); }));
    line.cancelWork = [&tasks] { tasks.cancel(); };
}

struct End {
    int status = 0;
    bool allThreadsEnded = true;
};

End runWindows(Application& application, const std::filesystem::path& file) {
    Program program;
    program.context.firstStart = program.start.firstStart;
    if (const std::string note = folderNote(); !note.empty()) {
        qWarning("%s", note.c_str());
    }
    const ToolkitTexts toolkitTexts(program.context);
    frmMain window(program.context);
    std::vector<Connection> connections;
    showWork(program.tasks, window.statusLine(), connections);
    program.dialogues.setParent(&window);
    const FailureDialogues failures(program.dialogues);
    connections.push_back(
        program.session.factsChanged.connect([&program, last = std::filesystem::path()]() mutable {
            const std::filesystem::path& file = program.session.facts().FichierTYP;
            if (file != last) {
                last = file;
                program.dialogues.setFolder(file.parent_path());
            }
        }));
    const SessionEnd sessionEnd{
        [&window](const Session::Then& then) { window.Form_QueryUnload(then); },
        [&program] { program.session.backUpNow(); },
        // Not `quit`, which would ask the window again.
        [] { QCoreApplication::exit(0); }, [&window] { window.closeUnasked(); }};
    application.setSessionEnd(&sessionEnd);
    onEndSignals(&window, [&sessionEnd] { sessionEnd.withoutQuestion(); });

    WindowPlace place(window, program.settings);
    place.show([&program, &window, file] {
        const auto step = [](const auto& action) {
            try {
                action();
            } catch (...) {
                tellUnforeseenOfModule("Main", "Demarrage");
            }
        };
        if (!file.empty()) {
            window.whenFree([&program, file] { program.session.ouvrir(file); });
        }
        step([&] { checkForUpdateAtStart(&window, program.context); });
    });
    End end;
    end.status = QApplication::exec();
    application.setSessionEnd(nullptr);
    place.store();
    cleanUpAtExit(program.settings, program.folders, program.context.Version);
    end.allThreadsEnded = program.tasks.settle(kLastWrites);
    return end;
}

std::string helpText() {
    const Folders folders = platformFolders();
    const QtSettingsStore store(platformSettings());
    const Traduction t(folders.dataFolders(),
                       store.read(keys::kLangue.section, keys::kLangue.key).value_or(""));
    return t.Trad("Aide", "Éditeur de fichiers TYP, les feuilles de style des cartes Garmin.",
                  "lblDescription") +
           "\n\n  quillmark [" + t.Trad("Aide", "FICHIER", "msgFichier") +
           "]\n  quillmark --help\n  quillmark --version\n";
}

int run(int argc, char** argv) {
    std::error_code none;
    const StartArguments arguments =
        readArguments(programArguments(argc, argv), std::filesystem::current_path(none),
                      [](const std::filesystem::path& file) {
                          std::error_code unknown;
                          return std::filesystem::is_regular_file(file, unknown);
                      });
    if (arguments.wish == StartArguments::Wish::version) {
        printToTerminal("Quillmark " QUILLMARK_VERSION "\n");
        return 0;
    }
    if (arguments.wish == StartArguments::Wish::help) {
        printToTerminal(helpText());
        return 0;
    }
    // No switch of the toolkit's hides a file of that name.
    int ownNameOnly = argc > 0 ? 1 : 0;
    Application application(ownNameOnly, argv);
    End end{EXIT_FAILURE, true};
    try {
        end = runWindows(application, arguments.file);
    } catch (...) {
        tellUnforeseenOfModule("Main", "Demarrage");
    }
    if (!end.allThreadsEnded) {
        // A thread hangs on a drive; taking down what it may still look at would be a crash.
        std::_Exit(end.status);
    }
    return end.status;
}

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
    return quillmark::run(argc, argv);
}
