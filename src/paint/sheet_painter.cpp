#include "paint/sheet_painter.h"

#include <QFontMetrics>

#include "paint/qt_image.h"
#include "views/device_pixels.h"

namespace quillmark {
namespace {

constexpr int kTextRim = 2;
constexpr int kSelectionWidth = 2;

// In device pixels, so that every pixel of a picture is of one size.
void paintPicture(QPainter& painter, const IconSheet& sheet, const Picture& picture,
                  const QPoint& corner, Ground ground) {
    const SheetOptions& options = sheet.options();
    const double ratio = options.ratio;
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.translate(deviceLength(corner.x(), ratio), deviceLength(corner.y(), ratio));
    const QRect area(0, 0, deviceLength(sheet.layout().cellWidth(), ratio),
                     deviceLength(sheet.pictureHeight(), ratio));
    painter.setClipRect(area, Qt::IntersectClip);
    const int unit = deviceScale(1, ratio);
    if (picture.image.width() > 0) {
        const Rectangle place = sheet.pictureIn(picture.image);
        const QRect target(place.x, place.y, place.width, place.height);
        Image squares(2 * kCheckerSide, 2 * kCheckerSide, kTransparent);
        paintGround(squares, ground, options.night);
        QBrush brush(toQImage(squares));
        brush.setTransform(QTransform::fromScale(unit, unit));
        painter.setBrushOrigin(target.topLeft());
        painter.fillRect(target, brush);
        painter.drawImage(target, toQImage(picture.image));
    }
    if (picture.faults.any()) {
        const QImage mark = toQImage(faultMark());
        const QSize size = mark.size() * unit;
        const int rim = 3 * unit;
        painter.drawImage(
            QRect(QPoint(area.width() - rim - size.width(), area.height() - rim - size.height()),
                  size),
            mark);
    }
    painter.restore();
}

}  // namespace

int sheetLineHeight(const QFont& font) {
    return QFontMetrics(font).height();
}

void paintCell(QPainter& painter, const IconSheet& sheet, const SheetCell& cell,
               const SheetTheme& theme, const QPoint& corner, bool selected) {
    const QRect frame(corner, QSize(cell.frame.width, cell.frame.height));
    painter.fillRect(frame, theme.ground);
    paintPicture(painter, sheet, *cell.picture, corner, theme.picture);

    painter.setFont(theme.font);
    const QFontMetrics metrics(theme.font);
    const int lineHeight = sheet.options().lineHeight;
    QRect line(frame.x() + kTextRim, frame.y() + sheet.pictureHeight() - kTextRim,
               frame.width() - 2 * kTextRim, lineHeight);
    for (const SheetLine& said : cell.lines) {
        painter.setPen(QColor(toQRgb(said.colour)));
        const QString text =
            metrics.elidedText(QString::fromStdString(said.text), Qt::ElideRight, line.width());
        painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, text);
        line.translate(0, lineHeight);
    }

    painter.fillRect(QRect(frame.right(), frame.y(), 1, frame.height()), theme.frame);
    painter.fillRect(QRect(frame.x(), frame.bottom(), frame.width(), 1), theme.frame);
    if (selected) {
        QPen pen(theme.selection, kSelectionWidth);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(frame.adjusted(1, 1, -2, -2));
    }
}

}  // namespace quillmark
