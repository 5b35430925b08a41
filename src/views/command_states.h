// Which commands make sense at the moment.
#pragma once

#include "session/session.h"
#include "views/current_object.h"

namespace quillmark {

struct CommandStates {
    bool open = false;      // new, open and the recent files
    bool document = false;  // close, the saves, find
    bool save = false;      // there is something that a save would write
    bool undo = false;
    bool redo = false;
    bool object = false;  // one object is selected
    bool operator==(const CommandStates&) const = default;
};

[[nodiscard]] CommandStates commandStates(const Session& session, const CurrentObject& current);

}  // namespace quillmark
