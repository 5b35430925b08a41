// How long the text view keeps the window from living, with the largest texts there are.
#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <functional>

#include "core/files.h"
#include "support/test_files.h"
#include "text/code_pages.h"
#include "ui/text_editor.h"

namespace quillmark {
namespace {

// A step is to stay below 50 ms; a build without optimisation on a busy machine takes longer.
constexpr double kMilliseconds = 400;

// The slowest of some steps, with what it makes the window paint, in time of the processor.
double slowest(int steps, const std::function<void(int)>& step) {
    double longest = 0;
    for (int i = 0; i < steps; ++i) {
        const std::clock_t start = std::clock();
        step(i);
        QCoreApplication::processEvents();
        longest = std::max(longest, 1000.0 * static_cast<double>(std::clock() - start) /
                                        static_cast<double>(CLOCKS_PER_SEC));
    }
    return longest;
}

void measure(const std::string& name, std::string text) {
    TextEditor editor;
    editor.setEditable(true);
    editor.resize(900, 700);
    editor.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&editor));
    const double put = slowest(1, [&](int) { editor.setContent(text); });
    double fill = 0;
    while (editor.isFilling()) {
        fill = std::max(fill, slowest(1, [](int) {}));
    }
    const int lines = editor.document()->blockCount();
    QScrollBar& bar = *editor.verticalScrollBar();
    const double scroll = slowest(60, [&](int i) { bar.setValue(bar.maximum() / 60 * i); });
    const double key = slowest(20, [&](int i) {
        editor.goToLine(lines / 20 * i);
        QTest::keyClick(&editor, Qt::Key_X);
    });
    text.insert(text.find('\n', text.size() / 2) + 1, "[end]\r\n");
    const double change = slowest(1, [&](int) { editor.setContent(text); });
    std::printf(
        "%s, %d lines: put there %.1f ms, filled in steps of %.1f ms, scroll %.1f ms, "
        "key %.1f ms, a line more %.1f ms\n",
        name.c_str(), lines, put, fill, scroll, key, change);
    for (const double step : {put, fill, scroll, key, change}) {
        EXPECT_LT(step, kMilliseconds);
    }
}

TEST(TextSpeed, LargestRealText) {
    const auto files = testing::corpusFiles("txt");
    if (files.empty()) {
        GTEST_SKIP() << "no corpus";
    }
    const auto largest = *std::max_element(files.begin(), files.end(), [](auto& a, auto& b) {
        return std::filesystem::file_size(a) < std::filesystem::file_size(b);
    });
    measure("largest real text",
            decodeTextFile(readFile(largest), TextFileEncoding::automatic).text);
}

TEST(TextSpeed, ThreeHundredThousandLines) {
    std::string text;
    for (int i = 0; i < 10'000; ++i) {
        text += "[_point]\r\nType=0x10d\r\nSubType=0x1a\r\n;GRMN_TYPE: //\r\nString1=0x04,Source " +
                std::to_string(i) + "\r\nDayXpm=\"24 24 12 1\"   Colormode=16\r\n";
        for (int row = 0; row < 23; ++row) {
            text += "\"!!##!!##!!##!!##!!##!!##\"\r\n";
        }
        text += "[end]\r\n";
    }
    measure("generated text", text);
}

}  // namespace
}  // namespace quillmark
