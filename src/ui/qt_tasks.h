// Long work in threads of its own, its end in the thread of the windows.
#pragma once

#include <QObject>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "core/signal.h"
#include "core/tasks.h"

namespace quillmark {

// Nothing here ever waits for a thread without a bound: one that hangs on a dead drive is left to
// itself, and its result to nobody.
class QtTasks : public QObject, public Tasks {
  public:
    QtTasks();
    ~QtTasks() override;

    void run(Task task) override;
    void runBehind(std::function<void()> work,
                   std::function<void(std::exception_ptr)> done) override;

    // The task begun last, for the status bar.
    Signal<std::string, bool> started;  // its label, and whether it may be cancelled
    Signal<double> progressed;          // from 0 to 1
    Signal<> ended;

    // Ends the task begun last, if it may be cancelled: `done` is called before this returns.
    void cancel();

    // At the end of the program: waits for work that mustn't be cut short. False when threads are
    // left, which the process then has to end without unwinding.
    [[nodiscard]] bool settle(std::chrono::milliseconds limit);

  private:
    struct Shared;
    class Reporter;
    struct Running {
        std::shared_ptr<Reporter> reporter;
        std::function<void(const TaskEnd&)> done;
        bool cancellable = true;
    };

    void showProgress(std::uint64_t number, double fraction);
    void finish(std::uint64_t number, const TaskEnd& end);
    void finishBehind(std::uint64_t number, const std::exception_ptr& failure);

    std::shared_ptr<Shared> shared_;
    std::uint64_t last_ = 0;
    std::map<std::uint64_t, Running> running_;
    // What is called at an end stays in this thread; the others only know its number.
    std::map<std::uint64_t, std::function<void(std::exception_ptr)>> behind_;
};

}  // namespace quillmark
