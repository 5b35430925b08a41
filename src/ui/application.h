// The process as the platform sees it: failures that nobody caught, the end of the user's session.
#pragma once

#include <QApplication>
#include <QSessionManager>

#include "ui/session_end.h"

namespace quillmark {

class Application : public QApplication {
  public:
    // Keeps references to its arguments.
    Application(int& argc, char** argv);

    // What an end of the session does while there is a window.
    void setSessionEnd(const SessionEnd* end) { sessionEnd_ = end; }

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    void commitData(QSessionManager& manager);

    const SessionEnd* sessionEnd_ = nullptr;
    bool telling_ = false;
};

}  // namespace quillmark
