// Taking a colour from anywhere on the screen.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "bitmap/colour.h"

class QWidget;

namespace quillmark {

class ScreenColour {
  public:
    using Seen = std::function<void(Couleur)>;
    using Ended = std::function<void(std::optional<Couleur>)>;

    virtual ~ScreenColour() = default;
    // Tells once, at once or later, whether `pick` works here.
    virtual void probe(std::function<void(bool)> answer) = 0;
    // The user points at a pixel: `seen` gets those on the way where they are known, `ended` the
    // one chosen or nothing. No other window gets the click.
    virtual void pick(QWidget& window, Seen seen, Ended ended) = 0;
    // Ends a pick without a word.
    virtual void giveUp() = 0;
};

// What this platform has: the desktop's own way first, then pictures of the screens.
[[nodiscard]] std::unique_ptr<ScreenColour> screenColour();

}  // namespace quillmark
