#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QTreeWidget>

#include "ui/frm_labels.h"
#include "ui/program.h"

namespace quillmark {
namespace {

TEST(FrmLabels, KeysCopyWholeRows) {
    testing::Program program;
    program.document.LabelsStrings = {'a', 0, 'b', 0, 'c', 0};
    program.document.LabelsTableA = {1, 2};
    program.document.EnteteLabels.entrySizeA = 1;
    frmLabels window(nullptr, program.context);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto& list = *window.findChild<QTreeWidget*>();
    list.setFocus();
    const auto copied = [&list] {
        QTest::keySequence(&list, QKeySequence::Copy);
        return QGuiApplication::clipboard()->text().toStdString();
    };
    EXPECT_EQ(copied(), "a\t01 \t\nb\t02 \t\nc\t\t");
    list.topLevelItem(1)->setSelected(true);
    list.topLevelItem(2)->setSelected(true);
    EXPECT_EQ(copied(), "b\t02 \t\nc\t\t");
}

}  // namespace
}  // namespace quillmark
