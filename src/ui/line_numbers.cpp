#include "ui/line_numbers.h"

#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

#include "ui/text_editor.h"

namespace quillmark {

LineNumbers::LineNumbers(TextEditor& editor) : QWidget(&editor), editor_(editor) {
    setObjectName(QStringLiteral("lblNumeros"));
}

QSize LineNumbers::sizeHint() const {
    const auto digits = QString::number(std::max(999, editor_.lineCount())).size();
    const QFontMetrics metrics(editor_.font());
    const int digit = metrics.horizontalAdvance(u'9');
    return {static_cast<int>(digits) * digit + 2 * digit, 0};
}

void LineNumbers::paintEvent(QPaintEvent* event) {
    const TextTheme& theme = editor_.theme();
    QPainter painter(this);
    painter.fillRect(event->rect(), theme.gutter);
    painter.setFont(editor_.font());
    const int current = editor_.textCursor().blockNumber();
    const int right = width() - QFontMetrics(editor_.font()).horizontalAdvance(u'9');
    QTextBlock block = editor_.firstVisibleBlock();
    qreal top = editor_.blockBoundingGeometry(block).translated(editor_.contentOffset()).top();
    while (block.isValid() && top <= event->rect().bottom()) {
        const qreal height = editor_.blockBoundingRect(block).height();
        if (top + height >= event->rect().top()) {
            const bool isCurrent = block.blockNumber() == current;
            painter.setPen(isCurrent ? theme.currentLineNumber : theme.lineNumber);
            painter.drawText(QRectF(0, top, right, height), Qt::AlignRight | Qt::AlignTop,
                             QString::number(block.blockNumber() + 1));
        }
        top += height;
        block = block.next();
    }
}

void LineNumbers::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(editor_.viewport(), event);
}

}  // namespace quillmark
