#include "ui/text_button.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

namespace quillmark {
namespace {

constexpr int kFlags = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic;

}  // namespace

TextButton::TextButton(const QString& objectName) {
    setObjectName(objectName);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int TextButton::iconRoom() const {
    return icon().isNull() ? 0 : fontMetrics().height() + fontMetrics().averageCharWidth();
}

int TextButton::heightForWidth(int width) const {
    const QRect room(0, 0, std::max(1, width - iconRoom()), 0x7FFF);
    return std::max(fontMetrics().height(),
                    fontMetrics().boundingRect(room, kFlags, text()).height());
}

QSize TextButton::sizeHint() const {
    const QString shown = QString(text()).remove(QLatin1Char('&'));
    return {fontMetrics().horizontalAdvance(shown) + iconRoom() + 1, fontMetrics().height()};
}

QSize TextButton::minimumSizeHint() const {
    return {std::min(sizeHint().width(), fontMetrics().averageCharWidth() * 10 + iconRoom()),
            fontMetrics().height()};
}

void TextButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const int side = fontMetrics().height();
    if (!icon().isNull()) {
        icon().paint(&painter, 0, 0, side, side, Qt::AlignCenter,
                     isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
    const QRect room = rect().adjusted(iconRoom(), 0, 0, 0);
    QFont underlined = font();
    underlined.setUnderline(isEnabled());
    painter.setFont(underlined);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(room, kFlags, text());
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect();
        option.backgroundColor = palette().color(QPalette::Window);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

}  // namespace quillmark
