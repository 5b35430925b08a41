#include "ui/session_end.h"

#include <memory>

namespace quillmark {

bool SessionEnd::requested(bool allowsInteraction) const {
    if (!allowsInteraction) {
        backUp();
        closeUnasked();
        return true;
    }
    const auto agreed = std::make_shared<bool>(false);
    queryUnload([agreed, end = endProgram](bool done) {
        if (done) {
            *agreed = true;
            end();
        }
    });
    return *agreed;
}

void SessionEnd::withoutQuestion() const {
    try {
        backUp();
    } catch (...) {
        // There is nobody to be told any more.
    }
    endProgram();
}

}  // namespace quillmark
