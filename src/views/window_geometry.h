// Where the main window stands at its start and what is kept of it at its end. Lengths are logical
// pixels.
#pragma once

#include <optional>
#include <vector>

#include "core/settings_table.h"

namespace quillmark {

struct ScreenArea {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const ScreenArea&) const = default;
};

struct WindowGeometry {
    ScreenArea normal;  // also of a maximised window, for when it is one no longer
    bool maximised = false;
};

// `screens` without what panels cover, the first one is the primary. Without screens the stored
// values are taken as they are.
[[nodiscard]] WindowGeometry startGeometry(const Settings& settings,
                                           const std::vector<ScreenArea>& screens);

// What a window tells of itself when it goes.
struct WindowAtExit {
    bool maximised = false;            // full screen too
    std::optional<ScreenArea> normal;  // of a window in its normal state
    bool knowsPlace = true;            // some platforms tell no window where it is
};
void storeGeometry(Settings& settings, const WindowAtExit& window);

}  // namespace quillmark
