#include "core/tasks.h"

namespace quillmark {
namespace {

class NoProgress : public Progress {
  public:
    void at(double /*fraction*/) override {}
    [[nodiscard]] bool cancelled() const override { return false; }
};

}  // namespace

void ImmediateTasks::run(Task task) {
    NoProgress progress;
    TaskEnd end;
    try {
        task.work(progress);
    } catch (...) {
        end.failure = std::current_exception();
    }
    task.done(end);
}

void ImmediateTasks::runBehind(std::function<void()> work,
                               std::function<void(std::exception_ptr)> done) {
    std::exception_ptr failure;
    try {
        work();
    } catch (...) {
        failure = std::current_exception();
    }
    done(failure);
}

}  // namespace quillmark
