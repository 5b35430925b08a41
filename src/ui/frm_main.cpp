#include "ui/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <chrono>
#include <utility>

#include "core/paths.h"
#include "ui/document_card_panel.h"
#include "ui/guard.h"
#include "ui/icon_sheet_panel.h"
#include "ui/icons.h"
#include "ui/main_status_bar.h"
#include "ui/object_lists_panel.h"
#include "ui/preview_panel.h"
#include "ui/qt_text.h"
#include "ui/text_editor.h"
#include "ui/text_panel.h"
#include "ui/welcome_page.h"
#include "views/command_states.h"
#include "views/document_card.h"

namespace quillmark {
namespace {

// How long a platform may take to end a session that it announced.
constexpr std::chrono::seconds kEndOfSession(60);
// First widths of the three panes, in logical pixels.
constexpr int kLeft = 330;
constexpr int kMiddle = 640;
constexpr int kRight = 264;
constexpr int kNarrowestMiddle = 240;

// The one local file of a drag that the window takes; the first of several.
std::filesystem::path droppedFile(const QMimeData& data) {
    if (!data.hasUrls() || data.urls().isEmpty() || !data.urls().constFirst().isLocalFile()) {
        return {};
    }
    std::filesystem::path file = pathFromUtf8(fromQt(data.urls().constFirst().toLocalFile()));
    return hasExtension(file, ".typ") || hasExtension(file, ".txt") ? file
                                                                    : std::filesystem::path();
}

// Never as a move, after which the file manager would delete the user's file.
void acceptAsCopy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

}  // namespace

frmMain::frmMain(AppContext& context)
    : context_(context),
      menus_(*this),
      panes_(new QSplitter),
      left_(new QWidget),
      middle_(new QStackedWidget),
      status_(new MainStatusBar) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(icon("quillmark"));
    setAcceptDrops(true);
    setStatusBar(status_);
    buildPanes();
    connectCommands();
    connectViewCommands();
    observe();
    restoreLayout();
    ChangerLangue();
    showState();
    showRecentFiles();
    showMiddle();
    if (context_.firstStart) {
        offerPlatformLanguage();
    }
}

frmMain::~frmMain() {
    // A window that goes while it is shown loses the focus, when parts of it are gone already.
    qApp->disconnect(this);
}

void frmMain::buildPanes() {
    card_ = new DocumentCardPanel(context_);
    lists_ = new ObjectListsPanel(context_);
    text_ = new TextPanel(nullptr, context_);
    welcome_ = new WelcomePage(menus_.action("mnuNouveau"), menus_.action("mnuOuvrirTYP"));

    sheet_ = new IconSheetPanel(context_);
    right_ = new PreviewPanel(context_);

    auto* column = new QVBoxLayout(left_);
    column->addWidget(card_);
    column->addWidget(lists_, 1);
    left_->setObjectName(QStringLiteral("fraListes"));
    middle_->setObjectName(QStringLiteral("fraMilieu"));
    middle_->addWidget(welcome_);
    middle_->addWidget(text_);
    middle_->addWidget(sheet_);
    // The middle gives way; lists and preview keep what they need.
    for (QWidget* page : {static_cast<QWidget*>(welcome_), static_cast<QWidget*>(text_),
                          static_cast<QWidget*>(sheet_)}) {
        page->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    middle_->setMinimumWidth(kNarrowestMiddle);

    panes_->setObjectName(QStringLiteral("splPrincipal"));
    panes_->addWidget(left_);
    panes_->addWidget(middle_);
    panes_->addWidget(right_);
    panes_->setStretchFactor(1, 1);
    panes_->setCollapsible(1, false);
    panes_->setChildrenCollapsible(false);
    setCentralWidget(panes_);
}

void frmMain::observe() {
    Session& session = context_.session;
    connections_.push_back(session.factsChanged.connect([this] {
        showState();
        showRecentFiles();
        if (!waiting_.empty() && !context_.session.busy()) {
            whenFree({});
        }
    }));
    connections_.push_back(session.documentChanged.connect([this](const Change& change) {
        if (change.what == Change::What::replaced) {
            // Text is read as text, and a new document has no icons yet; a compiled file opens as
            // the preferences say.
            const SessionFacts& facts = context_.session.facts();
            const bool asText = facts.OuvertEnTexte || facts.isNew ||
                                context_.settings.boolean(keys::kTexteAuDemarrage);
            menus_.action(asText ? "mnuTexte" : "mnuIcones").setChecked(true);
            showMiddle();
            if (context_.session.openJournal().ErreurFlag()) {
                // Once the document is shown, and told of.
                whenFree([this] { openJournal(); });
            }
        }
        unasked_ = false;  // whoever works on is asked again
        showState();
    }));
    connect(&text_->editor(), &TextEditor::typed, this, [this] { unasked_ = false; });
    connections_.push_back(context_.current.changed.connect([this] { showState(); }));
    connections_.push_back(
        session.told.connect([this](const std::string& line) { status_->tell(line); }));
    connections_.push_back(context_.languageChanged.connect([this] { ChangerLangue(); }));
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*old*/, QWidget* now) { menus_.followFocus(now); });
}

QList<int> frmMain::storedWidths() const {
    QList<int> widths;
    for (const QString& width :
         toQt(context_.settings.text(keys::kSeparateurs)).split(QLatin1Char(','))) {
        widths << width.toInt();
    }
    const bool usable =
        widths.size() == panes_->count() &&
        std::all_of(widths.begin(), widths.end(), [](int width) { return width > 0; });
    return usable ? widths : QList<int>{kLeft, kMiddle, kRight};
}

void frmMain::restoreSplitter() {
    QList<int> widths = storedWidths();
    // Left and right keep their widths, whatever width the window has now.
    widths[1] = std::max(panes_->width() - widths[0] - widths[2], kNarrowestMiddle);
    panes_->setSizes(widths);
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(splitterRestored_, true)) {
        // Once the window has its size and its parts have theirs.
        QMetaObject::invokeMethod(
            this, [this] { restoreSplitter(); }, Qt::QueuedConnection);
    }
}

void frmMain::restoreLayout() {
    connect(panes_, &QSplitter::splitterMoved, this,
            guarded("splPrincipal_Moved", "frmMain", [this] { saveSplitter(); }));
    for (const auto& [name, key, pane] :
         {std::tuple{"mnuListesObjets", keys::kListesObjets, left_},
          std::tuple{"mnuApercu", keys::kApercu, static_cast<QWidget*>(right_)}}) {
        const bool shown = context_.settings.boolean(key);
        menus_.action(name).setChecked(shown);
        pane->setVisible(shown);
    }
    menus_.action("mnuSauvegardeAuto").setChecked(context_.settings.boolean(keys::kSauvegardeAuto));
}

void frmMain::saveSplitter() {
    // A folded pane keeps the width it had.
    const QList<int> stored = storedWidths();
    const QList<int> sizes = panes_->sizes();
    QStringList widths;
    for (int i = 0; i < panes_->count(); ++i) {
        widths << QString::number(panes_->widget(i)->isVisible() ? sizes[i] : stored[i]);
    }
    context_.settings.setText(keys::kSeparateurs, fromQt(widths.join(QLatin1Char(','))));
}

void frmMain::showMiddle() {
    const bool hasDocument = context_.session.facts().hasDocument;
    const bool asText = menus_.action("mnuTexte").isChecked();
    QWidget* shown = asText ? static_cast<QWidget*>(text_) : sheet_;
    middle_->setCurrentWidget(hasDocument ? shown : welcome_);
    if (hasDocument && asText) {
        context_.session.refreshText();
    }
}

void frmMain::ChangerLangue() {
    menus_.explain(
        "mnuMiseAJour",
        toQt(context_.traduction.Trad("Preferences", "Aucune adresse de mise à jour n'est définie.",
                                      "chkUpdateTip")));
    menus_.retranslate(context_.traduction);
    status_->retranslate(context_.traduction);
    welcome_->retranslate(context_.traduction);
    left_->setAccessibleName(
        toQt(context_.traduction.Trad("Main", "Listes des objets", "fraListes")));
    right_->setAccessibleName(toQt(context_.traduction.Trad("Main", "Aperçu", "fraApercu")));
    showState();
    recentShown_.reset();
    showRecentFiles();
}

void frmMain::showState() {
    const Session& session = context_.session;
    const CommandStates states = commandStates(session, context_.current);
    menus_.setStates(states);
    welcome_->setCanOpen(states.open);
    QString title = toQt(quillmark::windowTitle(session.facts(), session.showsModified(),
                                                context_.Version, context_.traduction));
    // The toolkit's own mark for a changed document has no business in a file's name.
    title.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    setWindowTitle(title);
    status_->showFaults(session.errorCount(), session.warningCount());
    status_->showDocument(session.showsModified()
                              ? context_.traduction.Trad("Main", "modifié", "modif")
                              : std::string());
}

void frmMain::showRecentFiles() {
    std::vector<std::string> paths = context_.session.recentFiles().paths();
    if (recentShown_ == paths) {
        return;
    }
    recentShown_ = paths;
    // Behind the click: the entry that was clicked goes with the list it stands in.
    const auto later = [this](auto action) {
        QMetaObject::invokeMethod(this, guarded("mnuMRU_Click", "frmMain", std::move(action)),
                                  Qt::QueuedConnection);
    };
    const auto open = [this, later](const std::string& path) {
        later([this, path] { context_.session.ouvrir(pathFromUtf8(path)); });
    };
    menus_.setRecentFiles(paths, open, [this, later] {
        later([this] {
            context_.session.recentFiles().clear();
            showRecentFiles();
        });
    });
    welcome_->setRecentFiles(paths);
    welcome_->openRecent = open;
}

void frmMain::whenFree(std::function<void()> action) {
    if (action) {
        waiting_.push_back(std::move(action));
    }
    QMetaObject::invokeMethod(
        this, [this] { runWaiting(); }, Qt::QueuedConnection);
}

void frmMain::runWaiting() {
    // What is left when one of them starts a command waits for its end.
    while (!waiting_.empty() && !context_.session.busy()) {
        const std::function<void()> next = std::move(waiting_.front());
        waiting_.pop_front();
        guarded("Form_Load", "frmMain", next)();
    }
}

void frmMain::Form_QueryUnload(const Session::Then& then) {
    if (!context_.session.busy()) {
        context_.session.Form_QueryUnload(then);
    } else if (!std::exchange(closeWaits_, true)) {
        // A save is to end, and a question to be answered, before this one comes.
        whenFree([this, then] {
            closeWaits_ = false;
            context_.session.Form_QueryUnload(then);
        });
    }
}

void frmMain::closeUnasked() {
    unasked_ = true;
    QTimer::singleShot(kEndOfSession, this, [this] { unasked_ = false; });
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (mayClose_ || unasked_) {
        event->accept();
        return;
    }
    event->ignore();
    guarded("Form_QueryUnload", "frmMain", [this] {
        Form_QueryUnload([this](bool done) {
            if (done) {
                mayClose_ = true;
                // Behind this event: a window that is closing doesn't hear another close.
                QMetaObject::invokeMethod(
                    this, [this] { close(); }, Qt::QueuedConnection);
            }
        });
    })();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedFile(*event->mimeData()).empty() && !context_.session.busy()) {
        acceptAsCopy(*event);
    }
}

void frmMain::dropEvent(QDropEvent* event) {
    const std::filesystem::path file = droppedFile(*event->mimeData());
    if (!file.empty()) {
        acceptAsCopy(*event);
        // Behind the drop: a question inside of it would hold up the program it came from.
        QMetaObject::invokeMethod(this,
                                  guarded("picAfficheTout_OLEDragDrop", "frmMain",
                                          [this, file] { context_.session.ouvrir(file); }),
                                  Qt::QueuedConnection);
    }
}

}  // namespace quillmark
