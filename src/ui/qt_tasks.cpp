#include "ui/qt_tasks.h"

#include <QCoreApplication>
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>

namespace quillmark {
namespace {

// For a thread that is done with its work, or sees that nobody wants it any more.
constexpr std::chrono::milliseconds kLastStep(50);

}  // namespace

// Outlives the object as long as a thread needs it.
struct QtTasks::Shared {
    struct Behind {
        std::uint64_t number = 0;
        std::function<void()> work;
    };

    std::mutex mutex;
    std::condition_variable changed;
    QtTasks* owner = nullptr;  // null once it is gone
    std::deque<Behind> queue;
    bool behindRuns = false;
    int threads = 0;
    int mustEnd = 0;  // pieces of work that aren't to be cut short

    // Lets `call` run in the thread of the windows, if there still are any.
    template <typename Call>
    void post(Call call) {
        const std::lock_guard lock(mutex);
        if (owner != nullptr) {
            QMetaObject::invokeMethod(
                owner, [owner = owner, call = std::move(call)] { call(*owner); },
                Qt::QueuedConnection);
        }
    }
    void threadEnds(int done) {
        const std::lock_guard lock(mutex);
        --threads;
        mustEnd -= done;
        changed.notify_all();
    }
    void workBehind();
};

class QtTasks::Reporter : public Progress {
  public:
    Reporter(std::shared_ptr<Shared> shared, std::uint64_t number)
        : shared_(std::move(shared)), number_(number) {}

    void at(double fraction) override {
        latest_ = std::clamp(fraction, 0.0, 1.0);
        // One notice under way at a time: work may tell of its progress as often as it likes.
        if (!posted_.exchange(true)) {
            shared_->post([number = number_](QtTasks& tasks) {
                const auto found = tasks.running_.find(number);
                if (found != tasks.running_.end()) {
                    tasks.showProgress(number, found->second.reporter->take());
                }
            });
        }
    }
    [[nodiscard]] bool cancelled() const override { return cancelled_; }

    void cancel() { cancelled_ = true; }
    double take() {
        posted_ = false;
        return latest_;
    }

  private:
    std::shared_ptr<Shared> shared_;
    std::uint64_t number_;
    std::atomic<double> latest_ = 0;
    std::atomic<bool> posted_ = false;
    std::atomic<bool> cancelled_ = false;
};

QtTasks::QtTasks() : shared_(std::make_shared<Shared>()) {
    shared_->owner = this;
}

QtTasks::~QtTasks() {
    for (auto& [number, running] : running_) {
        if (running.cancellable) {
            running.reporter->cancel();
        }
    }
    const std::lock_guard lock(shared_->mutex);
    shared_->owner = nullptr;
}

void QtTasks::run(Task task) {
    const std::uint64_t number = ++last_;
    const auto reporter = std::make_shared<Reporter>(shared_, number);
    const int mustEnd = task.cancellable ? 0 : 1;
    {
        const std::lock_guard lock(shared_->mutex);
        ++shared_->threads;
        shared_->mustEnd += mustEnd;
    }
    running_[number] = {reporter, std::move(task.done), task.cancellable};
    started(task.label, task.cancellable);
    auto body = [shared = shared_, reporter, number, mustEnd,
                 work = std::move(task.work)]() mutable {
        TaskEnd end;
        try {
            work(*reporter);
        } catch (...) {
            end.failure = std::current_exception();
        }
        work = nullptr;  // what it holds is let go before anyone hears of the end
        shared->post([number, end](QtTasks& tasks) { tasks.finish(number, end); });
        shared->threadEnds(mustEnd);
    };
    try {
        std::thread(std::move(body)).detach();
    } catch (const std::system_error&) {
        shared_->threadEnds(mustEnd);
        finish(number, {false, std::current_exception()});
    }
}

void QtTasks::showProgress(std::uint64_t number, double fraction) {
    if (number == running_.rbegin()->first) {
        progressed(fraction);
    }
}

void QtTasks::finish(std::uint64_t number, const TaskEnd& end) {
    const auto found = running_.find(number);
    if (found == running_.end()) {
        return;  // cancelled, and told so
    }
    const auto done = std::move(found->second.done);
    running_.erase(found);
    if (running_.empty()) {
        ended();
    }
    done(end);
}

void QtTasks::cancel() {
    if (running_.empty() || !running_.rbegin()->second.cancellable) {
        return;
    }
    const auto& [number, newest] = *running_.rbegin();
    newest.reporter->cancel();
    finish(std::uint64_t{number}, {true, nullptr});
}

void QtTasks::runBehind(std::function<void()> work, std::function<void(std::exception_ptr)> done) {
    const std::uint64_t number = ++last_;
    behind_[number] = std::move(done);
    const std::lock_guard lock(shared_->mutex);
    shared_->queue.push_back({number, std::move(work)});
    ++shared_->mustEnd;
    if (!shared_->behindRuns) {
        // It can't begin before the lock is let go.
        std::thread([shared = shared_] { shared->workBehind(); }).detach();
        shared_->behindRuns = true;
        ++shared_->threads;
    }
}

void QtTasks::Shared::workBehind() {
    std::unique_lock lock(mutex);
    while (!queue.empty()) {
        Behind next = std::move(queue.front());
        queue.pop_front();
        lock.unlock();
        std::exception_ptr failure;
        try {
            next.work();
        } catch (...) {
            failure = std::current_exception();
        }
        next.work = nullptr;
        post([number = next.number, failure](QtTasks& tasks) {
            tasks.finishBehind(number, failure);
        });
        lock.lock();
        --mustEnd;
        changed.notify_all();
    }
    behindRuns = false;
    --threads;
    changed.notify_all();
}

void QtTasks::finishBehind(std::uint64_t number, const std::exception_ptr& failure) {
    const auto found = behind_.find(number);
    const auto done = std::move(found->second);
    behind_.erase(found);
    if (done) {
        done(failure);
    }
}

bool QtTasks::settle(std::chrono::milliseconds limit) {
    for (auto& [number, running] : running_) {
        if (running.cancellable) {
            running.reporter->cancel();
        }
    }
    running_.clear();  // nobody hears of their end any more
    const auto end = std::chrono::steady_clock::now() + limit;
    std::unique_lock lock(shared_->mutex);
    // What ended behind may ask for more, such as a text that was made for one that is to be kept.
    while (shared_->changed.wait_until(lock, end, [this] { return shared_->mustEnd == 0; }) &&
           !behind_.empty() && std::chrono::steady_clock::now() < end) {
        lock.unlock();
        QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
        lock.lock();
    }
    return shared_->changed.wait_for(lock, kLastStep, [this] { return shared_->threads == 0; });
}

}  // namespace quillmark
