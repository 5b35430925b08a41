// Saving: questions first, then the write away from the window, then what it changes.
#include <algorithm>

#include "core/ascii.h"
#include "core/clock.h"
#include "core/files.h"
#include "core/paths.h"
#include "session/save.h"
#include "session/save_target.h"
#include "session/session.h"
#include "session/session_running.h"
#include "text/code_pages.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLineBreak = "\r\n";

bool hasExtension(const fs::path& file, std::string_view extension) {
    return loweredAscii(utf8FromPath(file.extension())) == extension;
}

// The work of a save was given up; nothing was written.
struct CancelledSave {};

fs::path withTilde(const fs::path& file) {
    fs::path name = file;
    name += "~";
    return name;
}

std::string lossesText(const TextLosses& losses, const Traduction& t) {
    std::string text = t.Trad("Main", "Le format texte ne peut pas contenir :", "msgPertesTexte1");
    const auto line = [&](const std::string& what) { text += kLineBreak + ("\t" + what); };
    const auto counted = [&](int count, const std::string& what) {
        if (count > 0) {
            line(what + " : " + std::to_string(count));
        }
    };
    if (losses.extraPoi) {
        line(t.Trad("Main", "les Extra POI", "msgPertesTexte2"));
    }
    if (losses.specialLabels) {
        line(t.Trad("Main", "les labels spéciaux", "msgPertesTexte3"));
    }
    if (losses.rawBlock) {
        line(t.Trad("Main", "le bloc de données inconnues", "msgPertesTexte4"));
    }
    if (losses.betweenSections) {
        line(t.Trad("Main", "les données entre l'entête et les sections", "msgPertesTexte5"));
    }
    counted(losses.subtypes,
            t.Trad("Main", "sous-types de polygones et de polylignes", "msgPertesTexte6"));
    counted(losses.labels, t.Trad("Main", "labels qui seront raccourcis", "msgPertesTexte7"));
    counted(losses.activities, t.Trad("Main", "activités de polylignes", "msgPertesTexte8"));
    return text + kLineBreak + kLineBreak +
           t.Trad("Main", "Enregistrer quand même au format texte ?", "msgPertesTexte9");
}

}  // namespace

void Session::mnuEnregistrer_Click(Then then) {
    command(std::move(then), [this](const Then& end) { saveOwn(end); });
}

void Session::mnuEnregistrerTyp_Click(Then then) {
    command(std::move(then), [this](const Then& end) { saveTyp(true, end); });
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
    saveTyp(!hasExtension(file, ".typ") || !facts_.hasMagic, then);
}

void Session::beforeSave(const Then& then) {
    if (!facts_.hasDocument || !leaveHeaderField(HeaderField::FID) ||
        !leaveHeaderField(HeaderField::ProductCode)) {
        then(false);
        return;
    }
    undo_.endMerge();
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

bool Session::changedOnDisk(const fs::path& file) const {
    return stamp_ && file == facts_.FichierTYP && stampOf(file).value_or(*stamp_) != *stamp_;
}

// The questions about the file that a save would replace under the document's own name.
bool Session::mayLose(const fs::path& file) {
    const Traduction& t = services_.traduction;
    if (file != facts_.FichierTYP) {
        return true;
    }
    if (changedOnDisk(file) && !mayReplace(file, services_.dialogues, t)) {
        return false;
    }
    return !keepOriginal_ ||
           services_.dialogues.AfficheMessage(
               t.Trad("Main",
                      "Le fichier n'a pas pu être lu en entier. Ce qui n'a pas été lu sera perdu. "
                      "Enregistrer quand même ?",
                      "msgFichierAbime"),
               MessageStyle::yesNo | MessageStyle::warning, {}) == Answer::yes;
}

void Session::saveTyp(bool AvecDialogue, const Then& then) {
    beforeSave([this, AvecDialogue, then](bool ready) {
        Dialogues& dialogues = services_.dialogues;
        const Traduction& t = services_.traduction;
        if (!ready || !mayWriteTyp(document_, dialogues, t)) {
            then(false);
            return;
        }
        fs::path file = facts_.FichierTYP;
        if (AvecDialogue || file.empty()) {
            const auto chosen =
                chooseSaveTarget(t.Trad("Main", "Enregistrer sous", "dlgEnregistrerSous"),
                                 typFilter(t), file, dialogues, t);
            if (!chosen) {
                then(false);
                return;
            }
            file = *chosen;
        }
        if (!mayLose(file) || !waitUntilWritable(file, dialogues, t)) {
            then(false);
            return;
        }
        writeTyp(file, then);
    });
}

void Session::writeTyp(const fs::path& file, const Then& then) {
    const bool keepOriginal = keepOriginal_ && file == facts_.FichierTYP;
    inBackground<WrittenTyp>(
        services_.traduction.Trad("Main", "Enregistrement de", "msgEnregistrement") + ' ' +
            utf8FromPath(file.filename()),
        [document = document_, now = currentDateTime(), file, keepOriginal](Progress& progress) {
            WrittenTyp written = CreerTYP(document, now);
            progress.at(0.5);
            if (progress.cancelled()) {
                throw CancelledSave();
            }
            if (keepOriginal) {
                replaceFile(withTilde(file), readFile(file));
            }
            replaceFile(file, written.file);
            return written;
        },
        [this, file, then](std::optional<WrittenTyp> written) {
            // A cancel that came too late: the file stands, so the document goes by it.
            if (!written) {
                then(false);
                return;
            }
            const bool lost = written->document.Polyline.size() != document_.Polyline.size() ||
                              written->document.ExtraPOI.size() != document_.ExtraPOI.size();
            if (lost) {
                undo_.record(document_, {});
            }
            document_ = std::move(written->document);
            facts_.OuvertEnTexte = false;
            facts_.utf8 = false;
            facts_.hasMagic = true;
            afterSave(file, written->file.size());
            tellChange({Change::What::reordered,
                        {},
                        std::make_shared<const Reordering>(std::move(written->order)),
                        {}});
            then(true);
        },
        [this, then] {
            try {
                throw;
            } catch (const CancelledSave&) {
            } catch (...) {
                tellTypFailure(services_.dialogues, services_.traduction);
            }
            then(false);
        });
}

void Session::saveText(bool askForName, bool utf8, const Then& then) {
    beforeSave([this, askForName, utf8, then](bool ready) {
        Dialogues& dialogues = services_.dialogues;
        const Traduction& t = services_.traduction;
        const TextSettings settings = readTextSettings(services_.settings.store());
        if (!ready || !mayWriteText(document_, settings, dialogues, t)) {
            then(false);
            return;
        }
        const TextLosses losses = textLosses(document_);
        if (losses.any() && dialogues.AfficheMessage(lossesText(losses, t),
                                                     MessageStyle::okCancel | MessageStyle::warning,
                                                     {}) != Answer::ok) {
            then(false);
            return;
        }
        const auto comments = sourceComments();
        const std::string text =
            genererTexte(document_, generatorContext(), comments ? &*comments : nullptr).text;
        bool asUtf8 = utf8;
        if (!utf8) {
            const std::size_t lost = textToBytes(text, document_.CodePage).lost;
            if (lost > 0) {
                const Answer answer = dialogues.AfficheMessage(
                    t.Trad("Main",
                           "Caractères absents de la page de code :", "msgCaracteresPerdus1") +
                        ' ' + std::to_string(lost) + kLineBreak +
                        t.Trad("Main", "Enregistrer en UTF-8 ? (\"Non\" les remplace par \"?\")",
                               "msgCaracteresPerdus2"),
                    MessageStyle::yesNoCancel | MessageStyle::warning, {});
                if (answer == Answer::cancel) {
                    then(false);
                    return;
                }
                asUtf8 = answer == Answer::yes;
            }
        }
        fs::path file = facts_.FichierTYP;
        if (askForName || file.empty()) {
            const auto chosen = chooseSaveTarget(t.Trad("Main", "Enregistrer sous", "dlgEnr"),
                                                 textFilter(t), file, dialogues, t);
            if (!chosen) {
                then(false);
                return;
            }
            file = *chosen;
        }
        if (!mayLose(file)) {
            then(false);
            return;
        }
        writeText(file, text, asUtf8, then);
    });
}

void Session::writeText(const fs::path& file, const std::string& text, bool utf8,
                        const Then& then) {
    const int codePage = utf8 ? kUtf8 : document_.CodePage;
    const bool keepOriginal = keepOriginal_ && file == facts_.FichierTYP;
    inBackground<std::size_t>(
        services_.traduction.Trad("Main", "Enregistrement de", "msgEnregistrement") + ' ' +
            utf8FromPath(file.filename()),
        [text, codePage, file, keepOriginal](Progress& progress) {
            const EncodedText encoded = encodeTextFile(text, codePage);
            if (progress.cancelled()) {
                throw CancelledSave();
            }
            if (keepOriginal) {
                replaceFile(withTilde(file), readFile(file));
            }
            replaceFile(file, encoded.bytes);
            return encoded.bytes.size();
        },
        [this, file, utf8, then](std::optional<std::size_t> size) {
            if (!size) {
                then(false);
                return;
            }
            facts_.OuvertEnTexte = true;
            facts_.utf8 = utf8;
            facts_.hasMagic = true;
            afterSave(file, *size);
            facts_.incompleteText = textLosses(document_).any();
            factsChanged();
            then(true);
        },
        [this, then] {
            try {
                throw;
            } catch (const CancelledSave&) {
            } catch (...) {
                tellTextFailure(services_.dialogues, services_.traduction);
            }
            then(false);
        });
}

void Session::afterSave(const fs::path& file, std::size_t size) {
    facts_.FichierTYP = file;
    facts_.TailleFichier = size;
    facts_.isNew = false;
    facts_.damaged = false;
    facts_.incompleteText = false;
    keepOriginal_ = false;
    stamp_ = stampOf(file);
    undo_.markSaved();
    recent_.add(file);
}

}  // namespace quillmark
