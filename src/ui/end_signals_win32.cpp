#include "ui/end_signals.h"

namespace quillmark {

// Windows asks its windows, which the toolkit hands on as the end of the session.
void onEndSignals(QObject* /*owner*/, const std::function<void()>& /*end*/) {}

}  // namespace quillmark
