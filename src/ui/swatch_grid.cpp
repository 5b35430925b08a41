#include "ui/swatch_grid.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "paint/qt_image.h"
#include "ui/qt_text.h"

namespace quillmark {

QColor swatchEdge(const QPalette& palette) {
    QColor edge = palette.color(QPalette::WindowText);
    edge.setAlphaF(0.25F);
    return edge;
}

std::optional<QPoint> arrowOf(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Left:
            return QPoint(-1, 0);
        case Qt::Key_Right:
            return QPoint(1, 0);
        case Qt::Key_Up:
            return QPoint(0, -1);
        case Qt::Key_Down:
            return QPoint(0, 1);
        default:
            return std::nullopt;
    }
}

void drawFrame(QPainter& painter, const QRect& cell) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(cell.adjusted(-1, -1, 0, 0));
}

SwatchGrid::SwatchGrid(const char* objectName, Shape shape) : shape_(shape) {
    setObjectName(QLatin1String(objectName));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void SwatchGrid::setSwatches(std::vector<ChooserSwatch> swatches) {
    const bool another = swatches.size() != swatches_.size();
    swatches_ = std::move(swatches);
    current_ = std::clamp(current_, 0, std::max(count() - 1, 0));
    if (another) {
        updateGeometry();
    }
    describe();
    update();
}

void SwatchGrid::setFramed(int index) {
    if (framed_ != index) {
        framed_ = index;
        describe();
        update();
    }
}

void SwatchGrid::setColumns(int columns) {
    if (shape_.columns != columns) {
        shape_.columns = columns;
        updateGeometry();
        update();
    }
}

QSize SwatchGrid::sizeHint() const {
    const int rows = std::max((count() + shape_.columns - 1) / shape_.columns, 1);
    const QSize step(shape_.cell.width() + shape_.gap, shape_.cell.height() + shape_.gap);
    return {shape_.columns * step.width() - shape_.gap + 2 * kMargin,
            rows * step.height() - shape_.gap + 2 * kMargin};
}

QRect SwatchGrid::cellAt(int index) const {
    const int column = index % shape_.columns;
    const int row = index / shape_.columns;
    return {QPoint(kMargin + column * (shape_.cell.width() + shape_.gap),
                   kMargin + row * (shape_.cell.height() + shape_.gap)),
            shape_.cell};
}

int SwatchGrid::indexAt(QPoint point) const {
    // The gap behind a swatch counts to it.
    const int x = (point.x() - kMargin);
    const int y = (point.y() - kMargin);
    const int column = x / (shape_.cell.width() + shape_.gap);
    const int index = y / (shape_.cell.height() + shape_.gap) * shape_.columns + column;
    return x < 0 || y < 0 || column >= shape_.columns || index >= count() ? -1 : index;
}

void SwatchGrid::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor edge = swatchEdge(palette());
    for (int i = 0; i < count(); ++i) {
        const QRect cell = cellAt(i);
        painter.fillRect(cell, toQRgb(swatches_[static_cast<std::size_t>(i)].colour));
        painter.setPen(edge);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(cell.adjusted(0, 0, -1, -1));
    }
    if (hovered_ >= 0 && chosen) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(cellAt(hovered_));
    }
    for (int i = 0; i < count(); ++i) {
        if (i == framed_ || swatches_[static_cast<std::size_t>(i)].border) {
            drawFrame(painter, cellAt(i));
        }
    }
    if (hasFocus() && count() > 0) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), moved ? 1 : 2));
        painter.drawRect(moved ? rect().adjusted(0, 0, -1, -1)
                               : cellAt(current_).adjusted(-1, -1, 1, 1));
    }
}

bool SwatchGrid::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int index = indexAt(help->pos());
        if (index < 0) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(),
                               plainTip(toQt(swatches_[static_cast<std::size_t>(index)].tip)), this,
                               cellAt(index));
        }
        return true;
    }
    return QWidget::event(event);
}

void SwatchGrid::mouseMoveEvent(QMouseEvent* event) {
    const int under = indexAt(event->position().toPoint());
    const int index = under < firstChoice_ ? -1 : under;
    if (std::exchange(hovered_, index) != index) {
        update();
    }
}

void SwatchGrid::leaveEvent(QEvent* event) {
    hovered_ = -1;
    update();
    QWidget::leaveEvent(event);
}

void SwatchGrid::mousePressEvent(QMouseEvent* event) {
    const int index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || index < firstChoice_ || !chosen) {
        return QWidget::mousePressEvent(event);
    }
    current_ = index;
    chosen(index);
}

void SwatchGrid::keyPressEvent(QKeyEvent* event) {
    if (const std::optional<QPoint> way = arrowOf(*event)) {
        moved ? moved(way->x(), way->y()) : walk(way->x(), way->y());
    } else if (event->key() != Qt::Key_Space) {
        QWidget::keyPressEvent(event);
    } else if (!moved && chosen && count() > 0) {
        chosen(current_);
    }
}

void SwatchGrid::setFirstChoice(int index) {
    current_ = firstChoice_ = index;
}

void SwatchGrid::walk(int columns, int rows) {
    const int next = current_ + columns + rows * shape_.columns;
    if (next >= firstChoice_ && next < count()) {
        current_ = next;
        describe();
        update();
    }
}

void SwatchGrid::describe() {
    const int told = moved ? framed_ : current_;
    setAccessibleDescription(told >= 0 && told < count()
                                 ? toQt(swatches_[static_cast<std::size_t>(told)].tip)
                                 : QString());
}

void SwatchGrid::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void SwatchGrid::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace quillmark
