// The text view in the window: the switch between document and object, the text, and the button
// that applies what was typed.
#pragma once

#include <QWidget>
#include <vector>

#include "core/signal.h"
#include "session/text_pane.h"
#include "ui/app_context.h"
#include "views/backup_pace.h"
#include "views/text_search.h"

class QMenu;
class QTimer;
class QToolButton;
class QVBoxLayout;

namespace quillmark {

class ApplyButton;
class TextEditor;

class TextPanel : public QWidget, public TextPane, public SearchedText {
  public:
    // Gives itself to the session as its text pane.
    TextPanel(QWidget* parent, AppContext& context);
    ~TextPanel() override;

    [[nodiscard]] TextEditor& editor() { return *editor_; }
    // `mnuEdition`, which a right click in the text opens.
    void setEditMenu(QMenu* menu);
    // A line of the text from 1, as the journal counts them.
    void goToLine(int line);

    // --- For the session ---
    [[nodiscard]] std::string text() const override;
    [[nodiscard]] bool isEdited() const override;
    [[nodiscard]] bool isShown() const override;
    void show(const std::string& text) override;
    using QWidget::show;
    void rebase(const std::string& text) override;
    void showLines(int firstLine, int lastLine) override;
    void unmark() override;
    void setEditable(bool editable) override;

    // --- For the search ---
    void bringIntoSight() override;
    [[nodiscard]] std::u16string content() const override;
    [[nodiscard]] TextRange selection() const override;
    void select(const TextRange& range) override;
    [[nodiscard]] bool isEditable() const override;
    void replace(const std::vector<TextRange>& ranges, const std::u16string& by) override;

    // The icon sheet is to give way to the text, at once.
    Signal<> revealRequested;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void build();
    void connectSwitch();
    void connectEditor();
    void retranslate();
    void showState();
    void followSubject();
    void markCurrent();
    void keepBackup();

    AppContext& context_;
    QWidget* bar_;
    QToolButton* cmdvoirtxt_;
    QToolButton* cmdvoirobjet_;
    TextEditor* editor_;
    ApplyButton* cmdAppliquerModif_;
    QVBoxLayout* foot_;
    QTimer* backupTimer_;
    BackupPace pace_;
    bool editable_ = false;
    // What the text shown last was of.
    bool wholeDocument_ = true;
    ObjectRef subject_;
    ObjectRef hiddenWith_;  // the current object when the text gave way to the icon sheet
    std::vector<Connection> connections_;
};

}  // namespace quillmark
