// The two kinds of file that a document is saved as.
#include <tuple>

#include "core/clock.h"
#include "core/paths.h"
#include "session/save.h"
#include "session/save_target.h"
#include "session/session.h"
#include "session/session_running.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

}  // namespace

// What a save writes, and the text that shows the document as it will stand.
struct Session::ComposedTyp {
    WrittenTyp written;
    std::optional<GeneratedText> shown;
    DateTime now;
};

struct Session::ComposedText {
    std::string text;
    EncodedText encoded;
    TextLosses losses;
    std::optional<GeneratedText> shown;  // where the saved document's text is another one
};

void Session::saveTyp(const std::optional<std::string>& proposed, const Then& then) {
    beforeSave([this, proposed, then](bool ready) {
        Dialogues& dialogues = services_.dialogues;
        const Traduction& t = services_.traduction;
        if (!ready || !mayWriteTyp(document_, dialogues, t)) {
            then(false);
            return;
        }
        fs::path file = facts_.FichierTYP;
        if (proposed) {
            const auto chosen =
                chooseSaveTarget(t.Trad("Main", "Enregistrer sous", "dlgEnregistrerSous"),
                                 typFilter(t), *proposed, dialogues, t);
            if (!chosen) {
                then(false);
                return;
            }
            file = absolutePath(*chosen);
        }
        if (!mayLose(file, proposed.has_value()) || !waitUntilWritable(file, dialogues, t)) {
            then(false);
            return;
        }
        writeTyp(file, then);
    });
}

void Session::writeTyp(const fs::path& file, const Then& then) {
    const auto failed = [this, then] {
        tellTypFailure(services_.dialogues, services_.traduction);
        then(false);
    };
    const Traduction traduction = services_.traduction;
    GeneratorContext context = generatorContext();
    const bool whole = showsWholeDocument();
    inBackground<ComposedTyp>(
        savingLabel(file),
        [document = document_, file, now = currentDateTime(), traduction, context,
         whole](Progress& progress) mutable {
            ComposedTyp composed{CreerTYP(std::move(document), now), std::nullopt, now};
            progress.at(0.5);
            if (whole) {
                context.traduction = &traduction;
                const WrittenTyp& written = composed.written;
                const SourceComments comments{utf8FromPath(file.parent_path()),
                                              std::to_string(written.file.size()),
                                              creationDateText(written.document.EnteteTYP), now};
                composed.shown = genererTexte(written.document, context, &comments);
            }
            return composed;
        },
        [this, file, then, failed](std::optional<ComposedTyp> made) {
            if (!made) {
                then(false);
                return;
            }
            const auto composed = std::make_shared<ComposedTyp>(std::move(*made));
            const std::shared_ptr<const Bytes> content(composed, &composed->written.file);
            replaceBehind(
                file, content,
                [this, file, then, composed](const FileStamp& stamp) {
                    putWrittenTyp(*composed, file, stamp);
                    then(true);
                },
                failed);
        },
        failed);
}

void Session::putWrittenTyp(ComposedTyp& composed, const fs::path& file, const FileStamp& stamp) {
    WrittenTyp& written = composed.written;
    std::swap(document_, written.document);
    const auto held = [](const Document& document) {
        return std::tuple(document.Polyline.size(), document.ExtraPOI.size(),
                          document.BlocBrut.size(), document.LabelsStrings.size(),
                          document.LabelsTableA.size(), document.LabelsTableB.size());
    };
    if (held(document_) != held(written.document)) {
        undo_.record(std::move(written.document), {});
    }
    facts_.OuvertEnTexte = false;
    facts_.utf8 = false;
    textTime_ = composed.now;
    afterSave(file, stamp);
    tellChange({Change::What::reordered,
                {},
                std::make_shared<const Reordering>(std::move(written.order)),
                {}},
               std::move(composed.shown));
    sauvegardertexte();
}

void Session::saveText(bool askForName, bool utf8, const Then& then) {
    beforeSave([this, askForName, utf8, then](bool ready) {
        const TextSettings settings = readTextSettings(services_.settings.store());
        if (!ready ||
            !mayWriteText(document_, settings, services_.dialogues, services_.traduction)) {
            then(false);
            return;
        }
        const Traduction traduction = services_.traduction;
        GeneratorContext context = generatorContext();
        const bool whole = showsWholeDocument();
        inBackground<ComposedText>(
            savingLabel(askForName ? fs::path(nameToSaveAs(facts_.FichierTYP)) : facts_.FichierTYP),
            [document = document_, comments = sourceComments(), traduction, context, whole,
             utf8](Progress& progress) mutable {
                context.traduction = &traduction;
                ComposedText composed;
                composed.losses = textLosses(document);
                GeneratedText generated =
                    genererTexte(document, context, comments ? &*comments : nullptr);
                progress.at(0.4);
                if (comments && whole) {
                    composed.shown = genererTexte(document, context, nullptr);
                }
                composed.text = std::move(generated.text);
                progress.at(0.8);
                composed.encoded = encodeTextFile(composed.text, utf8 ? kUtf8 : document.CodePage);
                return composed;
            },
            [this, askForName, utf8, then](std::optional<ComposedText> composed) {
                if (!composed) {
                    then(false);
                    return;
                }
                askAndWriteText(std::make_shared<ComposedText>(std::move(*composed)), askForName,
                                utf8, then);
            },
            [this, then] {
                tellTextFailure(services_.dialogues, services_.traduction);
                then(false);
            });
    });
}

void Session::askAndWriteText(const std::shared_ptr<ComposedText>& composed, bool askForName,
                              bool utf8, const Then& then) {
    Dialogues& dialogues = services_.dialogues;
    const Traduction& t = services_.traduction;
    if (composed->losses.any() &&
        dialogues.AfficheMessage(lossesText(composed->losses, t),
                                 MessageStyle::okCancel | MessageStyle::warning,
                                 {}) != Answer::ok) {
        then(false);
        return;
    }
    if (composed->encoded.lost > 0) {
        const Answer answer = dialogues.AfficheMessage(
            t.Trad("Main", "Caractères absents de la page de code :", "msgCaracteresPerdus1") +
                ' ' + std::to_string(composed->encoded.lost) + kLineBreak +
                t.Trad("Main", "Enregistrer en UTF-8 ? (\"Non\" les remplace par \"?\")",
                       "msgCaracteresPerdus2"),
            MessageStyle::yesNoCancel | MessageStyle::warning, {});
        if (answer == Answer::cancel) {
            then(false);
            return;
        }
        if (answer == Answer::yes) {
            composed->encoded = encodeTextFile(composed->text, kUtf8);
            utf8 = true;
        }
    }
    fs::path file = facts_.FichierTYP;
    const bool asks = askForName || file.empty();
    if (asks) {
        const auto chosen = chooseSaveTarget(t.Trad("Main", "Enregistrer sous", "dlgEnr"),
                                             textFilter(t), nameToSaveAs(file), dialogues, t);
        if (!chosen) {
            then(false);
            return;
        }
        file = absolutePath(*chosen);
    }
    if (!mayLose(file, asks)) {
        then(false);
        return;
    }
    replaceBehind(
        file, {composed, &composed->encoded.bytes},
        [this, file, utf8, then, composed](const FileStamp& stamp) {
            // A document from text has no lines about its file.
            view_.stale = view_.stale || sourceComments();
            facts_.OuvertEnTexte = true;
            facts_.utf8 = utf8;
            afterSave(file, stamp);
            facts_.incompleteText = composed->losses.any();
            ready_ = std::move(composed->shown);
            refreshText();
            sauvegardertexte();
            factsChanged();
            then(true);
        },
        [this, then] {
            tellTextFailure(services_.dialogues, services_.traduction);
            then(false);
        });
}

}  // namespace quillmark
