#include "ui/main_menus.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFontMetrics>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QToolBar>
#include <cassert>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/main_menu_texts.h"
#include "ui/object_list_texts.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

// What enables a command.
enum Need : int { always, open, document, save, undo, redo, object };

// Pixels that a path may take in the menu.
constexpr int kWidestPath = 420;

}  // namespace

struct MainMenus::Row {
    const char* name = nullptr;  // null: a separator
    const char* icon = nullptr;
    Need need = always;
    QKeySequence shortcut = QKeySequence();
    bool checkable = false;
};

namespace {
const QKeySequence kRedo(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
}  // namespace

MainMenus::MainMenus(QMainWindow& window) : QObject(&window) {
    build(window);
    buildToolBar(window);
}

void MainMenus::add(const Row& row, QMenu& menu) {
    if (row.name == nullptr) {
        menu.addSeparator();
        return;
    }
    auto* action = new QAction(this);
    action->setObjectName(QLatin1String(row.name));
    if (row.icon != nullptr) {
        action->setIcon(icon(row.icon));
    }
    action->setShortcut(row.shortcut);
    action->setCheckable(row.checkable);
    menu.addAction(action);
    actions_.insert(row.name, action);
    needs_.insert(row.name, row.need);
}

void MainMenus::build(QMainWindow& window) {
    const Row separator{};
    struct Rows {
        const char* name;
        std::vector<Row> rows;
    };
    const std::vector<Rows> menus = {
        {"mnuFichier",
         {{"mnuNouveau", "new", open, QKeySequence(QKeySequence::New)},
          {"mnuOuvrirTYP", "open", open, QKeySequence(QKeySequence::Open)},
          {"mnuouvrirtxt", nullptr, open},
          {"mnuouvrirtxtUTF8", nullptr, open},
          {"mnuOuvrirTypMapset", nullptr, open},
          {"mnuMRU"},
          separator,
          {"mnuEnregistrer", "save", save, QKeySequence(QKeySequence::Save)},
          {"mnuEnregistrerTyp", "save-as", document,
           QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
          {"mnuEnregistrerTxt", nullptr, document},
          {"mnuEnregistrerTxtUTF8", nullptr, document},
          separator,
          {"mnufermer", "close", document, QKeySequence(Qt::CTRL | Qt::Key_W)},
          {"mnuQuitter", "quit", always, QKeySequence(Qt::CTRL | Qt::Key_Q)}}},
        {"mnuEdition",
         {{"mnuAnnulerDocument", "undo", undo, QKeySequence(Qt::CTRL | Qt::Key_Z)},
          {"mnuRetablirDocument", "redo", redo, kRedo},
          separator,
          {"mnuAnnuler"},
          {"mnuCouper", "cut"},
          {"mnuCopier", "copy"},
          {"mnuColler", "paste"},
          {"mnuSupprimer", "delete"},
          {"mnuSelectionnerTout", "select-all"},
          separator,
          {"mnuRecherche", "find", document, QKeySequence(QKeySequence::Find)},
          {"mnuFiltrer", nullptr, document, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)},
          separator,
          {"mnuPreferences", "settings", open, QKeySequence(QKeySequence::Preferences)}}},
        {"mnuAffichage",
         {{"mnuTexte", "text", always, QKeySequence(Qt::CTRL | Qt::Key_1), true},
          {"mnuIcones", "sheet", always, QKeySequence(Qt::CTRL | Qt::Key_2), true},
          separator,
          {"mnuListesObjets", "panel-left", always, QKeySequence(Qt::Key_F7), true},
          {"mnuApercu", "panel-right", always, QKeySequence(Qt::Key_F8), true},
          separator,
          {"mnuMessages", "journal", always, QKeySequence(Qt::Key_F4)},
          separator,
          {"mnuChoixLangue", "globe", always}}},
        {"mnuObjets",
         {{"cmdModifier", "edit", object},
          {"cmdSupprimer", "delete", object},
          separator,
          {"cmdDraworder", "order", document},
          {"cmdLabels", "labels", document}}},
        {"mnuOutils",
         {{"mnuSauvegardeAuto", nullptr, always, QKeySequence(), true},
          {"mnusauvegardetexte", "backup", always},
          separator,
          {"mnuInstallerTyp", "install", open},
          {"mnuEffacerCache", "cache", open},
          {"mnuShading", "shade", open},
          separator,
          {"mnucompiler", "compile", open},
          {"mnuTypSpeciaux", "identify", open}}},
        {"mnuAide", {{"mnuMiseAJour", "update", always}, separator, {"mnuAProposDe", "about"}}},
    };
    for (const auto& entry : menus) {
        QMenu* menu = window.menuBar()->addMenu(QString());
        menu->setObjectName(QLatin1String(entry.name));
        menu->setToolTipsVisible(true);
        menus_.insert(entry.name, menu);
        for (const Row& row : entry.rows) {
            add(row, *menu);
        }
    }
    auto* recent = new QMenu(&window);
    recent->setObjectName(QStringLiteral("mnuMRU"));
    recent->setToolTipsVisible(true);
    recent->setIcon(icon("recent"));
    action("mnuMRU").setMenu(recent);
    menus_.insert("mnuMRU", recent);
    handled_.insert("mnuMRU", true);

    auto* views = new QActionGroup(this);
    views->addAction(&action("mnuTexte"));
    views->addAction(&action("mnuIcones"));
    action("mnuTexte").setChecked(true);
    action("mnuQuitter").setMenuRole(QAction::QuitRole);
    action("mnuAProposDe").setMenuRole(QAction::AboutRole);
    action("mnuPreferences").setMenuRole(QAction::PreferencesRole);
    // Text controls answer the platform's keys themselves; the menu only names them.
    for (const auto& [name, handler] : std::initializer_list<std::pair<const char*, const char*>>{
             {"mnuAnnuler", "undo"},
             {"mnuCouper", "cut"},
             {"mnuCopier", "copy"},
             {"mnuColler", "paste"},
             {"mnuSupprimer", "delete"},
             {"mnuSelectionnerTout", "selectAll"}}) {
        handled_.insert(name, true);
        action(name).setEnabled(false);
        connect(
            &action(name), &QAction::triggered, this,
            guarded(name + std::string("_Click"), "frmMain", [this, handler = QByteArray(handler)] {
                if (QWidget* focused = textControl_) {
                    if (handler == "delete") {
                        auto* line = qobject_cast<QLineEdit*>(focused);
                        if (line != nullptr && !line->isReadOnly() && line->hasSelectedText()) {
                            line->del();
                        } else if (auto* text = qobject_cast<QPlainTextEdit*>(focused);
                                   text != nullptr && !text->isReadOnly()) {
                            text->textCursor().removeSelectedText();
                        }
                    } else {
                        QMetaObject::invokeMethod(focused, handler.constData());
                    }
                }
            }));
    }
    // A control may have become read-only since it got the focus.
    connect(&menu("mnuEdition"), &QMenu::aboutToShow, this,
            guarded("mnuEdition_Click", "frmMain", [this] { followFocus(textControl_); }));
}

void MainMenus::buildToolBar(QMainWindow& window) {
    toolBar_ = window.addToolBar(QString());
    toolBar_->setObjectName(QStringLiteral("tlbPrincipale"));
    toolBar_->setMovable(false);
    toolBar_->setContextMenuPolicy(Qt::PreventContextMenu);
    toolBar_->setFocusPolicy(Qt::NoFocus);
    for (const char* name : {"mnuListesObjets", "", "mnuNouveau", "mnuOuvrirTYP", "mnuEnregistrer",
                             "", "mnuAnnulerDocument", "mnuRetablirDocument", "", "mnuRecherche"}) {
        if (*name == '\0') {
            toolBar_->addSeparator();
        } else {
            toolBar_->addAction(&action(name));
        }
    }
    auto* stretch = new QWidget;
    stretch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    toolBar_->addWidget(stretch);
    toolBar_->addAction(&action("mnuTexte"));
    toolBar_->addAction(&action("mnuIcones"));
    toolBar_->addSeparator();
    toolBar_->addAction(&action("mnuApercu"));
}

QAction& MainMenus::action(const char* name) const {
    QAction* found = actions_.value(name);
    assert(found != nullptr);
    return *found;
}

QMenu& MainMenus::menu(const char* name) const {
    QMenu* found = menus_.value(name);
    assert(found != nullptr);
    return *found;
}

void MainMenus::on(const char* name, std::function<void()> handler) {
    handled_.insert(name, true);
    connect(&action(name), &QAction::triggered, this,
            guarded(name + std::string("_Click"), "frmMain", std::move(handler)));
    showState(name);
}

void MainMenus::retranslate(const Traduction& traduction) {
    for (const auto& [name, text] : mainMenuTexts(traduction)) {
        if (QMenu* menu = menus_.value(name.c_str())) {
            menu->setTitle(toQt(text));
            if (actions_.contains(name.c_str())) {
                actions_.value(name.c_str())->setText(toQt(text));
            }
        } else {
            action(name.c_str()).setText(toQt(text));
        }
    }
    laterTip_ = toQt(laterText(traduction));
    clearText_ = toQt(traduction.Trad("Main", "&Vider la liste", "mnuMRUVider"));
    toolBar_->setAccessibleName(toQt(traduction.Trad("Main", "Barre d'outils", "tlbPrincipale")));
    for (auto each = actions_.constBegin(); each != actions_.constEnd(); ++each) {
        showState(each.key());
    }
}

void MainMenus::setStates(const CommandStates& states) {
    states_ = states;
    for (auto each = needs_.constBegin(); each != needs_.constEnd(); ++each) {
        showState(each.key());
    }
}

void MainMenus::showState(const QByteArray& name) {
    QAction& shown = *actions_.value(name);
    const bool handled = handled_.value(name, false);
    bool enabled = handled;
    switch (needs_.value(name)) {
        case open:
            enabled = enabled && states_.open;
            break;
        case document:
            enabled = enabled && states_.document;
            break;
        case save:
            enabled = enabled && states_.save;
            break;
        case undo:
            enabled = enabled && states_.undo;
            break;
        case redo:
            enabled = enabled && states_.redo;
            break;
        case object:
            enabled = enabled && states_.object;
            break;
        default:
            if (name == "mnuAnnuler" || name == "mnuCouper" || name == "mnuCopier" ||
                name == "mnuColler" || name == "mnuSupprimer" || name == "mnuSelectionnerTout") {
                enabled = shown.isEnabled();
            } else if (name == "mnuMRU") {
                enabled = hasRecent_ && states_.open;
            }
            break;
    }
    shown.setEnabled(enabled);
    QString tip = shown.text();
    tip = tip.left(tip.indexOf(QLatin1Char('\t'))).remove(QLatin1Char('&'));
    if (!shown.shortcut().isEmpty()) {
        tip += QStringLiteral(" (") + shown.shortcut().toString(QKeySequence::NativeText) +
               QLatin1Char(')');
    }
    if (!handled) {
        tip += QLatin1Char('\n') + reasons_.value(name, laterTip_);
    }
    shown.setToolTip(tip);
}

void MainMenus::followFocus(QWidget* focused) {
    // A menu that was opened by keyboard has the focus itself; its commands go where it was.
    if (qobject_cast<QMenu*>(focused) != nullptr || qobject_cast<QMenuBar*>(focused) != nullptr) {
        return;
    }
    textControl_ = focused;
    auto* line = qobject_cast<QLineEdit*>(focused);
    auto* text = qobject_cast<QPlainTextEdit*>(focused);
    const bool any = (line != nullptr && line->isEnabled()) || text != nullptr;
    const bool writable = (line != nullptr && !line->isReadOnly() && line->isEnabled()) ||
                          (text != nullptr && !text->isReadOnly());
    for (const char* name : {"mnuCopier", "mnuSelectionnerTout"}) {
        action(name).setEnabled(any);
    }
    for (const char* name : {"mnuAnnuler", "mnuCouper", "mnuColler", "mnuSupprimer"}) {
        action(name).setEnabled(writable);
    }
}

void MainMenus::setRecentFiles(const std::vector<std::string>& paths,
                               const std::function<void(const std::string&)>& open,
                               const std::function<void()>& clear) {
    QMenu& recent = menu("mnuMRU");
    recent.clear();
    const QFontMetrics metrics(recent.font());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const QString path = toQt(paths[i]);
        const QString shown =
            withoutAccessKey(metrics.elidedText(path, Qt::ElideMiddle, kWidestPath));
        QAction* entry = recent.addAction(QStringLiteral("&%1  %2").arg(i + 1).arg(shown));
        entry->setToolTip(plainTip(path));
        connect(entry, &QAction::triggered, this,
                guarded("mnuMRU_Click", "frmMain", [open, path = paths[i]] { open(path); }));
    }
    if (!paths.empty()) {
        recent.addSeparator();
        connect(recent.addAction(clearText_), &QAction::triggered, this,
                guarded("mnuMRUVider_Click", "frmMain", clear));
    }
    hasRecent_ = !paths.empty();
    showState("mnuMRU");
}

}  // namespace quillmark
