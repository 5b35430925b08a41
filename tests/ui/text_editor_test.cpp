#include "ui/text_editor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

#include "paint/qt_image.h"
#include "text/utf8.h"
#include "text/view_text.h"
#include "ui/raw_text.h"
#include "views/readable_colour.h"

namespace quillmark {
namespace {

std::string lines(int count, const std::string& line = "Type=0x0") {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += line + std::to_string(i) + "\r\n";
    }
    return text;
}

struct TextEditorTest : ::testing::Test {
    QWidget window;
    TextEditor editor{&window};
    QLineEdit neighbour{&window};

    TextEditorTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&editor);
        column->addWidget(&neighbour);
        editor.setEditable(true);
        window.resize(600, 400);
        window.show();
        window.activateWindow();
        editor.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    ~TextEditorTest() override { editor.disconnect(); }

    void put(const std::string& text) {
        editor.setContent(text);
        editor.finishFilling();
    }
    int topLine() { return editor.verticalScrollBar()->value(); }
    void setCursor(int line, int column) {
        QTextCursor cursor(editor.document()->findBlockByNumber(line));
        cursor.setPosition(cursor.position() + column);
        editor.setTextCursor(cursor);
    }
    // What a paste and a drop put in, as the platform calls it.
    bool dragEntered(const QMimeData& data) {
        QDragEnterEvent event(QPoint(60, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.setAccepted(false);
        QApplication::sendEvent(editor.viewport(), &event);
        return event.isAccepted();
    }
};

TEST_F(TextEditorTest, HoldsEveryCharacter) {
    std::string all;
    for (char32_t c = 0x20; c <= 0xFFFD; ++c) {
        if (c < 0xD800 || c > 0xDFFF) {
            appendCharacter(all, c);
        }
        if (c % 64 == 0) {
            all += "\r\n";
        }
    }
    all = "\uFEFF\t" + all + "🙂";
    put(all);
    const std::string held = viewableText(all);
    EXPECT_EQ(std::count(held.begin(), held.end(), '\n'), std::count(all.begin(), all.end(), '\n'));
    EXPECT_EQ(held.find("\u2029"), std::string::npos);
    EXPECT_EQ(editor.content(), held);
    // Once more as the control itself has it, not as it was given.
    QTest::keyClick(&editor, Qt::Key_X);
    EXPECT_EQ(editor.content(), "x" + held);
    // And by way of the clipboard.
    editor.selectAll();
    editor.cut();
    EXPECT_EQ(editor.content(), "");
    editor.paste();
    EXPECT_EQ(editor.content(), "x" + held);
}

TEST_F(TextEditorTest, IsEditedWhileItDiffers) {
    std::vector<bool> told;
    QObject::connect(&editor, &TextEditor::editedChanged,
                     [&told](bool edited) { told.push_back(edited); });
    put(lines(50));
    EXPECT_FALSE(editor.isEdited());
    setCursor(30, 0);
    QTest::keyClicks(&editor, "ab");
    EXPECT_TRUE(editor.isEdited());
    editor.undo();
    EXPECT_FALSE(editor.isEdited());
    // By hand, in two places, one of them mended before the other.
    setCursor(3, 0);
    QTest::keyClick(&editor, Qt::Key_Delete);
    QTest::keyClick(&editor, Qt::Key_X);
    setCursor(40, 2);
    QTest::keyClick(&editor, Qt::Key_Delete);
    QTest::keyClick(&editor, Qt::Key_Y);
    EXPECT_TRUE(editor.isEdited());
    setCursor(3, 1);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    QTest::keyClicks(&editor, "T");
    EXPECT_TRUE(editor.isEdited());
    setCursor(40, 3);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    QTest::keyClicks(&editor, "p");
    EXPECT_FALSE(editor.isEdited());
    // Parts that change places leave the length as it is.
    editor.selectRange({0, 9});
    editor.cut();
    editor.paste();
    EXPECT_FALSE(editor.isEdited());
    EXPECT_EQ(told, (std::vector<bool>{true, false, true, false, true, false}));
}

TEST_F(TextEditorTest, NewTextKeepsThePlace) {
    put(lines(200));
    setCursor(120, 4);
    editor.verticalScrollBar()->setValue(110);
    QTest::keyClick(&editor, Qt::Key_X);
    put("new\r\n" + lines(200));
    EXPECT_EQ(editor.content(), "new\r\n" + lines(200));
    EXPECT_EQ(editor.textCursor().blockNumber(), 121);
    EXPECT_EQ(editor.textCursor().positionInBlock(), 5);
    EXPECT_EQ(topLine(), 111);
    EXPECT_FALSE(editor.isEdited());
    EXPECT_FALSE(editor.document()->isUndoAvailable());
    // Lines at the cursor go: it stays as near as can be.
    put(lines(100));
    EXPECT_LE(editor.textCursor().blockNumber(), 101);
    EXPECT_GE(editor.textCursor().blockNumber(), 99);
    editor.forgetPlace();
    put(lines(150, "Other="));
    EXPECT_EQ(editor.textCursor().position(), 0);
    EXPECT_EQ(topLine(), 0);
}

TEST_F(TextEditorTest, TouchesOnlyLinesThatDiffer) {
    put(lines(100));
    int from = -1;
    int size = 0;
    QObject::connect(editor.document(), &QTextDocument::contentsChange,
                     [&](int position, int removed, int added) {
                         if (removed + added > 0) {
                             from = from < 0 ? position : std::min(from, position);
                             size += removed + added;
                         }
                     });
    std::string text = lines(100);
    const auto place = text.find("Type=0x050");
    text.replace(place, 10, "Type=0x051\r\nmore");
    put(text);
    EXPECT_EQ(editor.content(), text);
    EXPECT_EQ(from, editor.document()->findBlockByNumber(50).position());
    EXPECT_LT(size, 40);
    for (const std::string& odd : {std::string(), std::string("a\r\nb"), std::string("a"),
                                   std::string("b\r\na\r\nb"), std::string("\r\n\r\n")}) {
        put(odd);
        EXPECT_EQ(fileText(editor.document()->toRawText()), odd);
    }
}

TEST_F(TextEditorTest, FillsLargeTextsInSteps) {
    const std::string large = lines(40'000);
    editor.setContent(large);
    EXPECT_TRUE(editor.isFilling());
    EXPECT_TRUE(editor.isReadOnly());
    EXPECT_EQ(editor.content(), large);
    EXPECT_FALSE(editor.isEdited());
    editor.showLines(39'000, 39'010);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !editor.isFilling(); }, 60'000));
    EXPECT_EQ(fileText(editor.document()->toRawText()), large);
    EXPECT_FALSE(editor.isReadOnly());
    EXPECT_EQ(editor.markedLines(), (std::pair(39'000, 39'010)));
    EXPECT_NEAR(topLine(), 39'000, 5) << "from its beginning";
    // A newer text ends the work on an older one, wherever that stands.
    editor.setContent(lines(40'000, "other "));
    QTest::qWait(15);
    editor.setContent("last");
    editor.finishFilling();
    QTest::qWait(15);
    EXPECT_EQ(fileText(editor.document()->toRawText()), "last");
}

TEST_F(TextEditorTest, ColoursOnlyWhatIsSeen) {
    put(";comment\r\n[_line]\r\n" + lines(5'000));
    editor.grab();
    const auto colourAt = [this](int line) {
        const auto formats = editor.document()->findBlockByNumber(line).layout()->formats();
        return formats.isEmpty() ? QColor() : formats[0].format.foreground().color();
    };
    EXPECT_EQ(colourAt(0), editor.theme().comment);
    EXPECT_EQ(colourAt(1), editor.theme().section);
    EXPECT_EQ(colourAt(2), editor.theme().key);
    EXPECT_EQ(colourAt(4'000), QColor());
    editor.goToLine(4'000);
    editor.grab();
    EXPECT_EQ(colourAt(4'000), editor.theme().key);
    // A line that is edited or merged with another is classed anew, and by the palette of now.
    editor.goToLine(1);
    QTest::keyClick(&editor, Qt::Key_Backspace);
    editor.grab();
    EXPECT_EQ(editor.document()->firstBlock().layout()->formats().size(), 1);
    EXPECT_EQ(colourAt(1), editor.theme().key);
    QPalette dark = editor.palette();
    dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
    dark.setColor(QPalette::Text, QColor(0xE6, 0xE6, 0xE6));
    const QColor light = editor.theme().comment;
    editor.setPalette(dark);
    editor.grab();
    EXPECT_NE(editor.theme().comment, light);
    EXPECT_EQ(colourAt(0), editor.theme().comment);
}

TEST_F(TextEditorTest, ColoursEveryLineThatOneStepTouches) {
    put("String1=a\r\nString2=b\r\nString3=c\r\n");
    (void)editor.grab();
    editor.replaceRanges({{6, 1}, {16, 1}, {26, 1}}, QString());
    (void)editor.grab();
    const auto formats = editor.document()->findBlockByNumber(1).layout()->formats();
    ASSERT_EQ(formats.size(), 1);
    EXPECT_EQ(formats[0].length, 7) << "\"String=\"";
}

TEST_F(TextEditorTest, KeysStayOrLeave) {
    put("ab");
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_EQ(editor.content(), "\tab");
    QTest::keyClick(&editor, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(neighbour.hasFocus());
    editor.setFocus();
    QTest::keyClick(&editor, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(editor.hasFocus());
    EXPECT_EQ(editor.content(), "\tab");

    int undone = 0;
    int redone = 0;
    QObject::connect(&editor, &TextEditor::undoBeyond, [&undone] { ++undone; });
    QObject::connect(&editor, &TextEditor::redoBeyond, [&redone] { ++redone; });
    editor.setFocus();
    const auto key = [this](QKeySequence::StandardKey standard) {
        const QKeyCombination combination = QKeySequence(standard)[0];
        QTest::keyClick(&editor, combination.key(), combination.keyboardModifiers());
    };
    key(QKeySequence::Undo);
    EXPECT_EQ(editor.content(), "ab");
    EXPECT_EQ(undone, 0);
    key(QKeySequence::Undo);
    EXPECT_EQ(undone, 1);
    key(QKeySequence::Redo);
    EXPECT_EQ(editor.content(), "\tab");
    key(QKeySequence::Redo);
    EXPECT_EQ(redone, 1);

    const qreal size = editor.font().pointSizeF();
    QWheelEvent wheel(QPointF(9, 9), editor.mapToGlobal(QPointF(9, 9)), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(editor.viewport(), &wheel);
    EXPECT_EQ(editor.font().pointSizeF(), size + 1);

    editor.setEditable(false);
    QTest::keyClick(&editor, Qt::Key_X);
    key(QKeySequence::Undo);
    EXPECT_EQ(editor.content(), "\tab");
    EXPECT_EQ(undone, 1);
}

TEST_F(TextEditorTest, TakesPlainTextAndLeavesFilesToTheWindow) {
    put("");
    QMimeData rich;
    rich.setHtml(QStringLiteral("<b>bold</b>"));
    rich.setText(QStringLiteral("a\u00A0b\r\nc\u2028d"));
    auto* copied = new QMimeData;
    copied->setHtml(rich.html());
    copied->setText(rich.text());
    QApplication::clipboard()->setMimeData(copied);
    editor.paste();
    EXPECT_EQ(editor.content(), "a\u00A0b\r\nc\u2028d");

    auto* file = new QMimeData;
    file->setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.typ"))});
    EXPECT_FALSE(dragEntered(*file));
    EXPECT_FALSE(dragEntered(rich)) << "only what comes from the view itself";
    QApplication::clipboard()->setMimeData(file);
    editor.paste();
    EXPECT_EQ(editor.content(), "a\u00A0b\r\nc\u2028d");
}

TEST_F(TextEditorTest, ReplacesInOneStep) {
    put("aaaa\r\nxa");
    editor.replaceRanges({{0, 1}, {2, 2}, {6, 1}}, QStringLiteral("bc"));
    EXPECT_EQ(editor.content(), "bcabc\r\nxbc");
    editor.undo();
    EXPECT_EQ(editor.content(), "aaaa\r\nxa");
    EXPECT_FALSE(editor.isEdited());
    editor.selectRange({1, 2});
    EXPECT_EQ(editor.selectedRange(), (TextRange{1, 2}));
    editor.replaceRanges({{1, 2}}, QString());
    EXPECT_EQ(editor.selectedRange(), (TextRange{1, 0}));
}

TEST_F(TextEditorTest, OpensTheEditMenu) {
    QMenu menu;
    menu.addAction(QStringLiteral("x"));
    editor.setEditMenu(&menu);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(9, 9),
                            editor.mapToGlobal(QPoint(9, 9)));
    QApplication::sendEvent(editor.viewport(), &event);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}

TEST(TextTheme, CanBeReadOnLightAndDark) {
    const struct {
        QColor base, text, highlight;
    } palettes[] = {{Qt::white, Qt::black, QColor(48, 140, 198)},
                    {QColor(0xFA, 0xF8, 0xF0), QColor(0x20, 0x20, 0x20), QColor(0x10, 0x60, 0xC0)},
                    {QColor(0x1E, 0x1E, 0x1E), QColor(0xE6, 0xE6, 0xE6), QColor(48, 140, 198)},
                    {QColor(0x2D, 0x2D, 0x2D), Qt::white, QColor(0x3D, 0xAE, 0xE9)},
                    {Qt::black, Qt::white, QColor(0x2A, 0x82, 0xDA)}};
    for (const auto& one : palettes) {
        QPalette palette;
        palette.setColor(QPalette::Base, one.base);
        palette.setColor(QPalette::Text, one.text);
        palette.setColor(QPalette::Highlight, one.highlight);
        const TextTheme theme = textTheme(palette);
        for (const QColor& ink : {theme.text, theme.comment, theme.section, theme.key}) {
            for (const QColor& ground : {theme.base, theme.currentLine, theme.marked}) {
                EXPECT_GE(contrast(toCouleur(ink.rgb()), toCouleur(ground.rgb())),
                          kReadableContrast)
                    << ink.name().toStdString() << " on " << ground.name().toStdString();
            }
        }
        EXPECT_GE(contrast(toCouleur(theme.lineNumber.rgb()), toCouleur(theme.gutter.rgb())),
                  kReadableContrast)
            << one.base.name().toStdString();
    }
}

}  // namespace
}  // namespace quillmark
