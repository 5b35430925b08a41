#include <QSemaphore>
#include <QTest>
#include <QThread>

#include "ui/qt_tasks.h"

namespace quillmark {
namespace {

using namespace std::chrono_literals;

bool waitFor(const std::function<bool()>& reached) {
    return QTest::qWaitFor(reached, 5000);
}

TEST(QtTasks, WorkRunsElsewhereAndItsEndComesBack) {
    QtTasks tasks;
    std::vector<std::string> notices;
    const auto started = tasks.started.connect([&](const std::string& label, bool cancellable) {
        notices.push_back(label + (cancellable ? " +" : " -"));
    });
    const auto ended = tasks.ended.connect([&] { notices.emplace_back("ended"); });
    double fraction = 0;
    const auto progressed = tasks.progressed.connect([&](double at) { fraction = at; });

    QThread* const here = QThread::currentThread();
    const auto there = std::make_shared<QThread*>(here);
    QSemaphore seen;
    bool completed = false;
    tasks.run({"reading", true,
               [there, &seen](Progress& progress) {
                   *there = QThread::currentThread();
                   progress.at(0.25);
                   progress.at(7);
                   seen.acquire();
               },
               [&](const TaskEnd& end) {
                   completed = end.completed() && QThread::currentThread() == here;
               }});
    EXPECT_TRUE(waitFor([&] { return fraction == 1.0; }));
    EXPECT_FALSE(completed);
    seen.release();
    EXPECT_TRUE(waitFor([&] { return completed; }));
    EXPECT_NE(*there, here);

    std::exception_ptr failure;
    tasks.run({"writing", false, [](Progress&) { throw std::runtime_error("no"); },
               [&](const TaskEnd& end) { failure = end.failure; }});
    EXPECT_TRUE(waitFor([&] { return failure != nullptr; }));
    EXPECT_EQ(notices, (std::vector<std::string>{"reading +", "ended", "writing -", "ended"}));
    EXPECT_TRUE(tasks.settle(1s));
}

TEST(QtTasks, CancelLeavesHangingWorkToItself) {
    const auto hanging = std::make_shared<QSemaphore>();
    const auto over = std::make_shared<std::atomic<int>>(0);
    int ends = 0;
    {
        QtTasks tasks;
        const auto hang = [hanging, over](Progress& progress) {
            hanging->acquire();
            *over += progress.cancelled() ? 1 : 10;
        };
        tasks.run({"reading", true, hang, [&](const TaskEnd& end) { ends += end.cancelled; }});
        tasks.cancel();
        EXPECT_EQ(ends, 1);
        EXPECT_FALSE(tasks.settle(0ms));
        hanging->release();
        EXPECT_TRUE(waitFor([&] { return *over == 1; }));
        QTest::qWait(20);
        EXPECT_EQ(ends, 1) << "the end came twice";

        tasks.run({"writing", false, hang, [&](const TaskEnd&) { ++ends; }});
        tasks.cancel();
        EXPECT_EQ(ends, 1) << "a save was cut short";
    }
    hanging->release();
    EXPECT_TRUE(waitFor([&] { return *over == 11; }));
    EXPECT_EQ(ends, 1) << "nobody is there any more to hear of it";
}

TEST(QtTasks, WorkBehindKeepsItsOrderAndIsWaitedFor) {
    QtTasks tasks;
    std::vector<int> order;
    QSemaphore gate;
    std::vector<int> told;
    for (int i = 0; i < 3; ++i) {
        tasks.runBehind(
            [&, i] {
                gate.acquire();
                order.push_back(i);
                if (i == 1) {
                    throw std::runtime_error("disk full");
                }
            },
            [&, i](const std::exception_ptr& failure) { told.push_back(failure ? -i : i); });
    }
    EXPECT_FALSE(tasks.settle(10ms));
    gate.release(3);
    EXPECT_TRUE(tasks.settle(5s));
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
    EXPECT_TRUE(waitFor([&] { return told.size() == 3; }));
    EXPECT_EQ(told, (std::vector<int>{0, -1, 2}));
    // The thread is begun anew when there is work again.
    tasks.runBehind([&] { order.push_back(3); }, {});
    EXPECT_TRUE(tasks.settle(5s));
    EXPECT_EQ(order.back(), 3);
    // At the end of the program there is no event loop any more that would tell of an end.
    tasks.runBehind({[] {}}, [&](const std::exception_ptr&) {
        tasks.runBehind([&] { order.push_back(4); }, {});
    });
    EXPECT_TRUE(tasks.settle(5s));
    EXPECT_EQ(order.back(), 4);
}

}  // namespace
}  // namespace quillmark
