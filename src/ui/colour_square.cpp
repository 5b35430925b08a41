#include "ui/colour_square.h"

#include <QApplication>
#include <QPainter>

namespace quillmark {

QIcon colourSquare(const QColor& colour, QSize size, const QPalette& palette) {
    const double scale = qApp->devicePixelRatio();
    QPixmap drawn(size * scale);
    drawn.setDevicePixelRatio(scale);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    QColor edge = palette.color(QPalette::WindowText);
    edge.setAlphaF(0.4F);
    painter.setPen(edge);
    painter.setBrush(colour);
    painter.drawRect(1, 1, size.width() - 3, size.height() - 3);
    QIcon icon(drawn);
    icon.addPixmap(drawn, QIcon::Selected);
    return icon;
}

}  // namespace quillmark
