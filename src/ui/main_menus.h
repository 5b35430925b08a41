// The commands of the main window: menus, tool bar, shortcuts, texts, and which of them make sense.
#pragma once

#include <QHash>
#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

#include "core/translation.h"
#include "views/command_states.h"

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace quillmark {

class MainMenus : public QObject {
  public:
    explicit MainMenus(QMainWindow& window);

    // A command by its name, such as "mnuNouveau".
    [[nodiscard]] QAction& action(const char* name) const;
    [[nodiscard]] QMenu& menu(const char* name) const;
    // What a command does; it is enabled from then on where its state allows. A command that
    // nothing was given to stays disabled, with a tip that says so.
    void on(const char* name, std::function<void()> handler);

    // Why a command that was given nothing is disabled, where it isn't for want of a window.
    void explain(const char* name, const QString& reason) { reasons_.insert(name, reason); }
    void retranslate(const Traduction& traduction);
    void setStates(const CommandStates& states);
    // The six commands of the edit menu act on the text control that has the focus.
    void followFocus(QWidget* focused);
    // The entries of `mnuMRU`.
    void setRecentFiles(const std::vector<std::string>& paths,
                        const std::function<void(const std::string&)>& open,
                        const std::function<void()>& clear);

  private:
    struct Row;
    void build(QMainWindow& window);
    void buildToolBar(QMainWindow& window);
    void add(const Row& row, QMenu& menu);
    void showState(const QByteArray& name);

    bool hasRecent_ = false;
    CommandStates states_;
    QHash<QByteArray, QAction*> actions_;
    QHash<QByteArray, QMenu*> menus_;
    QHash<QByteArray, int> needs_;  // by name: which state enables it
    QHash<QByteArray, bool> handled_;
    QToolBar* toolBar_ = nullptr;
    QPointer<QWidget> textControl_;
    QHash<QByteArray, QString> reasons_;
    QString laterTip_;
    QString clearText_;
};

}  // namespace quillmark
