// Long work away from the user's hands: a function of values runs elsewhere, its end comes back.
#pragma once

#include <exception>
#include <functional>
#include <string>

namespace quillmark {

// What running work may ask and tell. May be used from any thread.
class Progress {
  public:
    virtual ~Progress() = default;
    // From 0 to 1.
    virtual void at(double fraction) = 0;
    [[nodiscard]] virtual bool cancelled() const = 0;
};

struct TaskEnd {
    bool cancelled = false;                // the result is to be dropped
    std::exception_ptr failure = nullptr;  // what the work threw
    [[nodiscard]] bool completed() const { return !cancelled && !failure; }
};

struct Task {
    std::string label;        // for the status bar, such as "Lecture de carte.typ"
    bool cancellable = true;  // false once a file is being replaced
    // Touches nothing but what it holds itself; its result is kept by a shared pointer.
    std::function<void(Progress&)> work;
    // Called in the thread that called `run`.
    std::function<void(const TaskEnd&)> done;
};

class Tasks {
  public:
    virtual ~Tasks() = default;
    virtual void run(Task task) = 0;
    // Work that nobody waits for, one after the other; `done` gets what it threw, or null.
    virtual void runBehind(std::function<void()> work,
                           std::function<void(std::exception_ptr)> done) = 0;
};

// Does the work at once and in place: for the command line and for tests.
class ImmediateTasks : public Tasks {
  public:
    void run(Task task) override;
    void runBehind(std::function<void()> work,
                   std::function<void(std::exception_ptr)> done) override;
};

}  // namespace quillmark
