// `BoxVisualisation`: the control that shows the text form and lets the user edit it. Every
// character from U+0020 to U+FFFD comes back out of it as it was put there, see `rawText`.
#pragma once

#include <QPlainTextEdit>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "text/search.h"
#include "ui/edited_range.h"
#include "ui/text_filler.h"
#include "ui/text_highlighter.h"
#include "ui/text_theme.h"

class QMenu;

namespace quillmark {

class LineNumbers;

// Lines are counted from 0.
class TextEditor : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit TextEditor(QWidget* parent = nullptr);
    ~TextEditor() override;

    // UTF-8, lines ended by CR LF.
    [[nodiscard]] std::string content() const;
    [[nodiscard]] QString rawContent() const;
    // Puts a text there that counts as unedited. Only lines that differ are touched; line of the
    // cursor and scroll stay. A large text comes in steps, meanwhile `content` is the new text and
    // the view is read-only.
    void setContent(const std::string& text);
    // Another text to be compared with; what stands there stays.
    void rebase(const std::string& text);
    [[nodiscard]] bool isFilling() const { return filler_.isActive(); }
    void finishFilling() { filler_.finish(); }
    // Differs from what `setContent` put there, or `rebase` named, whatever the way it came to
    // that.
    [[nodiscard]] bool isEdited() const { return edited_; }
    // The next text is another one: it is shown from its top.
    void forgetPlace() { forgetPlace_ = true; }

    void setEditable(bool editable);
    // Gives lines of the text as it was put there a background, wherever edits have moved them.
    void markLines(int first, int last);
    void unmark();
    // Marks lines and brings them into sight with the cursor, but without the focus.
    void showLines(int first, int last);
    // Takes the focus. A line of the text as it was at the last `rebase`, or was put there.
    void goToLine(int line);

    // Places are units of the raw text.
    [[nodiscard]] TextRange selectedRange() const;
    void selectRange(const TextRange& range);
    void replaceRanges(const std::vector<TextRange>& ranges, const QString& by);

    // Pops up on a right click and on the menu key.
    void setEditMenu(QMenu* menu);
    void zoom(int steps);

    [[nodiscard]] const TextTheme& theme() const { return theme_; }
    [[nodiscard]] std::pair<int, int> markedLines() const;

    // The view's own steps; without any, the document's are asked for.
    Q_SLOT void undo();
    Q_SLOT void redo();

    Q_SIGNAL void editedChanged(bool edited);
    Q_SIGNAL void typed();
    Q_SIGNAL void undoBeyond();
    Q_SIGNAL void redoBeyond();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    friend class LineNumbers;

    // Where the user was, to be found again in a text whose lines may have moved.
    struct Place {
        int line = 0;
        int column = 0;
        int topLine = 0;
        int across = 0;
    };

    void watchChanges();
    void contentChanged(int position, int added);
    void tellEdited();
    void filledUp();
    void showReadOnly();
    [[nodiscard]] int lineCount() const;
    [[nodiscard]] Place place() const;
    void restore(const Place& place);
    void bringIntoSight(int first, int last);

    void followFont();
    void followPalette();
    void layOutNumbers();
    [[nodiscard]] QTextBlock colourVisible();
    void paintBackgrounds(const QTextBlock& lastVisible);
    bool handleKey(const QKeyEvent& event);

    TextTheme theme_;
    TextHighlighter highlighter_;
    EditedRange range_;
    TextFiller filler_;
    LineNumbers* numbers_;
    QPointer<QMenu> menu_;
    qreal usualSize_ = 0;  // of the font, in points
    int wheel_ = 0;
    bool edited_ = false;
    bool changing_ = false;  // by `setContent`
    bool editable_ = false;
    bool forgetPlace_ = false;
    Place kept_;
    QString rebased_;  // what stood there at the last `rebase`; empty since `setContent`
    QTextCursor markStart_;
    QTextCursor markEnd_;
    int lines_ = 0;                             // of the text that is being filled in
    std::vector<std::function<void()>> later_;  // to be done once it stands there
    // What the user did while the text came in.
    bool scrolled_ = false;
    bool caretMoved_ = false;
    // Lines to be brought into sight once there is a size.
    std::optional<std::pair<int, int>> wanted_;
};

}  // namespace quillmark
