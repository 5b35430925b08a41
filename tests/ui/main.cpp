#include <gtest/gtest.h>

#include <QApplication>

// Windows of tests are drawn into memory, whatever display there is.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
