// How a command of the session keeps others out until it ends, and how it works elsewhere.
#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "session/session.h"

namespace quillmark {

// Lives as long as anything can still end the command; one that is dropped or that failed frees
// the session all the same.
struct Session::Running {
    explicit Running(Session& owner) : session(owner), alive(owner.alive_) { session.busy_ = true; }
    ~Running() { release(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    void release() {
        if (!std::exchange(released, true) && !alive.expired()) {
            session.busy_ = false;
            session.factsChanged();
        }
    }

    Session& session;
    std::weak_ptr<char> alive;
    bool released = false;
};

template <typename Result>
void Session::inBackground(std::string label, std::function<Result(Progress&)> work,
                           std::function<void(std::optional<Result>)> done,
                           std::function<void()> failed, bool cancellable) {
    if (pane_ != nullptr) {
        pane_->setEditable(false);
    }
    auto result = std::make_shared<std::optional<Result>>();
    Task task;
    task.label = std::move(label);
    task.cancellable = cancellable;
    task.work = [result, work = std::move(work)](Progress& progress) {
        result->emplace(work(progress));
    };
    task.done = [this, result, done = std::move(done),
                 failed = std::move(failed)](const TaskEnd& end) {
        if (pane_ != nullptr) {
            pane_->setEditable(facts_.hasDocument);
        }
        if (end.failure) {
            try {
                std::rethrow_exception(end.failure);
            } catch (...) {
                failed();
            }
        } else if (end.cancelled) {
            done(std::nullopt);
        } else {
            done(std::move(*result));
        }
    };
    services_.tasks.run(std::move(task));
}

}  // namespace quillmark
