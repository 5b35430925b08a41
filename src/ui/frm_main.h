// The main window: lists on the left, text or icons in the middle, preview on the right.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <deque>
#include <functional>

#include "core/signal.h"
#include "ui/app_context.h"
#include "ui/main_menus.h"

class QSplitter;
class QStackedWidget;

namespace quillmark {

class DocumentCardPanel;
class IconSheetPanel;
class MainStatusBar;
class ObjectListsPanel;
class Preferences;
class PreviewPanel;
class TextPanel;
class WelcomePage;
class frmErreur;
class frmRecherche;

class frmMain : public QMainWindow {
  public:
    explicit frmMain(AppContext& context);
    ~frmMain() override;

    [[nodiscard]] MainMenus& menus() { return menus_; }
    [[nodiscard]] MainStatusBar& statusLine() { return *status_; }
    // What the platform's request to end the session and the close box share; `then(true)` once
    // the window may go.
    void Form_QueryUnload(const Session::Then& then);
    // Once no command runs, behind what is under way: never from within a question.
    void whenFree(std::function<void()> action);
    // For the end of the user's session, when everybody who can be was asked: holds for as long as
    // that takes, or until something changes.
    void closeUnasked();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void runWaiting();
    void buildPanes();
    void connectCommands();
    void connectViewCommands();
    void observe();
    void restoreLayout();
    [[nodiscard]] QList<int> storedWidths() const;
    void restoreSplitter();
    void saveSplitter();

    void ChangerLangue();
    void showState();
    void showRecentFiles();
    void showMiddle();
    void showText();

    // Without an event loop of its own; the window goes when it is closed.
    template <typename Window>
    void openModal() {
        auto* window = new Window(this, context_);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->open();
    }
    void openJournal();
    void openSearch();
    void openPreferences(const Preferences& shown);
    void storePreferences(const Preferences& choices);
    void offerPlatformLanguage();

    AppContext& context_;
    MainMenus menus_;
    QSplitter* panes_;
    QWidget* left_;
    QStackedWidget* middle_;
    PreviewPanel* right_;
    IconSheetPanel* sheet_;
    WelcomePage* welcome_;
    TextPanel* text_;
    DocumentCardPanel* card_;
    ObjectListsPanel* lists_;
    MainStatusBar* status_;
    QPointer<frmErreur> journal_;
    QPointer<frmRecherche> search_;
    std::vector<Connection> connections_;
    std::optional<std::vector<std::string>> recentShown_;
    std::deque<std::function<void()>> waiting_;
    bool closeWaits_ = false;
    bool mayClose_ = false;
    bool unasked_ = false;  // see `closeUnasked`
    bool splitterRestored_ = false;
};

}  // namespace quillmark
