#include "ui/elided_label.h"

#include <QPainter>

#include "ui/qt_text.h"

namespace quillmark {

ElidedLabel::ElidedLabel(const QString& objectName) {
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::show(const QString& text, const QString& tip) {
    setText(text);
    setToolTip(plainTip(tip.isEmpty() ? text : tip));
    updateGeometry();
}

QSize ElidedLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 1, fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    const int least = std::min(sizeHint().width(), fontMetrics().averageCharWidth() * 8);
    return {least, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor ink = palette().color(foregroundRole());
    if (secondary_) {
        ink.setAlphaF(0.75F);
    }
    painter.setPen(ink);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

}  // namespace quillmark
