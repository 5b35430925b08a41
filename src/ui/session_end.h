// The end of the user's session at the platform, as far as the program has a say in it.
#pragma once

#include <functional>

namespace quillmark {

struct SessionEnd {
    // Asks about what isn't saved, as a close of the window does; told later when work goes on.
    std::function<void(std::function<void(bool done)>)> queryUnload;
    // Keeps what isn't saved.
    std::function<void()> backUp;
    std::function<void()> endProgram;
    // The close that the platform sends next asks nothing.
    std::function<void()> closeUnasked;

    // True when the platform may go on. When it may not, because of an answer or of a save that
    // isn't through, a later yes still ends the program.
    [[nodiscard]] bool requested(bool allowsInteraction) const;
    // For signals that nobody is asked about.
    void withoutQuestion() const;
};

}  // namespace quillmark
