// How the text view looks and what keys, mouse and clipboard do in it.
#include "ui/text_editor.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFontDatabase>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <cmath>

#include "ui/line_numbers.h"
#include "ui/raw_text.h"

namespace quillmark {
namespace {

constexpr int kTabColumns = 4;
constexpr qreal kSmallestFont = 5;
constexpr qreal kLargestFont = 48;
constexpr int kWheelStep = 120;
constexpr int kMargin = 6;

}  // namespace

TextEditor::TextEditor(QWidget* parent)
    : QPlainTextEdit(parent),
      highlighter_(*document()),
      filler_(*document(), [this] { filledUp(); }),
      numbers_(new LineNumbers(*this)) {
    setObjectName(QStringLiteral("BoxVisualisation"));
    setLineWrapMode(NoWrap);
    setFrameShape(NoFrame);
    setTabChangesFocus(false);
    setCursorWidth(2);
    document()->setDocumentMargin(kMargin);
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setStyleHint(QFont::Monospace);
    usualSize_ = fixed.pointSizeF() > 0 ? fixed.pointSizeF() : 10;
    setFont(fixed);
    connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { layOutNumbers(); });
    connect(this, &QPlainTextEdit::updateRequest, this,
            [this](const QRect& /*area*/, int /*by*/) { numbers_->update(); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] {
        viewport()->update();  // the band of the current line
        numbers_->update();
    });
    followFont();
    followPalette();
    watchChanges();
    showReadOnly();
}

TextEditor::~TextEditor() = default;

void TextEditor::followFont() {
    setTabStopDistance(kTabColumns * QFontMetricsF(font()).horizontalAdvance(u' '));
    layOutNumbers();
}

void TextEditor::followPalette() {
    const TextTheme theme = textTheme(palette());
    if (theme == theme_) {
        return;
    }
    theme_ = theme;
    highlighter_.setTheme(theme);
    viewport()->update();
    numbers_->update();
}

void TextEditor::layOutNumbers() {
    const int width = numbers_->sizeHint().width();
    if (width != viewportMargins().left()) {
        setViewportMargins(width, 0, 0, 0);
    }
    const QRect inside = contentsRect();
    numbers_->setGeometry(inside.left(), inside.top(), width, inside.height());
}

void TextEditor::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    layOutNumbers();
    // The line that is being typed in stays in sight when what stands below appears.
    if (hasFocus() && event->oldSize().height() > event->size().height()) {
        ensureCursorVisible();
    }
}

void TextEditor::showEvent(QShowEvent* event) {
    QPlainTextEdit::showEvent(event);
    if (wanted_ && !isFilling()) {
        bringIntoSight(wanted_->first, wanted_->second);
    }
}

void TextEditor::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        followFont();
    } else if (event->type() == QEvent::PaletteChange) {
        followPalette();
    }
}

void TextEditor::zoom(int steps) {
    QFont zoomed = font();
    const qreal size = steps == 0 ? usualSize_ : zoomed.pointSizeF() + steps;
    zoomed.setPointSizeF(std::clamp(size, kSmallestFont, kLargestFont));
    setFont(zoomed);
}

QTextBlock TextEditor::colourVisible() {
    const QTextBlock first = firstVisibleBlock();
    QTextBlock last = first;
    qreal bottom = contentOffset().y();
    for (QTextBlock block = first; block.isValid() && bottom <= viewport()->height();
         block = block.next()) {
        bottom += blockBoundingRect(block).height();
        last = block;
    }
    highlighter_.colour(first, last);
    return last;
}

void TextEditor::paintBackgrounds(const QTextBlock& lastVisible) {
    QPainter painter(viewport());
    const auto [firstMarked, lastMarked] = markedLines();
    const int current = textCursor().blockNumber();
    const int width = viewport()->width();
    qreal top = contentOffset().y();
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF band(0, top, width, blockBoundingRect(block).height());
        const int line = block.blockNumber();
        if (line >= firstMarked && line <= lastMarked) {
            painter.fillRect(band, theme_.marked);
            painter.fillRect(QRectF(0, band.top(), 2, band.height()), theme_.markEdge);
        } else if (line == current) {
            painter.fillRect(band, theme_.currentLine);
        }
        if (block == lastVisible) {
            break;
        }
        top = band.bottom();
    }
}

void TextEditor::paintEvent(QPaintEvent* event) {
    paintBackgrounds(colourVisible());
    QPlainTextEdit::paintEvent(event);
}

bool TextEditor::handleKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers =
        event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    const int key = event.key();
    if (modifiers == Qt::ControlModifier && (key == Qt::Key_Tab || key == Qt::Key_Backtab)) {
        const bool back = key == Qt::Key_Backtab || (event.modifiers() & Qt::ShiftModifier) != 0;
        setTabChangesFocus(true);
        focusNextPrevChild(!back);
        setTabChangesFocus(false);
    } else if (event.matches(QKeySequence::ZoomIn) ||
               (modifiers == Qt::ControlModifier && key == Qt::Key_Equal)) {
        zoom(1);
    } else if (event.matches(QKeySequence::ZoomOut)) {
        zoom(-1);
    } else if (modifiers == Qt::ControlModifier && key == Qt::Key_0) {
        zoom(0);
    } else if (!isReadOnly() && event.matches(QKeySequence::InsertLineSeparator)) {
        // A separator within a line would look like a new one without being one.
        textCursor().insertBlock();
        ensureCursorVisible();
    } else if (!isReadOnly() && event.matches(QKeySequence::Undo)) {
        undo();
    } else if (!isReadOnly() && event.matches(QKeySequence::Redo)) {
        redo();
    } else {
        return false;
    }
    return true;
}

void TextEditor::mousePressEvent(QMouseEvent* event) {
    caretMoved_ = true;
    QPlainTextEdit::mousePressEvent(event);
}

void TextEditor::keyPressEvent(QKeyEvent* event) {
    const int before = textCursor().position();
    if (handleKey(*event)) {
        event->accept();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
    caretMoved_ = caretMoved_ || textCursor().position() != before;
}

void TextEditor::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    wheel_ += event->angleDelta().y();  // fine wheels turn by less than a step
    const int steps = wheel_ / kWheelStep;
    if (steps != 0) {
        wheel_ -= steps * kWheelStep;
        zoom(steps);
    }
    event->accept();
}

void TextEditor::undo() {
    if (isReadOnly()) {
        return;  // the text is being applied, or comes in
    }
    if (document()->isUndoAvailable()) {
        QPlainTextEdit::undo();
    } else {
        Q_EMIT undoBeyond();
    }
}

void TextEditor::redo() {
    if (isReadOnly()) {
        return;
    }
    if (document()->isRedoAvailable()) {
        QPlainTextEdit::redo();
    } else {
        Q_EMIT redoBeyond();
    }
}

void TextEditor::setEditMenu(QMenu* menu) {
    menu_ = menu;
}

void TextEditor::contextMenuEvent(QContextMenuEvent* event) {
    if (menu_ != nullptr) {
        const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
        menu_->popup(byKey ? viewport()->mapToGlobal(cursorRect().bottomLeft())
                           : event->globalPos());
    }
    event->accept();
}

// Text moves within the view; all else that is dropped is the window's.
void TextEditor::dragEnterEvent(QDragEnterEvent* event) {
    if (event->source() != this && event->source() != viewport()) {
        event->ignore();
        return;
    }
    QPlainTextEdit::dragEnterEvent(event);
}

void TextEditor::dragMoveEvent(QDragMoveEvent* event) {
    if (event->source() != this && event->source() != viewport()) {
        event->ignore();
        return;
    }
    QPlainTextEdit::dragMoveEvent(event);
}

void TextEditor::dropEvent(QDropEvent* event) {
    if (event->source() != this && event->source() != viewport()) {
        event->ignore();
        return;
    }
    QPlainTextEdit::dropEvent(event);
}

QMimeData* TextEditor::createMimeDataFromSelection() const {
    auto* data = new QMimeData;
    data->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    return data;
}

bool TextEditor::canInsertFromMimeData(const QMimeData* source) const {
    const QList<QUrl> urls = source->urls();
    const bool files =
        !urls.isEmpty() &&
        std::all_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    return source->hasText() && !files;
}

void TextEditor::insertFromMimeData(const QMimeData* source) {
    if (!isReadOnly() && canInsertFromMimeData(source)) {
        textCursor().insertText(rawText(source->text()));
        ensureCursorVisible();
    }
}

}  // namespace quillmark
