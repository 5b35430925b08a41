// Earlier texts of the document, kept behind.
#include <algorithm>
#include <mutex>
#include <utility>

#include "core/errors.h"
#include "session/session.h"
#include "session/session_running.h"

namespace quillmark {

// What is to be backed up, as values that another thread may work on.
struct Session::BackupJob {
    Document document;
    std::optional<std::string> text;  // the view's own, when it shows the whole document
    // What was typed for one object, to stand in place of its section.
    std::optional<std::string> section;
    ObjectRef object;
    std::optional<SourceComments> comments;
    GeneratorContext context;
    Traduction traduction;
};

namespace {

std::size_t startOfLine(const std::string& text, int line) {
    std::size_t at = 0;
    for (; line > 0 && at < text.size(); --line) {
        at = std::min(text.find('\n', at), text.size() - 1) + 1;
    }
    return at;
}

// In place of the object's own section; at the end where it has none.
void putSection(GeneratedText& generated, const ObjectRef& object, const std::string& text) {
    const std::string lines = text.ends_with('\n') ? text : text + "\r\n";
    for (const TextSection& section : generated.sections) {
        if (section.kind == object.kind && section.index == object.index) {
            const std::size_t begin = startOfLine(generated.text, section.firstLine);
            const std::size_t end = startOfLine(generated.text, section.lastLine + 1);
            generated.text.replace(begin, end - begin, lines);
            return;
        }
    }
    generated.text += lines;
}

}  // namespace

Session::BackupJob Session::backupJob() const {
    BackupJob job;
    job.comments = sourceComments();
    job.context = generatorContext();
    job.traduction = services_.traduction;
    // A text without pixels brings nothing back: only what was typed in one is kept as it stands.
    const bool complete = std::exchange(job.context.settings.EcrireTrueColors, true);
    if (view_.wholeDocument && textEdited()) {
        job.text = pane_->text();
    } else if (complete && view_.wholeDocument && pane_ != nullptr && !view_.stale) {
        job.text = view_.generated.text;
    } else if (complete && ready_ && !textEdited()) {
        job.text = ready_->text;
    } else {
        job.document = document_;
    }
    if (!view_.wholeDocument && textEdited()) {
        job.section = pane_->text();
        job.object = view_.shown;
    }
    return job;
}

std::string Session::textOf(BackupJob& job) {
    if (job.text) {
        return std::move(*job.text);
    }
    job.context.traduction = &job.traduction;
    GeneratedText generated =
        genererTexte(job.document, job.context, job.comments ? &*job.comments : nullptr);
    if (job.section) {
        putSection(generated, job.object, *job.section);
    }
    return std::move(generated.text);
}

bool Session::writesBackups() const {
    return !services_.backupFile.empty() && services_.settings.boolean(keys::kSauvegardeAuto);
}

void Session::sauvegardertexte() {
    if (!facts_.hasDocument) {
        return;
    }
    if (backupRuns_ && !textEdited()) {
        // A slider's values and the like come faster than texts are made: the last one counts.
        backupAgain_ = true;
        return;
    }
    keepState();
}

void Session::keepState() {
    const bool typed = textEdited();
    struct Work {
        BackupJob job;
        std::string text;
        TextBackups::Prepared prepared;
    };
    auto work = std::make_shared<Work>(Work{backupJob(), {}, {}});
    const std::string name = facts_.NomFichier();
    backupRuns_ = backupRuns_ || !typed;
    services_.tasks.runBehind(
        [work] {
            work->text = textOf(work->job);
            work->prepared = TextBackups::prepare(work->text);
        },
        [this, work, name, typed](const std::exception_ptr& failure) {
            if (!failure) {
                keepBackup(name, work->text, std::move(work->prepared));
            } else {
                tellUnwritten();
            }
            if (!typed) {
                backupRuns_ = false;
                if (std::exchange(backupAgain_, false)) {
                    sauvegardertexte();
                }
            }
        });
}

void Session::keepBackup(const std::string& name, const std::string& text,
                         TextBackups::Prepared prepared) {
    if (services_.backups.isNewest(prepared)) {
        return;
    }
    const std::size_t number = services_.backups.add(std::move(prepared));
    backupKept();
    if (!writesBackups()) {
        return;
    }
    services_.tasks.runBehind(
        [file = services_.backupFile, writing = backupFile_,
         block = backupBlock(name, backupWord(), number, text)] {
            const std::lock_guard lock(*writing);
            appendBackup(file, block);
        },
        [this](const std::exception_ptr& failure) {
            if (failure) {
                tellUnwritten();
            }
        });
}

void Session::tellUnwritten() {
    told(services_.traduction.Trad("Main", "La sauvegarde automatique n'a pas pu être écrite.",
                                   "msgSauvegardeImpossible"));
}

std::string Session::backupWord() const {
    return services_.traduction.Trad("Main", "Sauvegarde n°", "Sauvegarde");
}

void Session::backUpNow() {
    if (!changed()) {
        return;
    }
    BackupJob job = backupJob();
    const std::string text = textOf(job);
    TextBackups::Prepared prepared = TextBackups::prepare(text);
    // Written also where the newest element is the same, which may stand in memory alone; and where
    // backups are off, since nobody could be asked.
    const std::size_t number = services_.backups.isNewest(prepared)
                                   ? services_.backups.number(services_.backups.count() - 1)
                                   : services_.backups.add(std::move(prepared));
    if (!services_.backupFile.empty()) {
        try {
            const std::lock_guard lock(*backupFile_);
            appendBackup(services_.backupFile,
                         backupBlock(facts_.NomFichier(), backupWord(), number, text));
        } catch (const Failure&) {
            tellUnwritten();
        }
    }
}

}  // namespace quillmark
