#include "ui/window_place.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace quillmark {
namespace {

// A window that nothing shows, as behind a locked screen, has to go on all the same.
constexpr int kPaintedAtLatest = 500;  // milliseconds

ScreenArea areaOf(const QRect& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

std::vector<ScreenArea> screenAreas() {
    const QScreen* primary = QGuiApplication::primaryScreen();
    std::vector<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const auto place = screen == primary ? areas.begin() : areas.end();
        areas.insert(place, areaOf(screen->availableGeometry()));
    }
    return areas;
}

WindowAtExit windowNow(const QWidget& window) {
    WindowAtExit now;
    now.maximised = (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) != 0;
    now.knowsPlace = !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    if (window.windowState() == Qt::WindowNoState) {
        now.normal = areaOf(QRect(window.pos(), window.size()));
    }
    return now;
}

}  // namespace

WindowPlace::WindowPlace(QWidget& window, Settings& settings)
    : window_(window), settings_(settings) {
    const WindowGeometry start = startGeometry(settings, screenAreas());
    window.resize(start.normal.width, start.normal.height);
    window.move(start.normal.left, start.normal.top);
    if (start.maximised) {
        window.setWindowState(Qt::WindowMaximized);
    }
    window.installEventFilter(this);
}

void WindowPlace::show(std::function<void()> painted) {
    painted_ = std::move(painted);
    window_.show();
    if (QWindow* handle = window_.windowHandle()) {
        handle->installEventFilter(this);
    }
    QTimer::singleShot(kPaintedAtLatest, this, [this] { wasPainted(); });
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_ && event->type() == QEvent::Close) {
        // Hidden windows don't know their place on every platform.
        last_ = windowNow(window_);
        closed_ = true;
    } else if (event->type() == QEvent::Expose && watched == window_.windowHandle() &&
               window_.windowHandle()->isExposed()) {
        // The toolkit paints within this event, so the next turn of the loop is behind it.
        QTimer::singleShot(0, this, [this] { wasPainted(); });
    }
    return false;
}

void WindowPlace::wasPainted() {
    if (const auto painted = std::exchange(painted_, {})) {
        painted();
    }
}

void WindowPlace::store() {
    storeGeometry(settings_, closed_ && !window_.isVisible() ? last_ : windowNow(window_));
}

}  // namespace quillmark
