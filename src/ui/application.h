// The process as the platform sees it: failures that nobody caught, the end of the user's session.
#pragma once

#include <QApplication>
#include <functional>

class QSessionManager;

namespace quillmark {

class Application : public QApplication {
  public:
    // Keeps references to its arguments.
    Application(int& argc, char** argv);

    // Keeps what isn't saved, when the process has to end without a question.
    std::function<void()> backUp;
    // The window that closes with the user's session, and asks before it does.
    void setWindow(QWidget* window) { window_ = window; }

    bool notify(QObject* receiver, QEvent* event) override;

    // Ends the program as a signal of the platform does.
    void endWithoutQuestion();

  private:
    void commitData(QSessionManager& manager);

    QWidget* window_ = nullptr;
    bool telling_ = false;
};

}  // namespace quillmark
