#include "session/session.h"

#include <algorithm>

#include "core/paths.h"
#include "session/session_running.h"

namespace quillmark {

std::string SessionFacts::NomFichier() const {
    return utf8FromPath(FichierTYP.filename());
}

std::string SessionFacts::DossierFichier() const {
    return utf8FromPath(FichierTYP.parent_path());
}

Session::Session(Document& document, SessionServices services)
    : document_(document),
      services_(std::move(services)),
      recent_(services_.settings.store()),
      textSettings_(readTextSettings(services_.settings.store())) {}

Session::~Session() = default;

void Session::setTextPane(TextPane* pane) {
    pane_ = pane;
    view_.stale = true;
    if (pane_ != nullptr) {
        pane_->setEditable(facts_.hasDocument);
        refreshText();
    }
}

bool Session::textEdited() const {
    return pane_ != nullptr && facts_.hasDocument && pane_->isEdited();
}

bool Session::showsModified() const {
    return facts_.hasDocument && (!undo_.isSaved() || textEdited() || facts_.incompleteText);
}

bool Session::changed() const {
    return facts_.hasDocument && (facts_.isNew || showsModified());
}

void Session::command(Then then, const std::function<void(Then)>& body) {
    if (busy_) {
        // Whoever showed what was asked for shows what stands again.
        factsChanged();
        if (then) {
            then(false);
        }
        return;
    }
    auto running = std::make_shared<Running>(*this);
    factsChanged();
    body([running, then = std::move(then)](bool done) {
        running->release();
        if (then) {
            then(done);
        }
    });
}

void Session::tellChange(const Change& change, std::optional<GeneratedText> ready, bool reveal) {
    view_.stale = true;
    ready_ = std::move(ready);
    view_.shown = follow(view_.shown, change);
    if (change.select.kind != ObjectKind::none) {
        view_.shown = change.select;
    }
    if (change.selectNothing || !exists(document_, view_.shown)) {
        // What is typed in its place becomes a new object.
        view_.shown = {view_.shown.kind, -1, 0};
    }
    documentChanged(change);
    refreshText();
    if (reveal && change.select.kind != ObjectKind::none) {
        markSection(view_.shown);
    }
    factsChanged();
}

}  // namespace quillmark
