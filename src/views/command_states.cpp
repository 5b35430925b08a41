#include "views/command_states.h"

namespace quillmark {

CommandStates commandStates(const Session& session, const CurrentObject& current) {
    CommandStates states;
    // While a command is under way nothing may change the document it works on.
    if (session.busy()) {
        return states;
    }
    states.open = true;
    states.document = session.facts().hasDocument;
    states.save = states.document;
    states.undo = session.canUndo();
    states.redo = session.canRedo();
    states.object = current.kind() != ObjectKind::none;
    return states;
}

}  // namespace quillmark
