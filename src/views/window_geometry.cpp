#include "views/window_geometry.h"

#include <algorithm>

namespace quillmark {
namespace {

constexpr int kLeastWidth = 800;
constexpr int kLeastHeight = 500;
constexpr int kFirstWidth = 961;
constexpr int kFirstHeight = 711;
constexpr int kFirstShare = 80;  // percent of a screen that is smaller than that
// What must be seen of the title bar for a hand to move the window.
constexpr int kGripWidth = 100;
constexpr int kGripHeight = 30;
constexpr int kMaximised = 2;

// Within bounds of the settings there is no overflow.
int overlap(int start, int length, int otherStart, int otherLength) {
    return std::min(start + length, otherStart + otherLength) - std::max(start, otherStart);
}

bool holdsGrip(const ScreenArea& screen, const ScreenArea& window) {
    return overlap(window.left, window.width, screen.left, screen.width) >= kGripWidth &&
           overlap(window.top, kGripHeight, screen.top, screen.height) >= kGripHeight;
}

ScreenArea firstSize(const ScreenArea& screen) {
    if (screen.width < kFirstWidth || screen.height < kFirstHeight) {
        return {0, 0, std::max(screen.width * kFirstShare / 100, kLeastWidth),
                std::max(screen.height * kFirstShare / 100, kLeastHeight)};
    }
    return {0, 0, kFirstWidth, kFirstHeight};
}

}  // namespace

WindowGeometry startGeometry(const Settings& settings, const std::vector<ScreenArea>& screens) {
    WindowGeometry start;
    start.maximised = settings.number(keys::kWindowState) == kMaximised;
    start.normal = {settings.pixels(keys::kGauche), settings.pixels(keys::kDessus),
                    settings.pixels(keys::kLargeur), settings.pixels(keys::kHauteur)};
    ScreenArea& window = start.normal;
    if (screens.empty()) {
        return start;
    }
    const bool first = !settings.isStored(keys::kLargeur) && !settings.isStored(keys::kHauteur);
    window.width = std::max(window.width, kLeastWidth);
    window.height = std::max(window.height, kLeastHeight);
    const auto found = std::find_if(screens.begin(), screens.end(), [&](const ScreenArea& screen) {
        return holdsGrip(screen, window);
    });
    const ScreenArea& screen = found == screens.end() ? screens.front() : *found;
    if (first) {
        const ScreenArea size = firstSize(screen);
        window.width = size.width;
        window.height = size.height;
    }
    window.width = std::min(window.width, screen.width);
    window.height = std::min(window.height, screen.height);
    if (!holdsGrip(screen, window)) {
        window.left = screen.left + (screen.width - window.width) / 2;
        window.top = screen.top + (screen.height - window.height) / 2;
    }
    return start;
}

void storeGeometry(Settings& settings, const WindowAtExit& window) {
    settings.setNumber(keys::kWindowState, window.maximised ? kMaximised : 0);
    if (!window.normal || window.maximised) {
        return;
    }
    settings.setPixels(keys::kLargeur, window.normal->width);
    settings.setPixels(keys::kHauteur, window.normal->height);
    if (window.knowsPlace) {
        settings.setPixels(keys::kGauche, window.normal->left);
        settings.setPixels(keys::kDessus, window.normal->top);
    }
}

}  // namespace quillmark
