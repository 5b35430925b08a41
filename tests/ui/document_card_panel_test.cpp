#include "ui/document_card_panel.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include "typ/writer.h"
#include "ui/frm_fid.h"
#include "ui/program.h"

namespace quillmark {
namespace {

class DocumentCardPanelTest : public ::testing::Test {
  protected:
    void open(Document document = {}) {
        document.FID = "5810";
        document.ProductCode = "0";
        const auto file = program.folder.path() / "a & <b>.typ";
        testing::writePlain(file, CreerTYP(std::move(document), {}).file);
        program.session.ouvrir(file);
        panel.show();
        panel.activateWindow();
        QTest::qWait(0);
    }
    template <typename Widget>
    Widget& child(const char* name) {
        return *panel.findChild<Widget*>(QLatin1String(name));
    }
    const Document& document() { return program.session.document(); }

    testing::Program program;
    DocumentCardPanel panel{program.context};
    QLineEdit& txtFID = child<QLineEdit>("txtFID");
    QLineEdit& txtProductCode = child<QLineEdit>("txtProductCode");
    QComboBox& cbbCodepage = child<QComboBox>("cbbCodepage");
    QComboBox& cbbHeadersize = child<QComboBox>("cbbHeadersize");
};

TEST_F(DocumentCardPanelTest, FieldsTakeDigitsOnly) {
    open();
    EXPECT_EQ(txtFID.text(), QStringLiteral("5810"));
    txtFID.selectAll();
    QTest::keyClicks(&txtFID, QStringLiteral("a1-2 345678"));
    EXPECT_EQ(document().FID, "12345");
    EXPECT_TRUE(txtFID.toolTip().contains(QLatin1String("FID:   0x3039")));
    txtFID.selectAll();
    QGuiApplication::clipboard()->setText(QStringLiteral("FID=6 324"));
    QTest::keySequence(&txtFID, QKeySequence::Paste);
    EXPECT_EQ(document().FID, "6324");
    EXPECT_EQ(txtFID.cursorPosition(), 4);
}

TEST_F(DocumentCardPanelTest, FieldsAreCheckedWhenTheyAreLeftForAnotherControl) {
    open();
    txtProductCode.setFocus();
    QTest::keyClick(&txtProductCode, Qt::Key_Tab);
    EXPECT_TRUE(program.dialogues.shown.empty()) << "the 0 of the file was accepted";

    txtFID.setFocus();
    txtFID.selectAll();
    QTest::keyClicks(&txtFID, QStringLiteral("70000"));
    for (const Qt::FocusReason reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent left(QEvent::FocusOut, reason);
        QApplication::sendEvent(&txtFID, &left);
    }
    EXPECT_TRUE(program.dialogues.shown.empty()) << "the window is left, not the field";
    QTest::keyClick(&txtFID, Qt::Key_Tab);
    EXPECT_EQ(program.dialogues.shown.size(), 1U);
    EXPECT_EQ(txtFID.text(), QString());

    txtFID.setFocus();
    QTest::keyClicks(&txtFID, QStringLiteral("0"));
    cbbCodepage.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(program.dialogues.shown.size(), 1U) << "no box within a press of the mouse";
    QTest::qWait(0);
    EXPECT_EQ(program.dialogues.shown.size(), 2U);

    txtFID.setFocus();
    QTest::keyClicks(&txtFID, QStringLiteral("70000"));
    QTest::keyClick(&txtFID, Qt::Key_Return);
    EXPECT_EQ(program.dialogues.shown.size(), 3U);
}

TEST_F(DocumentCardPanelTest, AnUndoShowsTheOldTextAndIsNoNewEdit) {
    open();
    txtFID.setFocus();
    QTest::keyClicks(&txtFID, QStringLiteral("9"));
    EXPECT_EQ(document().FID, "58109");
    program.session.undo();
    EXPECT_EQ(txtFID.text(), QStringLiteral("5810"));
    EXPECT_FALSE(program.session.canUndo());
    EXPECT_FALSE(program.session.showsModified());
}

TEST_F(DocumentCardPanelTest, CombosShowValuesOutsideTheirListsUntilTheyAreGone) {
    EXPECT_FALSE(cbbCodepage.isEnabled());
    Document odd;
    odd.TailleEntete = 200;
    open(std::move(odd));
    EXPECT_EQ(cbbHeadersize.currentText(), QStringLiteral("200 octets : format inconnu"));
    EXPECT_TRUE(cbbHeadersize.toolTip().contains(QLatin1String("200 octets.")));
    cbbHeadersize.setFocus();
    QTest::keyClick(&cbbHeadersize, Qt::Key_Home);
    EXPECT_EQ(document().TailleEntete, 91);
    cbbCodepage.setFocus();
    QTest::keyClick(&cbbCodepage, Qt::Key_Home);
    EXPECT_EQ(document().CodePage, 1250);
    program.dialogues.answers = {Answer::no};
    open();
    EXPECT_EQ(cbbHeadersize.count(), 5);
    EXPECT_EQ(cbbCodepage.currentText(), QStringLiteral("1252"));
}

TEST_F(DocumentCardPanelTest, ShowsTheFileAsPlainText) {
    open();
    const auto& name = child<QLabel>("lblNomTyp");
    EXPECT_EQ(name.text(), QStringLiteral("a & <b>.typ"));
    EXPECT_EQ(name.textFormat(), Qt::PlainText);
    EXPECT_TRUE(name.toolTip().contains(QLatin1String("a &amp; &lt;b&gt;.typ")));
    EXPECT_TRUE(child<QWidget>("lblErreurs").isHidden());

    int asked = 0;
    panel.journalRequested = [&asked] { ++asked; };
    testing::writePlain(program.folder.path() / "b.typ", testing::bytesOf("no TYP file"));
    program.session.ouvrir(program.folder.path() / "b.typ");
    EXPECT_FALSE(child<QWidget>("lblErreurs").isHidden());
    QTest::mouseClick(&child<QWidget>("lblErreurs"), Qt::LeftButton);
    EXPECT_EQ(asked, 1);
}

TEST_F(DocumentCardPanelTest, NamesOfTheMapsAreFilteredAndCopied) {
    open();
    QTest::mouseClick(&child<QWidget>("lblFID"), Qt::LeftButton);
    auto* opened = panel.findChild<frmFID*>();
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->windowTitle(), QStringLiteral("FID 5810"));
    opened->close();

    frmFID box(nullptr, program.context, "7", {"Alpes", "Jura", "Préalpes"});
    box.setAttribute(Qt::WA_DeleteOnClose, false);
    box.findChild<QLineEdit*>(QStringLiteral("txtFiltreFID"))->setText(QStringLiteral("ALP"));
    QTest::mouseClick(box.findChild<QWidget*>(QStringLiteral("cmdCopier")), Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Alpes\nPréalpes"));
}

}  // namespace
}  // namespace quillmark
