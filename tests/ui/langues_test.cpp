#include "ui/frm_langues.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>

#include "ui/program.h"

namespace quillmark {
namespace {

TEST(FrmLangues, OkTakesTheRowAndCancelTakesNothing) {
    testing::Program program;
    const auto answer = [&](const char* button) {
        frmLangues window(nullptr, program.context);
        auto& list = *window.findChild<QListWidget*>(QStringLiteral("lstLang"));
        list.setCurrentItem(list.findItems(QStringLiteral("English"), Qt::MatchExactly).at(0));
        window.findChild<QPushButton*>(QLatin1String(button))->click();
        return window.result();
    };
    EXPECT_EQ(answer("cmdAnnuler"), QDialog::Rejected);
    EXPECT_EQ(program.traduction.Langue(), kFrancais);
    EXPECT_EQ(answer("cmdOK"), QDialog::Accepted);
    EXPECT_EQ(program.traduction.Langue(), "English");

    const frmLangues again(nullptr, program.context);
    EXPECT_EQ(again.windowTitle(), QStringLiteral("Available languages"));
    EXPECT_EQ(again.findChild<QListWidget*>()->currentItem()->text(), QStringLiteral("English"));
}

}  // namespace
}  // namespace quillmark
