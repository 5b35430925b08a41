#include "ui/screen_cover.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "bitmap/colour.h"
#include "paint/qt_image.h"
#include "ui/guard.h"
#include "ui/qt_text.h"
#include "ui/swatch_grid.h"

namespace quillmark {
namespace {

// The lens beside the pointer: pixels a side, and how large each is.
constexpr int kLensPixels = 11;
constexpr int kLensZoom = 10;
constexpr int kLens = kLensPixels * kLensZoom;
constexpr int kLensAway = 24;

}  // namespace

ScreenCover::ScreenCover(QWidget* parent, QPixmap picture, ScreenColour::Seen seen,
                         ScreenColour::Ended ended)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      picture_(std::move(picture)),
      pixels_(picture_.toImage()),
      seen_(std::move(seen)),
      ended_(std::move(ended)) {
    setObjectName(QStringLiteral("picEcran"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

QPoint ScreenCover::pixelAt(QPointF place) const {
    const double scale = picture_.devicePixelRatio();
    return {std::clamp(qFloor(place.x() * scale), 0, pixels_.width() - 1),
            std::clamp(qFloor(place.y() * scale), 0, pixels_.height() - 1)};
}

QRect ScreenCover::lensAt(QPoint place) const {
    QRect lens(place + QPoint(kLensAway, kLensAway),
               QSize(kLens, kLens + fontMetrics().height() * 3 / 2));
    if (lens.right() >= width()) {
        lens.moveRight(place.x() - kLensAway);
    }
    if (lens.bottom() >= height()) {
        lens.moveBottom(place.y() - kLensAway);
    }
    return lens;
}

void ScreenCover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    if (!at_) {
        return;
    }
    const QRect lens = lensAt(*at_);
    const QPoint pixel = pixelAt(*at_);
    const QPoint corner = pixel - QPoint(kLensPixels / 2, kLensPixels / 2);
    painter.fillRect(lens, palette().window());
    for (int y = 0; y < kLensPixels; ++y) {
        for (int x = 0; x < kLensPixels; ++x) {
            const QPoint shown = corner + QPoint(x, y);
            if (pixels_.valid(shown)) {
                painter.fillRect(lens.left() + x * kLensZoom, lens.top() + y * kLensZoom, kLensZoom,
                                 kLensZoom, pixels_.pixelColor(shown));
            }
        }
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(lens.adjusted(0, kLens, 0, 0), Qt::AlignCenter,
                     toQt(colourText(toCouleur(pixels_.pixel(pixel)))));
    drawFrame(painter, lens.adjusted(1, 1, -1, -1));
    const QRect middle(lens.topLeft() + QPoint(kLens - kLensZoom, kLens - kLensZoom) / 2,
                       QSize(kLensZoom, kLensZoom));
    painter.setPen(Qt::white);
    painter.drawRect(middle.adjusted(0, 0, -1, -1));
    painter.setPen(Qt::black);
    painter.drawRect(middle.adjusted(-1, -1, 0, 0));
}

void ScreenCover::lookAt(std::optional<QPoint> place) {
    for (const auto& each : {at_, place}) {
        if (each) {
            update(lensAt(*each));
        }
    }
    at_ = place;
}

void ScreenCover::mouseMoveEvent(QMouseEvent* event) {
    lookAt(event->position().toPoint());
    guarded("Timer1_Timer", "frmPalette",
            seen_)(toCouleur(pixels_.pixel(pixelAt(event->position()))));
}

// The end comes with the release, which another window would get otherwise.
void ScreenCover::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        end(toCouleur(pixels_.pixel(pixelAt(event->position()))));
    } else if (event->button() == Qt::RightButton) {
        end(std::nullopt);
    }
}

void ScreenCover::leaveEvent(QEvent* event) {
    lookAt(std::nullopt);
    QWidget::leaveEvent(event);
}

void ScreenCover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        end(std::nullopt);
    }
}

void ScreenCover::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    end(std::nullopt);
}

void ScreenCover::end(std::optional<Couleur> colour) {
    if (const auto ended = std::exchange(ended_, {})) {
        guarded("picPicker_End", "frmPalette", ended)(colour);
    }
}

}  // namespace quillmark
