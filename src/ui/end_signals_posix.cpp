#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <csignal>

#include "ui/end_signals.h"

namespace quillmark {
namespace {

// A handler may do next to nothing, so it wakes the event loop through this.
int wakingEnd = -1;

extern "C" void wake(int /*signal*/) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(wakingEnd, &byte, 1);
}

}  // namespace

void onEndSignals(QObject* owner, const std::function<void()>& end) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0) {
        return;
    }
    wakingEnd = ends[0];
    auto* notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, owner, [notifier, end] {
        notifier->setEnabled(false);
        end();
    });
    struct sigaction action {};
    action.sa_handler = wake;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction old {};
        // Ignored signals (nohup) stay ignored.
        if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) {
            ::sigaction(signal, &action, nullptr);
        }
    }
}

}  // namespace quillmark
