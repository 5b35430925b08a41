#include "ui/application.h"

#include <QScopedValueRollback>
#include <QSessionManager>

#include "ui/guard.h"

namespace quillmark {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Quillmark"));
    setApplicationVersion(QStringLiteral(QUILLMARK_VERSION));
    setDesktopFileName(QStringLiteral("quillmark"));
    // The platform answers the request by what was done when the signal returns.
    connect(
        this, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) { commitData(manager); }, Qt::DirectConnection);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        // A window that fails whenever it is painted must not bury the user in boxes.
        if (!telling_) {
            const QScopedValueRollback telling(telling_, true);
            tellUnforeseenOfModule("notify", "Application");
        }
        return false;
    }
}

void Application::commitData(QSessionManager& manager) {
    // The next session begins without a command line that a manager made up.
    manager.setRestartHint(QSessionManager::RestartNever);
    if (sessionEnd_ == nullptr) {
        return;
    }
    const bool interaction = manager.allowsInteraction();
    if (!sessionEnd_->requested(interaction)) {
        manager.cancel();
    }
    if (interaction) {
        manager.release();
    }
}

}  // namespace quillmark
