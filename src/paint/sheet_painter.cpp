#include "paint/sheet_painter.h"

#include <QFontMetrics>
#include <cstdint>

#include "paint/qt_image.h"
#include "views/device_pixels.h"

namespace quillmark {
namespace {

constexpr int kTextRim = 2;
constexpr int kTextFoot = 5;  // keeps what hangs below the last line clear of the frame
constexpr int kSelectionWidth = 2;

void fillGround(QPainter& painter, const QRect& area, Ground ground, bool night, int unit) {
    Image squares(2 * kCheckerSide, 2 * kCheckerSide, kTransparent);
    paintGround(squares, ground, night);
    if (ground != Ground::checker) {
        painter.fillRect(area, QColor(toQRgb(squares.pixel(0, 0))));
        return;
    }
    QBrush brush(toQImage(squares));
    brush.setTransform(QTransform::fromScale(unit, unit));
    painter.setBrushOrigin(area.topLeft());
    painter.fillRect(area, brush);
}

// Everything in device pixels, so that every pixel of the picture is of one size.
void paintPicture(QPainter& painter, const IconSheet& sheet, const Picture& picture,
                  Ground ground) {
    const SheetOptions& options = sheet.options();
    const QRect area(
        0, 0, deviceLength(sheet.layout().cellWidth(), options.ratio),
        deviceLength(sheet.pictureHeight() - (labelLines(options.labels) > 0 ? kTextFoot : 0),
                     options.ratio));
    painter.setClipRect(area);
    const int unit = deviceScale(1, options.ratio);
    if (picture.image.width() > 0) {
        const Rectangle place = sheet.pictureIn(picture.image);
        const QRect target(place.x, place.y, place.width, place.height);
        fillGround(painter, target, ground, options.night, unit);
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
    painter.setClipping(false);
}

// In logical pixels.
void paintLines(QPainter& painter, const IconSheet& sheet, const SheetCell& cell,
                const QFont& font) {
    const QFontMetrics metrics(font);
    const int height = sheet.options().lineHeight;
    QRect line(kTextRim, sheet.pictureHeight() - kTextFoot, cell.frame.width - 2 * kTextRim,
               height);
    painter.setFont(font);
    for (const SheetLine& said : cell.lines) {
        painter.setPen(QColor(toQRgb(said.colour)));
        const QString text =
            metrics.elidedText(QString::fromStdString(said.text), Qt::ElideRight, line.width());
        painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, text);
        line.translate(0, height);
    }
}

template <typename Value>
void append(std::string& content, const Value& value) {
    content.append(reinterpret_cast<const char*>(&value), sizeof value);
}

// All that a cell's look depends on, besides the theme.
std::string contentOf(const IconSheet& sheet, const SheetCell& cell) {
    std::string content;
    append(content, reinterpret_cast<std::uintptr_t>(cell.picture.get()));
    append(content, cell.frame.width);
    append(content, cell.frame.height);
    append(content, sheet.pictureScale());
    append(content, sheet.options().ratio);
    append(content, sheet.options().lineHeight);
    append(content, sheet.options().night);
    for (const SheetLine& line : cell.lines) {
        append(content, line.colour);
        append(content, line.text.size());
        content += line.text;
    }
    return content;
}

}  // namespace

int sheetLineHeight(const QFont& font) {
    return QFontMetrics(font).height();
}

void SheetPainter::setTheme(const SheetTheme& theme) {
    theme_ = theme;
    cells_.clear();
}

void SheetPainter::afficheIcone(QPainter& painter, const IconSheet& sheet, const SheetCell& cell,
                                const QPoint& corner, bool selected) {
    const auto kept = cells_.get(
        contentOf(sheet, cell), [&] { return painted(sheet, cell); },
        [](const PaintedCell& made) { return static_cast<std::size_t>(made.image.sizeInBytes()); });
    painter.drawImage(corner, kept->image);
    if (selected) {
        QPen pen(theme_.selection, kSelectionWidth);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(
            QRect(corner, QSize(cell.frame.width, cell.frame.height)).adjusted(1, 1, -2, -2));
    }
}

SheetPainter::PaintedCell SheetPainter::painted(const IconSheet& sheet,
                                                const SheetCell& cell) const {
    const double ratio = sheet.options().ratio;
    const QSize size(cell.frame.width, cell.frame.height);
    PaintedCell made{QImage(deviceLength(size.width(), ratio), deviceLength(size.height(), ratio),
                            QImage::Format_RGB32),
                     cell.picture};
    made.image.fill(theme_.ground);
    QPainter painter(&made.image);
    paintPicture(painter, sheet, *cell.picture, theme_.picture);
    painter.scale(ratio, ratio);
    paintLines(painter, sheet, cell, theme_.font);
    painter.fillRect(QRect(size.width() - 1, 0, 1, size.height()), theme_.frame);
    painter.fillRect(QRect(0, size.height() - 1, size.width(), 1), theme_.frame);
    painter.end();
    made.image.setDevicePixelRatio(ratio);
    return made;
}

}  // namespace quillmark
