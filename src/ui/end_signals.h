// Signals by which a platform ends programs without asking.
#pragma once

#include <QObject>
#include <functional>

namespace quillmark {

// `end` is called from the event loop, for as long as `owner` lives.
void onEndSignals(QObject* owner, const std::function<void()>& end);

}  // namespace quillmark
