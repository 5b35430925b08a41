// The text view in its pane and the search window, bound to a session.
#include "ui/text_panel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <chrono>

#include "ui/frm_recherche.h"
#include "ui/program.h"
#include "ui/qt_text.h"
#include "ui/text_editor.h"

namespace quillmark {
namespace {

// On the second page of a stack, the icon sheet's place being the first.
struct TextPanelTest : ::testing::Test {
    testing::Program program;
    QStackedWidget window;
    TextPanel* panel = new TextPanel(nullptr, program.context);
    TextEditor& editor = panel->editor();
    Session& session = program.session;

    TextPanelTest() {
        window.addWidget(new QWidget);
        window.addWidget(panel);
        window.setCurrentWidget(panel);
        window.resize(700, 500);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        editor.setFocus();
    }

    void open() {
        session.ouvrir(testing::dataFolder() / "examples" / "randonnee.txt");
        editor.finishFilling();
        ASSERT_TRUE(session.facts().hasDocument);
    }
    QAbstractButton& button(const char* name) {
        return *panel->findChild<QAbstractButton*>(QLatin1String(name));
    }
    void edit(const std::string& from, const std::string& to) {
        const auto at = panel->content().find(toQt(from).toStdU16String());
        ASSERT_NE(at, std::u16string::npos);
        panel->replace({{at, from.size()}}, toQt(to).toStdU16String());
    }
    std::string line(int number) {
        return fromQt(editor.document()->findBlockByNumber(number).text());
    }
};

TEST_F(TextPanelTest, EditsShowTheButtonUntilTheyAreAppliedOrUndone) {
    EXPECT_TRUE(editor.isReadOnly());
    open();
    EXPECT_FALSE(editor.isReadOnly());
    QAbstractButton& apply = button("cmdAppliquerModif");
    EXPECT_EQ(apply.text(), "Cliquer ici pour appliquer les modifications");
    int told = 0;
    const Connection facts = session.factsChanged.connect([&told] { ++told; });
    edit("FID=7321", "FID=7322");
    EXPECT_TRUE(apply.isVisible());
    EXPECT_TRUE(session.showsModified());
    EXPECT_EQ(told, 1) << "the title follows";
    editor.undo();
    EXPECT_FALSE(apply.isVisible());
    EXPECT_FALSE(session.showsModified());

    edit("FID=7321", "FID=7322");
    apply.click();
    EXPECT_FALSE(apply.isVisible());
    EXPECT_EQ(program.document.FID, "7322");
    // The view's own steps are used up: the document's are next.
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(program.document.FID, "7321");
    EXPECT_NE(panel->text().find("FID=7321"), std::string::npos);
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(program.document.FID, "7322");
    QTest::keyClick(&editor, Qt::Key_X);
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(panel->isEdited()) << "applied by the keyboard";
}

TEST_F(TextPanelTest, SelectionMarksItsSectionOrShowsIt) {
    open();
    EXPECT_FALSE(button("cmdvoirobjet").isEnabled()) << "nothing is selected";
    program.current.choose({ObjectKind::POI, 3, 0});
    auto [first, last] = editor.markedLines();
    EXPECT_EQ(line(first), "[_point]");
    EXPECT_EQ(line(last), "[end]");
    // A deleted object's mark goes to the one that takes its place; the text stays where it is.
    const int top = editor.verticalScrollBar()->value();
    program.dialogues.answers = {Answer::yes};
    session.deleteObject({ObjectKind::POI, 3, 0});
    editor.finishFilling();
    EXPECT_EQ(editor.markedLines().first, first);
    EXPECT_EQ(editor.verticalScrollBar()->value(), top);
    program.current.clear();
    EXPECT_EQ(editor.markedLines().first, -1);
    // Lines that were typed above don't lead astray.
    editor.goToLine(0);
    QTest::keyClick(&editor, Qt::Key_Return);
    QTest::keyClick(&editor, Qt::Key_Return);
    program.current.choose({ObjectKind::POI, 4, 0});
    EXPECT_EQ(line(editor.markedLines().first), "[_point]");
    editor.undo();

    program.dialogues.answers = {Answer::cancel, Answer::no};
    button("cmdvoirobjet").click();
    EXPECT_TRUE(button("cmdvoirtxt").isChecked()) << "the user stayed with the edits";
    button("cmdvoirobjet").click();
    EXPECT_TRUE(button("cmdvoirobjet").isChecked());
    EXPECT_EQ(panel->text().rfind("[_point]\r\n", 0), 0U);
    program.current.choose({ObjectKind::Polygone, 0, 0});
    EXPECT_EQ(panel->text().rfind("[_polygon]\r\n", 0), 0U);
    button("cmdvoirtxt").click();
    editor.finishFilling();
    EXPECT_EQ(line(editor.markedLines().first), "[_polygon]");
    EXPECT_TRUE(program.dialogues.answers.empty());
}

TEST_F(TextPanelTest, WhoTypesStaysThere) {
    open();
    program.current.choose({ObjectKind::Polygone, 0, 0});
    const int label = editor.document()->find(QStringLiteral("Gleitschirm")).blockNumber();
    editor.goToLine(label);
    QTest::keyClick(&editor, Qt::Key_End);
    QTest::keyClicks(&editor, "!");
    const int top = editor.verticalScrollBar()->value();
    button("cmdAppliquerModif").click();
    editor.finishFilling();
    EXPECT_FALSE(panel->isEdited());
    EXPECT_EQ(editor.textCursor().blockNumber(), label);
    EXPECT_EQ(editor.verticalScrollBar()->value(), top);

    // The icon sheet and back, with nothing chosen there.
    const TextRange range{panel->content().size() - 60, 7};
    panel->select(range);
    window.setCurrentIndex(0);
    window.setCurrentWidget(panel);
    EXPECT_EQ(panel->selection(), range);
    window.setCurrentIndex(0);
    program.current.choose({ObjectKind::Polygone, 1, 0});
    window.setCurrentWidget(panel);
    EXPECT_EQ(editor.textCursor().blockNumber(), editor.markedLines().first);

    // Lines of the journal are those of the applied text, whatever is typed above them since.
    edit("LineWidth=", "LineWidth=x");
    button("cmdAppliquerModif").click();
    ASSERT_EQ(session.applyJournal().entries().size(), 1U);
    const int told = session.applyJournal().entries()[0].line;
    const std::string text = line(told - 1);
    editor.goToLine(0);
    QTest::keyClick(&editor, Qt::Key_Return);
    QTest::keyClick(&editor, Qt::Key_Return);
    panel->goToLine(told);
    EXPECT_EQ(line(editor.textCursor().blockNumber()), text);
}

TEST_F(TextPanelTest, TheTextIsMadeWhenItIsSeen) {
    window.setCurrentIndex(0);
    open();
    EXPECT_FALSE(panel->isShown());
    EXPECT_EQ(panel->text(), "");
    program.current.choose({ObjectKind::Polygone, 2, 0});
    const Connection reveal =
        panel->revealRequested.connect([this] { window.setCurrentWidget(panel); });
    panel->goToLine(3);
    editor.finishFilling();
    EXPECT_EQ(line(2), "FID=7321");
    EXPECT_EQ(editor.textCursor().blockNumber(), 2);
    EXPECT_EQ(line(editor.markedLines().first), "[_polygon]");
}

TEST_F(TextPanelTest, KeepsABackupAfterAPause) {
    open();
    const auto* timer = panel->findChild<QTimer*>(QStringLiteral("tmrSauvegarde"));
    EXPECT_FALSE(timer->isActive()) << "a text put there by the program isn't typed";
    QTest::keyClick(&editor, Qt::Key_X);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 10'000);
    const std::size_t before = program.backups.count();
    const_cast<QTimer*>(timer)->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.backups.count() == before + 1; }));
    QTest::keyClick(&editor, Qt::Key_X);
    EXPECT_GT(timer->interval(), 55'000) << "at most once a minute";
}

TEST_F(TextPanelTest, SpeaksTheLanguageOfTheProgram) {
    const auto folder = program.folder.path() / "Langues";
    std::filesystem::create_directories(folder);
    testing::writePlain(folder / "Test.lng", testing::bytesOf("[Main]\ncmdAppliquerModif=Apply\n"));
    program.traduction = Traduction({program.folder.path()}, "Test");
    program.languageChanged();
    EXPECT_EQ(fromQt(button("cmdAppliquerModif").text()), "Apply");
    EXPECT_EQ(fromQt(button("cmdAppliquerModif").accessibleName()), "Apply");
}

struct SearchWindowTest : TextPanelTest {
    frmRecherche search{&window, program.context, *panel};
    QLineEdit& Text1 = *search.findChild<QLineEdit*>(QStringLiteral("Text1"));
    QLineEdit& txtRemplacer = *search.findChild<QLineEdit*>(QStringLiteral("txtRemplacer"));

    QPushButton& command(const char* name) {
        return *search.findChild<QPushButton*>(QLatin1String(name));
    }
};

TEST_F(SearchWindowTest, FindsAndReplacesInTheView) {
    open();
    search.open();
    EXPECT_FALSE(search.isModal());
    for (const char* name : {"cmdSuivant", "cmdRemplacer", "cmdRemplacerTout"}) {
        EXPECT_FALSE(command(name).isEnabled()) << name;
    }
    QTest::keyClicks(&Text1, "FID=");
    EXPECT_TRUE(command("cmdSuivant").isEnabled());
    QTest::keyClick(&Text1, Qt::Key_Return);
    EXPECT_EQ(editor.textCursor().selectedText(), "FID=");
    EXPECT_EQ(editor.textCursor().blockNumber(), 2);
    QTest::keyClick(&Text1, Qt::Key_Escape);
    EXPECT_FALSE(search.isVisible());

    // Opened again it takes the selection; over the icon sheet it shows the text first.
    window.setCurrentIndex(0);
    const Connection reveal =
        panel->revealRequested.connect([this] { window.setCurrentWidget(panel); });
    panel->select({2, 3});
    search.open();
    EXPECT_EQ(fromQt(Text1.text()), "id]");
    EXPECT_EQ(panel->selection(), (TextRange{2, 3}));
    Text1.setText(QStringLiteral("7321"));
    QTest::keyClicks(&txtRemplacer, "7322");
    command("cmdRemplacerTout").click();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(program.dialogues.shown.back().message, "1 remplacements effectués");
    EXPECT_TRUE(button("cmdAppliquerModif").isVisible());
    EXPECT_EQ(program.document.FID, "7321") << "until it is applied";
    editor.undo();
    EXPECT_FALSE(panel->isEdited());
}

}  // namespace
}  // namespace quillmark
