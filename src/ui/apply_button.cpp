#include "ui/apply_button.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>

#include "ui/text_theme.h"

namespace quillmark {
namespace {

constexpr int kIcon = 18;
constexpr int kGap = 8;
constexpr int kMargin = 9;
constexpr int kRadius = 5;
constexpr int kFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;

}  // namespace

ApplyButton::ApplyButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

// The text takes as many lines as the width asks for.
int ApplyButton::heightForWidth(int width) const {
    const QRect room(0, 0, std::max(1, width - kIcon - kGap - 2 * kMargin), 10'000);
    return std::max(kIcon, fontMetrics().boundingRect(room, kFlags, text()).height()) + 2 * kMargin;
}

QSize ApplyButton::sizeHint() const {
    const int width = fontMetrics().horizontalAdvance(text()) + kIcon + kGap + 2 * kMargin + 2;
    return {width, heightForWidth(width)};
}

QSize ApplyButton::minimumSizeHint() const {
    return {sizeHint().width() / 3, heightForWidth(sizeHint().width())};
}

void ApplyButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor accent = palette().color(group, QPalette::Highlight);
    const QColor window = palette().color(group, QPalette::Window);
    const double tint = isDown() ? 0.34 : underMouse() && isEnabled() ? 0.26 : 0.18;
    painter.setPen(mixed(window, accent, 0.55));
    painter.setBrush(mixed(window, accent, tint));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);

    const int textWidth =
        std::min(fontMetrics().horizontalAdvance(text()) + 1, width() - kIcon - kGap - 2 * kMargin);
    const int left = std::max(kMargin, (width() - textWidth - kIcon - kGap) / 2);
    icon().paint(&painter, left, (height() - kIcon) / 2, kIcon, kIcon, Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setPen(palette().color(group, QPalette::WindowText));
    painter.drawText(QRect(left + kIcon + kGap, 0, textWidth, height()), kFlags, text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(3, 3, -3, -3);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

}  // namespace quillmark
