// What stands in the text view: put there, compared, searched, marked.
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "text/line_difference.h"
#include "ui/raw_text.h"
#include "ui/text_editor.h"

namespace quillmark {
namespace {

constexpr int kLinesAbove = 3;  // left above a line that is brought into sight
constexpr int kUpperPart = 3;   // of the height, where a long section may begin

}  // namespace

void TextEditor::watchChanges() {
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int position, int /*removed*/, int added) { contentChanged(position, added); });
    connect(document(), &QTextDocument::contentsChanged, this, [this] { tellEdited(); });
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { scrolled_ = true; });
}

void TextEditor::contentChanged(int position, int added) {
    if (!changing_) {
        range_.changed(*document(), position, added);
        Q_EMIT typed();
    }
}

void TextEditor::tellEdited() {
    const bool edited = !changing_ && range_.differs(*document());
    if (edited != edited_) {
        edited_ = edited;
        Q_EMIT editedChanged(edited);
    }
}

QString TextEditor::rawContent() const {
    return isFilling() || !edited_ ? range_.original() : document()->toRawText();
}

std::string TextEditor::content() const {
    return fileText(rawContent());
}

void TextEditor::setContent(const std::string& text) {
    const QString before = isFilling() || edited_ ? document()->toRawText() : range_.original();
    const QString after = rawText(text);
    Place place = isFilling() ? kept_ : this->place();
    filler_.stop();
    LineDifference change(viewOf(before), viewOf(after));
    place.line = change.follow(place.line);
    place.topLine = change.follow(place.topLine);
    kept_ = std::exchange(forgetPlace_, false) ? Place() : place;
    range_.reset(after);
    rebased_.clear();
    changing_ = true;
    lines_ = document()->blockCount() + change.moved();
    wanted_.reset();
    later_.clear();
    scrolled_ = caretMoved_ = false;
    unmark();
    // What it steps back to is gone.
    document()->setUndoRedoEnabled(false);
    showReadOnly();
    // Unedited from now on, also while the text still comes in: what waits for it mustn't wait.
    if (std::exchange(edited_, false)) {
        Q_EMIT editedChanged(false);
    }
    const auto tail = static_cast<qsizetype>(change.tail());
    filler_.replace(static_cast<int>(change.head()), static_cast<int>(before.size() - tail), after,
                    after.size() - tail);
}

void TextEditor::rebase(const std::string& text) {
    rebased_ = rawContent();
    range_.rebase(rawText(text));
    tellEdited();
}

void TextEditor::filledUp() {
    document()->setUndoRedoEnabled(true);
    document()->setModified(false);
    changing_ = false;
    showReadOnly();
    // Whoever went elsewhere meanwhile stays there.
    const Place now = place();
    if (caretMoved_) {
        kept_.line = now.line;
        kept_.column = now.column;
    }
    if (caretMoved_ || scrolled_) {
        kept_.topLine = now.topLine;
        kept_.across = now.across;
    }
    restore(kept_);
    for (const auto& later : std::exchange(later_, {})) {
        later();
    }
    tellEdited();
}

int TextEditor::lineCount() const {
    return changing_ ? std::max(lines_, document()->blockCount()) : document()->blockCount();
}

TextEditor::Place TextEditor::place() const {
    const QTextCursor cursor = textCursor();
    return {cursor.blockNumber(), cursor.positionInBlock(), firstVisibleBlock().blockNumber(),
            horizontalScrollBar()->value()};
}

void TextEditor::restore(const Place& place) {
    const QTextBlock block =
        document()->findBlockByNumber(std::min(place.line, document()->blockCount() - 1));
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + std::min(place.column, block.length() - 1));
    setTextCursor(cursor);
    const QTextBlock top =
        document()->findBlockByNumber(std::min(place.topLine, document()->blockCount() - 1));
    verticalScrollBar()->setValue(top.firstLineNumber());
    horizontalScrollBar()->setValue(place.across);
}

void TextEditor::setEditable(bool editable) {
    editable_ = editable;
    showReadOnly();
}

void TextEditor::showReadOnly() {
    const bool readOnly = !editable_ || changing_;
    if (readOnly != isReadOnly()) {
        setReadOnly(readOnly);
    }
    if (readOnly) {
        // With a cursor, so that the keyboard can select and copy.
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
}

std::pair<int, int> TextEditor::markedLines() const {
    return markStart_.isNull() ? std::pair(-1, -1)
                               : std::pair(markStart_.blockNumber(), markEnd_.blockNumber());
}

void TextEditor::markLines(int first, int last) {
    if (isFilling()) {
        later_.emplace_back([this, first, last] { markLines(first, last); });
        return;
    }
    if (edited_) {
        const QString now = rawContent();
        LineDifference change(viewOf(range_.original()), viewOf(now));
        first = change.follow(first);
        last = change.follow(last);
    }
    const int end = document()->blockCount() - 1;
    markStart_ = QTextCursor(document()->findBlockByNumber(std::clamp(first, 0, end)));
    markEnd_ = QTextCursor(document()->findBlockByNumber(std::clamp(last, 0, end)));
    viewport()->update();
}

void TextEditor::unmark() {
    if (isFilling()) {
        later_.emplace_back([this] { unmark(); });
    }
    markStart_ = markEnd_ = QTextCursor();
    viewport()->update();
}

void TextEditor::showLines(int first, int last) {
    if (isFilling()) {
        later_.emplace_back([this, first, last] {
            scrolled_ || caretMoved_ ? markLines(first, last) : showLines(first, last);
        });
        return;
    }
    markLines(first, last);
    const int line = textCursor().blockNumber();
    if (line < markStart_.blockNumber() || line > markEnd_.blockNumber()) {
        setTextCursor(markStart_);
    }
    bringIntoSight(markStart_.blockNumber(), markEnd_.blockNumber());
}

void TextEditor::goToLine(int line) {
    setFocus();
    if (isFilling()) {
        later_.emplace_back([this, line] { goToLine(line); });
        return;
    }
    if (edited_) {
        const QString now = rawContent();
        line =
            LineDifference(viewOf(rebased_.isEmpty() ? range_.original() : rebased_), viewOf(now))
                .follow(line);
    }
    const int end = document()->blockCount() - 1;
    setTextCursor(QTextCursor(document()->findBlockByNumber(std::clamp(line, 0, end))));
    bringIntoSight(textCursor().blockNumber(), textCursor().blockNumber());
}

void TextEditor::bringIntoSight(int first, int last) {
    wanted_.reset();
    if (!isVisible()) {
        wanted_ = {first, last};  // without a size nothing can be scrolled
        return;
    }
    // Lines that are seen whole.
    const int height = viewport()->height();
    QTextBlock block = firstVisibleBlock();
    const int top = block.blockNumber();
    int bottom = top - 1;
    for (qreal y = contentOffset().y(); block.isValid(); block = block.next(), ++bottom) {
        y += blockBoundingRect(block).height();
        if (y > height) {
            break;
        }
    }
    const bool seen = first >= top && first <= bottom;
    // Of what is too long or too low, the beginning matters.
    if (!seen || (last > bottom && first > top + (bottom - top) / kUpperPart)) {
        const int line = document()->findBlockByNumber(first).firstLineNumber();
        verticalScrollBar()->setValue(std::max(0, line - kLinesAbove));
    }
}

TextRange TextEditor::selectedRange() const {
    const QTextCursor cursor = textCursor();
    return {static_cast<std::size_t>(cursor.selectionStart()),
            static_cast<std::size_t>(cursor.selectionEnd() - cursor.selectionStart())};
}

void TextEditor::selectRange(const TextRange& range) {
    QTextCursor cursor = textCursor();
    const auto start = static_cast<int>(range.start);
    cursor.setPosition(start);
    cursor.setPosition(start + static_cast<int>(range.length), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    bringIntoSight(cursor.blockNumber(), cursor.blockNumber());
    ensureCursorVisible();
}

void TextEditor::replaceRanges(const std::vector<TextRange>& ranges, const QString& by) {
    const QString text = rawText(by);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    // From behind, so that the places of the others stay.
    for (std::size_t i = ranges.size(); i-- > 0;) {
        const auto start = static_cast<int>(ranges[i].start);
        cursor.setPosition(start);
        cursor.setPosition(start + static_cast<int>(ranges[i].length), QTextCursor::KeepAnchor);
        cursor.insertText(text);
    }
    cursor.endEditBlock();
    if (ranges.size() == 1) {
        setTextCursor(cursor);
        ensureCursorVisible();
        return;
    }
    cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

}  // namespace quillmark
