#include "ui/session_end.h"

#include <memory>

namespace quillmark {

bool SessionEnd::requested(bool allowsInteraction) const {
    if (!allowsInteraction) {
        backUp();
        closeUnasked();
        return true;
    }
    // At once when there is nothing to ask or to save. The platform then ends the program, unless
    // it only wanted to know, or another program keeps the session alive.
    struct Answer {
        bool agreed = false;
        bool late = false;
    };
    const auto answer = std::make_shared<Answer>();
    queryUnload([answer, end = endProgram](bool done) {
        answer->agreed = done;
        if (done && answer->late) {
            end();
        }
    });
    answer->late = true;
    if (answer->agreed) {
        closeUnasked();
    }
    return answer->agreed;
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
