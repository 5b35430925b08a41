// What all saves have in common: questions first, then the write away from the window.
#include "core/files.h"
#include "core/paths.h"
#include "session/save.h"
#include "session/save_target.h"
#include "session/session.h"
#include "session/session_running.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

// Beside the file, under its name with "~" as long as no other file has that.
fs::path originalName(const fs::path& file) {
    fs::path name = file;
    std::error_code ignored;
    do {
        name += "~";
    } while (fs::exists(name, ignored));
    return name;
}

bool sameFile(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return a == b || fs::equivalent(a, b, ignored);
}

}  // namespace

void Session::mnuEnregistrer_Click(Then then) {
    command(std::move(then), [this](const Then& end) { saveOwn(end); });
}

void Session::mnuEnregistrerTyp_Click(Then then) {
    command(std::move(then),
            [this](const Then& end) { saveTyp(nameToSaveAs(facts_.FichierTYP), end); });
}

void Session::mnuEnregistrerTxt_Click(bool utf8, Then then) {
    command(std::move(then), [this, utf8](const Then& end) { saveText(true, utf8, end); });
}

void Session::saveOwn(const Then& then) {
    const fs::path& file = facts_.FichierTYP;
    if (hasExtension(file, ".txt")) {
        saveText(false, facts_.utf8, then);
        return;
    }
    // What wasn't a TYP file doesn't become one under its own name.
    const bool own = hasExtension(file, ".typ") && facts_.hasMagic;
    saveTyp(own ? std::nullopt : std::optional(typNameFor(file)), then);
}

void Session::beforeSave(const Then& then) {
    if (!facts_.hasDocument || !acceptHeaderField(HeaderField::FID) ||
        !acceptHeaderField(HeaderField::ProductCode)) {
        then(false);
        return;
    }
    undo_.endMerge(document_);
    if (!textEdited()) {
        then(true);
        return;
    }
    apply([this, then](const Applied& applied) {
        if (!applied.done) {
            then(false);
            return;
        }
        const Traduction& t = services_.traduction;
        then(applied.entries == 0 ||
             services_.dialogues.AfficheMessage(
                 t.Trad("Main",
                        "Le texte appliqué contient des erreurs : voir le journal des messages.",
                        "msgAppliquerErreurs1") +
                     kLineBreak +
                     t.Trad("Main", "Enregistrer quand même ?", "msgAppliquerErreurs2"),
                 MessageStyle::yesNo | MessageStyle::warning, {}) == Answer::yes);
    });
}

bool Session::changedOnDisk() const {
    return stamp_ && stampOf(facts_.FichierTYP).value_or(*stamp_) != *stamp_;
}

bool Session::mayLose(const fs::path& file, bool chosen) {
    const Traduction& t = services_.traduction;
    if (!chosen && changedOnDisk() && !mayReplace(file, services_.dialogues, t)) {
        return false;
    }
    return !sameFile(file, facts_.damagedFile) ||
           services_.dialogues.AfficheMessage(
               t.Trad("Main",
                      "Le fichier n'a pas pu être lu en entier. Ce qui n'a pas été lu sera perdu. "
                      "Enregistrer quand même ?",
                      "msgFichierAbime"),
               MessageStyle::yesNo | MessageStyle::warning, {}) == Answer::yes;
}

std::string Session::savingLabel(const fs::path& file) const {
    return services_.traduction.Trad("Main", "Enregistrement de", "msgEnregistrement") + ' ' +
           utf8FromPath(file.filename());
}

void Session::replaceBehind(const fs::path& file, std::shared_ptr<const Bytes> content,
                            std::function<void(const FileStamp&)> done,
                            std::function<void()> failed) {
    inBackground<FileStamp>(
        savingLabel(file),
        [file, content = std::move(content),
         keepOriginal = sameFile(file, facts_.damagedFile)](Progress& /*progress*/) {
            std::error_code gone;
            if (keepOriginal && fs::exists(file, gone)) {
                replaceFile(originalName(file), readFile(file));
            }
            replaceFile(file, *content);
            return stampOf(file).value_or(FileStamp{content->size(), {}});
        },
        [done = std::move(done)](std::optional<FileStamp> stamp) { done(*stamp); },
        std::move(failed), false);
}

void Session::afterSave(const fs::path& file, const FileStamp& stamp) {
    if (sameFile(file, facts_.damagedFile)) {
        facts_.damagedFile.clear();
    }
    facts_.FichierTYP = file;
    facts_.TailleFichier = stamp.size;
    facts_.isNew = false;
    facts_.incompleteText = false;
    facts_.hasMagic = true;
    stamp_ = stamp;
    undo_.markSaved();
    recent_.add(file);
}

}  // namespace quillmark
