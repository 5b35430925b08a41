// One application for all window tests, without a screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdio>

namespace {

// What the platform without a screen says of itself would bury the tests' own words.
void tell(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.contains(QLatin1String("This plugin does not support")) &&
        !message.contains(QLatin1String("OpenType support missing")) &&
        !message.contains(QLatin1String("XDG_RUNTIME_DIR"))) {
        std::fprintf(stderr, "%s\n", message.toUtf8().constData());
    }
}

}  // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(tell);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    return RUN_ALL_TESTS();
}
