// New, open, close and the way out.
#include <fstream>

#include "core/errors.h"
#include "core/files.h"
#include "core/paths.h"
#include "session/open.h"
#include "session/save_target.h"
#include "session/session.h"
#include "session/session_running.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kNewCodePage = 1252;

FileFilter bothFilter(const Traduction& traduction) {
    return {traduction.Trad("Main", "Fichiers TYP et texte", "msgFiltreTous") + " (*.typ *.txt)",
            {".typ", ".txt"}};
}

// Devices, folders and files beyond what positions can count aren't opened.
void requireReadable(const fs::path& file) {
    std::error_code failed;
    if (!fs::is_regular_file(file, failed) || fs::file_size(file, failed) > kLargestFile ||
        failed) {
        failOnFile(ErrorNumber::fileMissing, utf8FromPath(file));
    }
    if (!std::ifstream(file, std::ios::binary)) {
        failOnFile(ErrorNumber::permission, utf8FromPath(file));
    }
}

}  // namespace

// What a task brings back from a file.
struct Session::Loaded {
    OpenedFile opened;
    std::optional<FileStamp> stamp;
    GeneratedText generated;  // of the whole document
    DateTime now;
};

std::optional<Session::FileStamp> Session::stampOf(const fs::path& file) {
    std::error_code failed;
    FileStamp stamp;
    stamp.size = fs::file_size(file, failed);
    if (!failed) {
        stamp.time = fs::last_write_time(file, failed);
    }
    return failed ? std::nullopt : std::optional(stamp);
}

void Session::mnuNouveau_Click(Then then) {
    command(std::move(then), [this](const Then& end) {
        askToSave([this, end](bool proceed) {
            if (proceed) {
                wipe();
                document_.CodePage = kNewCodePage;
                facts_.hasDocument = true;
                facts_.isNew = true;
                undo_.clear();
                if (pane_ != nullptr) {
                    pane_->setEditable(true);
                }
                tellChange({Change::What::replaced, {}, nullptr, {}});
                sauvegardertexte();
            }
            end(proceed);
        });
    });
}

void Session::mnuouvrir_Click(Then then) {
    command(std::move(then),
            [this](const Then& end) { chooseAndOpen(false, TextFileEncoding::automatic, end); });
}

void Session::mnuouvrirtxt_click(bool utf8, Then then) {
    command(std::move(then), [this, utf8](const Then& end) {
        chooseAndOpen(true, utf8 ? TextFileEncoding::utf8 : TextFileEncoding::codePage, end);
    });
}

void Session::chooseAndOpen(bool text, TextFileEncoding encoding, const Then& then) {
    const Traduction& t = services_.traduction;
    const auto chosen =
        text ? services_.dialogues.chooseFileToOpen(
                   t.Trad("Main", "Ouvrir un fichier txt", "msgOuvrirtxt"), {textFilter(t)})
             : services_.dialogues.chooseFileToOpen(
                   t.Trad("Main", "Ouvrir un fichier TYP", "msgOuvrirTyp"),
                   {typFilter(t), bothFilter(t)});
    if (!chosen || chosen->empty()) {
        then(false);
        return;
    }
    open(pathFromUtf8(*chosen), encoding, then);
}

void Session::ouvrir(const fs::path& file, Then then) {
    command(std::move(then),
            [this, &file](const Then& end) { open(file, TextFileEncoding::automatic, end); });
}

void Session::open(const fs::path& file, TextFileEncoding encoding, const Then& then) {
    const fs::path whole = absolutePath(file);
    const auto gone = std::make_shared<bool>(false);
    // The tests run elsewhere: a file on a drive that is gone may take long to say so.
    inBackground<bool>(
        services_.traduction.Trad("Main", "Lecture de", "msgLecture") + ' ' +
            utf8FromPath(whole.filename()),
        [whole, gone](Progress&) {
            std::error_code unknown;
            *gone = !fs::exists(whole, unknown) && !unknown;
            requireReadable(whole);
            return true;
        },
        [this, whole, encoding, then](std::optional<bool> found) {
            if (!found) {
                then(false);
                return;
            }
            askToSave([this, whole, encoding, then](bool proceed) {
                if (proceed) {
                    load(whole, encoding, then);
                } else {
                    then(false);
                }
            });
        },
        [this, whole, gone, then] {
            if (*gone) {
                recent_.remove(whole);
            }
            tellUnopened(whole);
            then(false);
        });
}

void Session::tellUnopened(const fs::path& file) {
    const ErrorFacts facts = currentErrorFacts();
    switch (facts.number) {
        case ErrorNumber::fileMissing:
        case ErrorNumber::path:
        case ErrorNumber::permission:
        case ErrorNumber::device:
        case ErrorNumber::overflow:
            services_.dialogues.AfficheMessage(
                services_.traduction.Trad("ImporterBitmap", "Fichier introuvable", "msgFichier4") +
                    "\r\n\r\n" + utf8FromPath(file),
                MessageStyle::ok | MessageStyle::warning, {});
            break;
        default:
            tellUnforeseen(facts, "ouvrir");
            break;
    }
}

void Session::load(const fs::path& file, TextFileEncoding encoding, const Then& then) {
    const Traduction traduction = services_.traduction;
    GeneratorContext context = generatorContext();
    const DateTime now = currentDateTime();
    const std::string folder = utf8FromPath(file.parent_path());
    inBackground<Loaded>(
        traduction.Trad("Main", "Lecture de", "msgLecture") + ' ' + utf8FromPath(file.filename()),
        [file, encoding, traduction, context, now, folder](Progress& progress) mutable {
            Loaded loaded;
            loaded.now = now;
            loaded.stamp = stampOf(file);
            loaded.opened = openFile(file, encoding, traduction);
            progress.at(0.5);
            context.traduction = &traduction;
            if (loaded.opened.OuvertEnTexte) {
                loaded.generated = genererTexte(loaded.opened.document, context, nullptr);
            } else {
                const SourceComments comments{folder, std::to_string(loaded.opened.fileSize),
                                              creationDateText(loaded.opened.document.EnteteTYP),
                                              now};
                loaded.generated = genererTexte(loaded.opened.document, context, &comments);
            }
            return loaded;
        },
        [this, file, then](std::optional<Loaded> loaded) {
            const bool done = loaded.has_value();
            if (done) {
                put(std::move(*loaded), file);
            }
            then(done);
        },
        [this, file, then] {
            tellUnopened(file);
            then(false);
        });
}

void Session::put(Loaded loaded, const fs::path& file) {
    OpenedFile& opened = loaded.opened;
    wipe();
    document_ = std::move(opened.document);
    facts_.hasDocument = true;
    facts_.OuvertEnTexte = opened.OuvertEnTexte;
    facts_.utf8 = opened.utf8;
    // A text under the name of a TYP file is asked about before a save would compile over it.
    facts_.hasMagic = opened.OuvertEnTexte ? !hasExtension(file, ".typ") : opened.hasMagic;
    facts_.FichierTYP = file;
    if (opened.journal.ErreurFlag()) {
        facts_.damagedFile = file;
    }
    facts_.TailleFichier = opened.fileSize;
    openJournal_ = std::move(opened.journal);
    ++journalVersion_;
    stamp_ = loaded.stamp;
    textTime_ = loaded.now;
    undo_.clear();
    if (pane_ != nullptr) {
        pane_->setEditable(true);
    }
    // Shown at once: the text was made where the file was read.
    openJournal_.append(loaded.generated.journal);
    tellChange({Change::What::replaced, {}, nullptr, {}}, std::move(loaded.generated));
    recent_.add(file);
    sauvegardertexte();
    factsChanged();
    if (opened.OuvertEnTexte && !opened.namesCodePage) {
        const Traduction& t = services_.traduction;
        services_.dialogues.AfficheMessage(
            t.Trad("Main", "Le fichier txt ne contient pas d'indication de CodePage.",
                   "msgCodePageAbsent1") +
                "\r\n" +
                t.Trad("Main", "Le CodePage sera alors réglé à 1252.", "msgCodePageAbsent2"),
            MessageStyle::ok | MessageStyle::information, {});
    }
}

void Session::wipe() {
    if (std::exchange(backupAgain_, false)) {
        keepState();  // the last one of the document that goes
    }
    const std::int32_t CodePage = document_.CodePage;
    document_ = Document();
    document_.CodePage = CodePage;
    facts_ = SessionFacts();
    view_ = TextView();
    openJournal_.clear();
    applyJournal_.clear();
    ++journalVersion_;
    stamp_.reset();
    headerAccepted_ = {};
    ready_.reset();
    undo_.clear();
    if (pane_ != nullptr) {
        pane_->show({});
        pane_->setEditable(false);
    }
}

void Session::mnufermer_Click(Then then) {
    command(std::move(then), [this](const Then& end) {
        askToSave([this, end](bool proceed) {
            if (proceed && facts_.hasDocument) {
                wipe();
                tellChange({Change::What::replaced, {}, nullptr, {}});
            }
            end(proceed);
        });
    });
}

void Session::Form_QueryUnload(Then then) {
    command(std::move(then), [this](const Then& end) { askToSave(end); });
}

void Session::askToSave(const Then& then) {
    if (!changed()) {
        then(true);
        return;
    }
    switch (services_.dialogues.AfficheMessage(
        services_.traduction.Trad("Main", "Voulez-vous enregistrer le fichier ?", "msgEnregistrer"),
        MessageStyle::yesNoCancel | MessageStyle::question, "Quillmark")) {
        case Answer::yes:
            // Anything but a completed save ends what was to come.
            saveOwn(then);
            break;
        case Answer::no:
            then(true);
            break;
        default:
            then(false);
            break;
    }
}

}  // namespace quillmark
