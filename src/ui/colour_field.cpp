#include "ui/colour_field.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <optional>

#include "ui/swatch_grid.h"

namespace quillmark {
namespace {

constexpr int kMargin = SwatchGrid::kMargin;  // as beside the swatches
constexpr int kFarther = 10;
constexpr int kArm = 9;  // from the middle of the cross to its ends
constexpr int kHole = 3;

// Black on white, so that it shows on every colour; the pixel that it points at stays free.
void drawCross(QPainter& painter, QPointF at) {
    QPainterPath arms;
    for (const QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
        arms.moveTo(at + way * kHole);
        arms.lineTo(at + way * kArm);
    }
    painter.setPen(QPen(Qt::white, 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(arms);
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawPath(arms);
}

}  // namespace

ColourField::ColourField(const char* objectName, QSize size, Mark mark) : size_(size), mark_(mark) {
    setObjectName(QLatin1String(objectName));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(mark == Mark::cross ? Qt::CrossCursor : Qt::SplitVCursor);
}

void ColourField::setPicture(const QImage& picture) {
    picture_ = picture;
    update();
}

void ColourField::setMark(QPoint mark) {
    if (at_ != mark) {
        at_ = mark;
        update();
    }
}

QSize ColourField::sizeHint() const {
    return size_ + QSize(2 * kMargin, 2 * kMargin);
}

void ColourField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect inside(QPoint(kMargin, kMargin), size_);
    painter.drawImage(inside, picture_);
    painter.setPen(swatchEdge(palette()));
    painter.drawRect(inside.adjusted(0, 0, -1, -1));
    if (mark_ == Mark::cross) {
        painter.save();
        painter.setClipRect(inside);
        painter.setRenderHint(QPainter::Antialiasing);
        drawCross(painter, QPointF(inside.topLeft() + at_) + QPointF(0.5, 0.5));
        painter.restore();
    } else {
        drawFrame(painter, {inside.left(), inside.top() + at_.y() - 1, inside.width(), 3});
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void ColourField::press(const QMouseEvent& event) const {
    if (pressed && event.buttons().testFlag(Qt::LeftButton)) {
        const QPointF at = event.position() - QPointF(kMargin, kMargin);
        pressed(QPoint(qFloor(at.x()), qFloor(at.y())));
    }
}

void ColourField::mousePressEvent(QMouseEvent* event) {
    press(*event);
}

void ColourField::mouseMoveEvent(QMouseEvent* event) {
    press(*event);
}

void ColourField::keyPressEvent(QKeyEvent* event) {
    const int far = event->modifiers().testFlag(Qt::ShiftModifier) ? kFarther : 1;
    const std::optional<QPoint> way = arrowOf(*event);
    if (!way) {
        return QWidget::keyPressEvent(event);
    }
    if (moved) {
        moved(way->x() * far, way->y() * far);
    }
}

void ColourField::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ColourField::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace quillmark
