// The text view: what it shows, and what becomes of what is typed in it.
#include <algorithm>
#include <array>

#include "core/ascii.h"
#include "core/clock.h"
#include "core/paths.h"
#include "session/counterpart.h"
#include "session/session.h"
#include "session/session_running.h"

namespace quillmark {
namespace {

// What the generator writes in place of pixels that the preferences leave out.
constexpr const char* kWithoutPixels = "pas de palette";

// Of the first section in a text that stands for no object; a polygon where there is none.
ObjectKind firstKind(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, ObjectKind>, 3> kinds{
        {{"[_polygon]", ObjectKind::Polygone},
         {"[_line]", ObjectKind::Polyline},
         {"[_point]", ObjectKind::POI}}};
    const std::string lower = loweredAscii(text);
    std::size_t first = std::string::npos;
    ObjectKind found = ObjectKind::Polygone;
    for (const auto& [name, kind] : kinds) {
        const std::size_t at = lower.find(name);
        if (at < first) {
            first = at;
            found = kind;
        }
    }
    return found;
}

}  // namespace

// What a task makes of an edited text.
struct Session::Parsed {
    ParsedText result;
    std::optional<GeneratedText> generated;  // of the new document, when it shows as a whole
};

GeneratorContext Session::generatorContext() const {
    return {readTextSettings(services_.settings.store()), &services_.types(),
            &services_.traduction};
}

std::optional<SourceComments> Session::sourceComments() const {
    if (facts_.OuvertEnTexte || facts_.isNew || facts_.FichierTYP.empty()) {
        return std::nullopt;
    }
    return SourceComments{facts_.DossierFichier(), std::to_string(facts_.TailleFichier),
                          creationDateText(document_.EnteteTYP), textTime_};
}

GeneratedText Session::generate(const Document& document, const TextView& view) const {
    const GeneratorContext context = generatorContext();
    if (view.wholeDocument) {
        const auto comments = sourceComments();
        return genererTexte(document, context, comments ? &*comments : nullptr);
    }
    GeneratedText generated;
    if (!exists(document, view.shown)) {
        return generated;
    }
    const auto index = static_cast<std::size_t>(view.shown.index);
    switch (view.shown.kind) {
        case ObjectKind::Polygone:
            AffichePolygone(document.Polygone[index], context, document.CodePage, generated.text,
                            generated.journal);
            break;
        case ObjectKind::Polyline:
            AffichePolyline(document.Polyline[index], context, document.CodePage, generated.text,
                            generated.journal);
            break;
        case ObjectKind::POI:
            AffichePOI(document.POI[index], context, document.CodePage, generated.text,
                       generated.journal);
            break;
        case ObjectKind::ExtraPOI: {
            const auto& group = document.ExtraPOI[index];
            const auto member = static_cast<std::size_t>(view.shown.member);
            if (member < group.POI.size()) {
                AffichePOI(group.POI[member], context, document.CodePage, generated.text,
                           generated.journal);
            }
            break;
        }
        case ObjectKind::none:
            break;
    }
    const auto lines = std::count(generated.text.begin(), generated.text.end(), '\n');
    generated.sections.push_back(
        {view.shown.kind, view.shown.index, 0, static_cast<int>(lines > 0 ? lines - 1 : 0)});
    return generated;
}

void Session::tellUnforeseen(const ErrorFacts& facts, const char* procedure) {
    services_.dialogues.AfficheMessage(unforeseenText(facts, procedure, "Feuille frmMain"),
                                       MessageStyle::ok | MessageStyle::critical, {});
}

bool Session::showsWholeDocument() const {
    return pane_ != nullptr && view_.wholeDocument && pane_->isShown();
}

void Session::showText(GeneratedText generated) {
    view_.generated = std::move(generated);
    view_.stale = false;
    if (std::exchange(showsApplied_, false)) {
        ++journalVersion_;
    }
    pane_->show(view_.generated.text);
}

void Session::refreshText() {
    const TextSettings settings = readTextSettings(services_.settings.store());
    if (settings.FormatPOI != textSettings_.FormatPOI ||
        settings.EcrireTrueColors != textSettings_.EcrireTrueColors) {
        textSettings_ = settings;
        view_.stale = true;
        ready_.reset();
    }
    if (pane_ == nullptr || !facts_.hasDocument || !view_.stale) {
        return;
    }
    if (pane_->isEdited() && !replaceEdits_) {
        // A faulty text stays, as an edit of what the document has become: taking it back in the
        // view leads to another text than the document's, which is to be applied too.
        view_.generated =
            view_.wholeDocument && ready_ ? std::move(*ready_) : generate(document_, view_);
        ready_.reset();
        view_.stale = false;
        pane_->rebase(view_.generated.text);
        return;
    }
    // A control out of sight is left alone, unless it holds edits that the document has by now.
    if (!pane_->isEdited() && !pane_->isShown()) {
        return;
    }
    if (view_.wholeDocument && ready_) {
        showText(std::move(*ready_));
        ready_.reset();
    } else {
        showText(generate(document_, view_));
    }
}

void Session::settingsChanged() {
    view_.stale = true;
    ready_.reset();
    refreshText();
}

void Session::markSection(const ObjectRef& object) {
    if (pane_ == nullptr || view_.stale) {
        return;
    }
    if (const TextSection* section = view_.sectionOf(object)) {
        pane_->showLines(section->firstLine, section->lastLine);
    } else {
        pane_->unmark();
    }
}

void Session::settleEdits(Then then) {
    command(std::move(then), [this](const Then& end) { settle(end); });
}

void Session::settle(const Then& then) {
    if (!textEdited()) {
        then(true);
        return;
    }
    switch (services_.dialogues.AfficheMessage(
        services_.traduction.Trad(
            "Main", "Le texte contient des modifications non appliquées. Les appliquer ?",
            "msgAppliquerAvant"),
        MessageStyle::yesNoCancel | MessageStyle::question, {})) {
        case Answer::yes:
            // A text with faults stays, for the journal's lines lead into it; whoever wants to
            // go on all the same answers no the next time.
            apply([this, then](const Applied& applied) {
                tellFaults(applied);
                then(applied.done && applied.entries == 0);
            });
            break;
        case Answer::no:
            dropEdits();
            then(true);
            break;
        default:
            then(false);
            break;
    }
}

void Session::settleFor(const ObjectRef& object, const std::function<void(bool, ObjectRef)>& then) {
    if (!textEdited()) {
        then(true, object);
        return;
    }
    settle([this, object, before = std::make_shared<const Document>(document_),
            then](bool settled) {
        // One that is about to be added stands nowhere yet.
        then(settled, exists(*before, object) ? counterpart(*before, document_, object) : object);
    });
}

void Session::dropEdits() {
    showText(view_.stale ? generate(document_, view_) : std::move(view_.generated));
    factsChanged();
}

void Session::showWholeDocument(Then then) {
    if (view_.wholeDocument) {
        if (then) {
            then(true);
        }
        return;
    }
    command(std::move(then), [this](const Then& end) {
        settle([this, end](bool settled) {
            if (settled) {
                view_.wholeDocument = true;
                view_.stale = true;
                refreshText();
                markSection(view_.shown);
            }
            factsChanged();
            end(settled);
        });
    });
}

void Session::showObject(const ObjectRef& object, Then then) {
    if (!view_.wholeDocument && object == view_.shown) {
        if (then) {
            then(true);
        }
        return;
    }
    command(std::move(then), [this, object](const Then& end) {
        settleFor(object, [this, end](bool settled, ObjectRef followed) {
            if (settled) {
                view_.wholeDocument = false;
                view_.shown = followed;
                view_.stale = true;
                refreshText();
            }
            factsChanged();
            end(settled);
        });
    });
}

void Session::selectInText(const ObjectRef& object, Then then) {
    if (!view_.wholeDocument) {
        showObject(object, std::move(then));
        return;
    }
    if (busy_) {
        if (then) {
            then(false);
        }
        return;
    }
    view_.shown = object;
    markSection(object);
    if (then) {
        then(true);
    }
}

void Session::cmdAppliquerModif_Click(Then then) {
    command(std::move(then), [this](const Then& end) {
        apply([this, end](const Applied& applied) {
            tellFaults(applied);
            end(applied.done);
        });
    });
}

void Session::tellFaults(const Applied& applied) {
    if (applied.entries > 0) {
        told(services_.traduction.Trad(
            "Main", "Le texte appliqué contient des erreurs : voir le journal des messages.",
            "msgAppliquerErreurs1"));
    }
}

void Session::apply(const std::function<void(const Applied&)>& then) {
    if (!textEdited()) {
        then({true, 0});
        return;
    }
    // The text as it was typed, whatever becomes of it.
    sauvegardertexte();
    const Traduction traduction = services_.traduction;
    GeneratorContext context = generatorContext();
    std::string text = pane_->text();
    if (!context.settings.EcrireTrueColors && text.find(kWithoutPixels) != std::string::npos) {
        const Traduction& t = services_.traduction;
        services_.dialogues.AfficheMessage(
            t.Trad("Main", "Impossible d'enregistrer les modifications", "msgAppliquerModif1") +
                kLineBreak +
                t.Trad("Main", "car l'écriture des couleurs des POI True Colors a été désactivée",
                       "msgAppliquerModif2") +
                kLineBreak + t.Trad("Main", "dans le menu \"Préférences\". ", "msgAppliquerModif3"),
            MessageStyle::ok | MessageStyle::warning, {});
        then({});
        return;
    }
    ParseTarget target = view_.target();
    if (!view_.wholeDocument && !exists(document_, view_.shown)) {
        // The object is gone, or there never was one: the first section becomes a new object.
        target = {firstKind(text), -1, 0};
    }
    // Compared with the text of the document as it stands, not with what was shown: a faulty Apply
    // may have changed it since.
    const bool whole = view_.wholeDocument;
    GeneratedText generated = whole ? GeneratedText() : generate(document_, view_);
    const auto comments = sourceComments();
    inBackground<Parsed>(
        traduction.Trad("Main", "Application du texte", "msgApplication"),
        [document = document_, traduction, context, text = std::move(text), target, whole,
         generated = std::move(generated), comments](Progress& progress) mutable {
            context.traduction = &traduction;
            if (whole) {
                generated = genererTexte(document, context, comments ? &*comments : nullptr);
            }
            progress.at(0.3);
            Parsed parsed;
            parsed.result = ouvrirtxt(text, std::move(document), target, &generated, traduction);
            progress.at(0.7);
            if (whole) {
                parsed.generated =
                    genererTexte(parsed.result.document, context, comments ? &*comments : nullptr);
            }
            return parsed;
        },
        [this, then, target](std::optional<Parsed> parsed) {
            Applied applied;
            if (parsed) {
                putApplied(applied, std::move(*parsed), target);
            }
            then(applied);
        },
        [this, then] {
            // The journal of a text takes what is wrong with it; this is the machine's failure.
            tellUnforeseen(currentErrorFacts(), "cmdAppliquerModif_Click");
            then({});
        });
}

void Session::putApplied(Applied& applied, Parsed parsed, const ParseTarget& target) {
    ParsedText& result = parsed.result;
    applied.done = true;
    applied.entries = result.journal.entries().size();
    applyJournal_ = std::move(result.journal);
    showsApplied_ = applied.entries > 0;
    ++journalVersion_;
    // Only a clean text gives way to what it became; a faulty one stays, for the journal's lines.
    replaceEdits_ = applied.entries == 0;
    if (result.document != document_) {
        std::swap(document_, result.document);
        ObjectRef object;
        // Sections that came or went in front of the selected object moved it.
        ObjectRef select = counterpart(result.document, document_, view_.shown);
        if (!view_.wholeDocument) {
            // A new activity moves a line: the undo leads back to where it stood.
            const int place = result.index < 0 ? target.index : result.index;
            select = {target.ObjetVisualise, place, target.member};
            object = select;
            object.index = target.index < 0 ? place : target.index;
        }
        undo_.record(std::move(result.document), object);
        const bool gone = view_.wholeDocument && select.kind == ObjectKind::none &&
                          view_.shown.kind != ObjectKind::none;
        // Whoever typed stays where they typed.
        tellChange({Change::What::content, {}, nullptr, select, gone}, std::move(parsed.generated),
                   false);
    } else {
        view_.stale = true;
        ready_ = std::move(parsed.generated);
        refreshText();
        factsChanged();
    }
    replaceEdits_ = false;
    sauvegardertexte();
}

}  // namespace quillmark
