// Edits of the document, and undoing them.
#include <algorithm>

#include "core/ascii.h"
#include "session/counterpart.h"
#include "session/session.h"
#include "session/session_running.h"
#include "text/format.h"
#include "text/labels.h"

namespace quillmark {
namespace {

constexpr int kLargestHeaderNumber = 65535;

const char* mergeName(HeaderField field) {
    return field == HeaderField::FID ? "FID" : "ProductCode";
}

std::string& headerText(Document& document, HeaderField field) {
    return field == HeaderField::FID ? document.FID : document.ProductCode;
}

bool isAllowed(const std::string& text) {
    if (text.empty()) {
        return true;
    }
    const auto value = wholeNumber<int>(text);
    return value && *value >= 1 && *value <= kLargestHeaderNumber;
}

template <typename Record>
void eraseAt(std::vector<Record>& records, int index) {
    records.erase(records.begin() + index);
}

void erase(Document& document, const ObjectRef& object) {
    switch (object.kind) {
        case ObjectKind::Polygone:
            eraseAt(document.Polygone, object.index);
            break;
        case ObjectKind::Polyline:
            eraseAt(document.Polyline, object.index);
            break;
        case ObjectKind::POI:
            eraseAt(document.POI, object.index);
            break;
        case ObjectKind::ExtraPOI:
            eraseAt(document.ExtraPOI, object.index);
            break;
        case ObjectKind::none:
            break;
    }
}

struct ObjectWords {
    std::string kind;      // "le polygone"
    std::string identity;  // " Type:0x10f  SubType:0x04"
};

template <typename Record>
std::string identityWords(const Record& record) {
    return " Type:0x" + record.Type + "  SubType:0x" + record.SubType;
}

ObjectWords wordsOf(const Document& document, const ObjectRef& object, const Traduction& t) {
    const auto index = static_cast<std::size_t>(object.index);
    switch (object.kind) {
        case ObjectKind::Polygone:
            return {t.Trad("Main", "le polygone", "msgpolygone"),
                    identityWords(document.Polygone[index])};
        case ObjectKind::Polyline:
            return {t.Trad("Main", "la polyligne", "msgpolyligne"),
                    identityWords(document.Polyline[index])};
        case ObjectKind::POI:
            return {t.Trad("Main", "le POI", "msgPOI"), identityWords(document.POI[index])};
        default:
            return {t.Trad("Main", "l'Extra POI", "msgGroupeExtraPOI"),
                    " Brand ID: " + std::to_string(static_cast<std::uint32_t>(
                                        document.ExtraPOI[index].BrandID))};
    }
}

// A text of the whole document with another value of the identity; nothing where it isn't found.
std::optional<GeneratedText> replaceIdentity(GeneratedText generated, const std::string& key,
                                             const std::string& old, const std::string& value) {
    const std::string before = "\r\n" + key + "=";
    const std::size_t at = generated.text.find(before + old + "\r\n");
    if (at == std::string::npos || at > generated.text.find(format::kEnd)) {
        return std::nullopt;
    }
    generated.text.replace(at + before.size(), old.size(), value);
    return generated;
}

// In every code page the same.
bool isAscii(ByteView text) {
    return std::all_of(text.begin(), text.end(), [](std::uint8_t byte) { return byte < 0x80; });
}

// Labels that would read differently in another code page.
std::size_t differentLabels(const Document& document, int from, int to) {
    std::size_t different = 0;
    const auto count = [&](const Bytes& Strings) {
        for (const RawLabel& label : splitStrings(Strings)) {
            if (isAscii(label.text)) {
                continue;
            }
            different += bytesToText(label.text, from) != bytesToText(label.text, to) ? 1U : 0U;
        }
    };
    for (const Polygone& polygon : document.Polygone) {
        count(polygon.Strings);
    }
    for (const Polyline& line : document.Polyline) {
        count(line.Strings);
    }
    for (const POI& poi : document.POI) {
        count(poi.Strings);
    }
    for (const ExtraPOI& group : document.ExtraPOI) {
        for (const POI& poi : group.POI) {
            count(poi.Strings);
        }
    }
    return different;
}

}  // namespace

bool Session::commit(const Change& change, const std::function<void(Document&)>& edit,
                     const std::string& merge) {
    Document edited = document_;
    edit(edited);
    if (edited == document_) {
        return false;
    }
    std::swap(document_, edited);
    if (!undo_.join(merge)) {
        const bool named = change.object.kind != ObjectKind::none;
        undo_.record(std::move(edited), named ? change.object : change.select, merge);
    }
    tellChange(change);
    sauvegardertexte();
    return true;
}

void Session::edit(const Change& change, const std::function<void(Document&)>& edit,
                   const std::string& merge) {
    if (!facts_.hasDocument) {
        return;
    }
    command({}, [this, change, edit, merge](const Then& end) {
        settleFor(change.object, [this, change, edit, merge, end](bool settled, ObjectRef object) {
            // An object that an Apply put elsewhere isn't the one at that place any more.
            const bool done = settled && object == change.object && commit(change, edit, merge);
            if (!done) {
                // Whoever showed the new value already shows the old one again.
                factsChanged();
            }
            end(done);
        });
    });
}

void Session::deleteObject(const ObjectRef& object, Then then) {
    if (!exists(document_, object)) {
        if (then) {
            then(false);
        }
        return;
    }
    command(std::move(then), [this, object](const Then& end) {
        settleFor(object, [this, end](bool settled, ObjectRef object) {
            if (!settled || !exists(document_, object)) {
                end(false);
                return;
            }
            const Traduction& t = services_.traduction;
            const ObjectWords words = wordsOf(document_, object, t);
            const Answer answer = services_.dialogues.AfficheMessage(
                t.Trad("Main", "Voulez-vous réellement supprimer", "msgSupprimer") + ' ' +
                    words.kind + words.identity + " ?",
                MessageStyle::yesNo | MessageStyle::question | MessageStyle::secondIsDefault,
                t.Trad("Main", "Supprimer définitivement", "msgSupprimer2") + ' ' + words.kind +
                    " ?");
            if (answer != Answer::yes) {
                end(false);
                return;
            }
            const int left = objectCount(document_, object.kind) - 1;
            Change change{Change::What::removed, object, nullptr, {}};
            if (left > 0) {
                change.select = {object.kind, std::min(object.index, left - 1), 0};
            }
            end(commit(change, [object](Document& edited) { erase(edited, object); }, {}));
        });
    });
}

void Session::undo() {
    step(true);
}

void Session::redo() {
    step(false);
}

void Session::step(bool back) {
    if (!(back ? canUndo() : canRedo())) {
        return;
    }
    command({}, [this, back](const Then& end) {
        settle([this, back, end](bool settled) {
            if (!settled) {
                end(false);
                return;
            }
            const UndoHistory::Step* next = back ? undo_.nextUndo() : undo_.nextRedo();
            if (next != nullptr) {
                const ObjectRef select = selectAfter(*next, back);
                back ? undo_.undo(document_) : undo_.redo(document_);
                headerAccepted_ = {};
                tellChange({Change::What::content, {}, nullptr, select});
                sauvegardertexte();
            }
            end(next != nullptr);
        });
    });
}

ObjectRef Session::selectAfter(const UndoHistory::Step& step, bool back) const {
    if (step.object.kind == ObjectKind::none) {
        const ObjectRef followed = counterpart(document_, step.document, view_.shown);
        return followed == view_.shown ? ObjectRef{} : followed;
    }
    ObjectRef select = step.object;
    if (!back) {
        const ObjectRef followed = counterpart(document_, step.document, select);
        select = exists(step.document, followed) ? followed : select;
    }
    if (!exists(step.document, select)) {
        const int count = objectCount(step.document, select.kind);
        select = count > 0 ? ObjectRef{select.kind, std::clamp(select.index, 0, count - 1), 0}
                           : ObjectRef{};
    }
    return select;
}

void Session::typeHeaderField(HeaderField field, const std::string& text) {
    if (!facts_.hasDocument || headerText(document_, field) == text) {
        return;
    }
    command({}, [this, field, text](const Then& end) {
        settle([this, field, text, end](bool settled) {
            if (settled) {
                auto& accepted = headerAccepted_[static_cast<std::size_t>(field)];
                accepted = accepted.value_or(headerText(document_, field));
                putHeaderText(field, text);
            }
            end(settled);
        });
    });
}

// Key by key, so nothing here goes over the objects but the copy of the first key.
void Session::putHeaderText(HeaderField field, const std::string& text) {
    std::string& old = headerText(document_, field);
    if (old == text) {
        return;
    }
    const std::string merge = mergeName(field);
    const bool joined = undo_.join(merge);
    if (!joined) {
        undo_.record(document_, {}, merge);
    }
    std::optional<GeneratedText> ready;
    if (showsWholeDocument() && !view_.stale) {
        ready = replaceIdentity(std::move(view_.generated), merge, old, text);
    }
    old = text;
    tellChange({Change::What::header, {}, nullptr, {}}, std::move(ready));
    if (!joined) {
        sauvegardertexte();
    }
}

bool Session::leaveHeaderField(HeaderField field) {
    bool accepted = true;
    if (headerAccepted_[static_cast<std::size_t>(field)]) {
        command({}, [this, field, &accepted](const Then& end) {
            accepted = acceptHeaderField(field);
            end(accepted);
        });
    }
    return accepted;
}

bool Session::acceptHeaderField(HeaderField field) {
    const auto accepted =
        std::exchange(headerAccepted_[static_cast<std::size_t>(field)], std::nullopt);
    if (!accepted) {
        return true;
    }
    const std::string& text = headerText(document_, field);
    // What a file came with stays, whatever it is.
    const bool allowed = text == *accepted || isAllowed(text);
    if (!allowed) {
        const Traduction& t = services_.traduction;
        services_.dialogues.AfficheMessage(
            t.Trad("Main", "Il faut rentrer un entier compris entre 1 et 65535", "msgErreurEntier"),
            MessageStyle::ok | MessageStyle::warning,
            t.Trad("Main", "Erreur de saisie", "msgErreurSaisie"));
        putHeaderText(field, {});
    }
    undo_.endMerge(document_);
    sauvegardertexte();
    return allowed;
}

void Session::endStep() {
    if (!busy_) {
        undo_.endMerge(document_);
        factsChanged();
    }
}

void Session::setCodePage(int CodePage, Then then) {
    if (!facts_.hasDocument || CodePage == document_.CodePage) {
        if (then) {
            then(facts_.hasDocument);
        }
        return;
    }
    command(std::move(then), [this, CodePage](const Then& end) {
        settle([this, CodePage, end](bool settled) {
            const int old = document_.CodePage;
            const bool done =
                settled &&
                commit(
                    {Change::What::header, {}, nullptr, {}},
                    [CodePage](Document& edited) { edited.CodePage = CodePage; }, "CodePage");
            if (done) {
                const std::size_t different = differentLabels(document_, old, CodePage);
                if (different > 0) {
                    told(services_.traduction.Trad(
                             "Main", "Labels qui se lisent autrement dans cette page de code :",
                             "msgLabelsAutrement") +
                         ' ' + std::to_string(different));
                }
            } else {
                factsChanged();
            }
            end(done);
        });
    });
}

void Session::setHeaderSize(int bytes, Then then) {
    if (!facts_.hasDocument || bytes == document_.TailleEntete) {
        if (then) {
            then(facts_.hasDocument);
        }
        return;
    }
    command(std::move(then), [this, bytes](const Then& end) {
        settle([this, bytes, end](bool settled) {
            const bool done =
                settled &&
                commit(
                    {Change::What::header, {}, nullptr, {}},
                    [bytes](Document& edited) { edited.TailleEntete = bytes; }, "TailleEntete");
            if (!done) {
                factsChanged();
            }
            end(done);
        });
    });
}

}  // namespace quillmark
