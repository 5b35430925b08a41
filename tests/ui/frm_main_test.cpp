#include "ui/frm_main.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "core/paths.h"
#include "session/save.h"
#include "support/generated_document.h"
#include "ui/main_status_bar.h"
#include "ui/program.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

using namespace testing;

class MainWindow : public ::testing::Test {
  protected:
    MainWindow() {
        Document document = generatedDocument(7);
        document.FID = "77";
        writePlain(typ, CreerTYP(document, DateTime{2024, 5, 6, 7, 8, 9}).file);
        writePlain(txt, bytesOf("[_id]\r\nProductCode=1\r\nFID=5\r\nCodePage=1252\r\n[End]\r\n"
                                "[_polygon]\r\nType=0x03\r\nXpm=\"0 0 1 0\"\r\n\"1 c #112233\"\r\n"
                                "[end]\r\n"));
        window.show();
    }
    void trigger(const char* name) { window.menus().action(name).trigger(); }
    template <typename Widget>
    Widget& find(const char* name) {
        return *window.findChild<Widget*>(QLatin1String(name));
    }
    // True when the window takes the drag; then it is dropped.
    bool drop(const std::vector<std::string>& addresses) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& address : addresses) {
            urls << QUrl(toQt(address));
        }
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted()) {
            return false;
        }
        QDropEvent event(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
        QCoreApplication::sendPostedEvents();
        return true;
    }
    [[nodiscard]] std::string title() const { return fromQt(window.windowTitle()); }

    Program program;
    std::filesystem::path typ = program.folder.path() / "carte [*] & <b>.typ";
    std::filesystem::path txt = program.folder.path() / "texte.txt";
    frmMain window{program.context};
};

TEST_F(MainWindow, TakesOneFileOfItsKindsByDrop) {
    const std::string folder = "file://" + utf8FromPath(program.folder.path()) + '/';
    EXPECT_FALSE(drop({folder + "photo.jpg"}));
    EXPECT_FALSE(drop({"https://example.org/a.typ"}));
    EXPECT_FALSE(program.session.facts().hasDocument);
    EXPECT_TRUE(drop({folder + "texte.txt", folder + "photo.jpg"}));
    EXPECT_EQ(program.session.facts().FichierTYP, txt);
    EXPECT_EQ(title(), "Quillmark " + program.context.Version + " - [texte.txt]");
}

TEST_F(MainWindow, OpensByMenuAndByRecentFileUntilThatIsGone) {
    program.dialogues.files = {utf8FromPath(typ)};
    trigger("mnuOuvrirTYP");
    EXPECT_EQ(program.session.facts().FichierTYP, typ);
    // The toolkit takes one mark of two away.
    EXPECT_NE(title().find("carte [*][*] & <b>.typ]"), std::string::npos);

    EXPECT_TRUE(window.menus().action("mnuMRU").isEnabled());
    const auto entries = window.menus().menu("mnuMRU").actions();
    ASSERT_GE(entries.size(), 3);
    EXPECT_NE(entries[0]->text().indexOf(QLatin1String("&& <b>.typ")), -1);
    trigger("mnufermer");
    EXPECT_FALSE(program.session.facts().hasDocument);
    window.menus().menu("mnuMRU").actions().constFirst()->trigger();
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(program.session.facts().hasDocument);

    std::filesystem::remove(typ);
    trigger("mnufermer");
    window.menus().menu("mnuMRU").actions().constFirst()->trigger();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(program.dialogues.shown.back().message.substr(0, 19), "Fichier introuvable");
    EXPECT_TRUE(program.session.recentFiles().paths().empty());
    EXPECT_TRUE(window.menus().menu("mnuMRU").actions().isEmpty());
    EXPECT_FALSE(window.menus().action("mnuMRU").isEnabled());
}

TEST_F(MainWindow, PreferencesComeBackWithTheirChoicesWhenEditsAreToStay) {
    program.session.ouvrir(txt);
    auto& text = find<QPlainTextEdit>("BoxVisualisation");
    const QString untouched = text.toPlainText();
    text.insertPlainText(QStringLiteral("; typed\n"));
    const auto control = [](const char* name) {
        return QApplication::activeModalWidget()->findChild<QWidget*>(QLatin1String(name));
    };
    const auto press = [&](const char* name) {
        qobject_cast<QAbstractButton*>(control(name))->click();
    };
    const auto hides = [&] {
        return qobject_cast<QCheckBox*>(control("chkMasquerTextePOI"))->isChecked();
    };
    const auto chooseLabels = [&](int index) {
        qobject_cast<QComboBox*>(control("cbbLabels"))->setCurrentIndex(index);
    };
    trigger("mnuPreferences");
    EXPECT_FALSE(hides());
    for (QLabel* label : QApplication::activeModalWidget()->findChildren<QLabel*>()) {
        if (label->buddy() == control("chkMasquerTextePOI")) {
            QTest::mouseClick(label, Qt::LeftButton);
        }
    }
    chooseLabels(3);
    // A colour given up leaves the one that stands.
    press("lblActiveRoutingColor0");
    static_cast<QDialog*>(QApplication::activeModalWidget())->reject();
    program.dialogues.answers = {Answer::cancel, Answer::no};
    press("cmdOK");
    EXPECT_NE(text.toPlainText(), untouched);
    EXPECT_FALSE(program.settings.boolean(keys::kMasquerTextePOI));
    EXPECT_EQ(program.settings.number(keys::kLabels), 1);

    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(hides());
    press("cmdOK");
    EXPECT_EQ(text.toPlainText(), untouched);
    EXPECT_TRUE(program.settings.boolean(keys::kMasquerTextePOI));
    EXPECT_EQ(program.settings.number(keys::kLabels), 4);
    EXPECT_EQ(program.settings.number(keys::kActiveRoutingColor[0]), 255);

    trigger("mnuPreferences");
    chooseLabels(0);
    press("cmdAnnuler");
    EXPECT_EQ(program.settings.number(keys::kLabels), 4);
}

TEST_F(MainWindow, ClosesOnlyAsTheQuestionIsAnswered) {
    trigger("mnuNouveau");
    program.dialogues.answers = {Answer::cancel};
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    // Saving needs a FID, which a new document lacks.
    program.dialogues.answers = {Answer::yes};
    EXPECT_FALSE(window.close());
    EXPECT_EQ(program.dialogues.shown.back().message, "Il faut indiquer le FID.");
    EXPECT_TRUE(window.isVisible());
    program.dialogues.answers = {Answer::no};
    window.close();
    QCoreApplication::sendPostedEvents();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindow, ACloseWaitsForTheEndOfACommand) {
    const Connection meanwhile = program.session.documentChanged.connect([this](const Change&) {
        EXPECT_TRUE(program.session.busy());
        window.close();
        window.close();
        EXPECT_TRUE(window.isVisible());
    });
    program.session.ouvrir(txt);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window.isVisible(); }));
    EXPECT_TRUE(program.session.facts().hasDocument);
}

TEST_F(MainWindow, EditsInTheTextAreAppliedByTheirButtonAndUndoneWithTheDocument) {
    program.session.ouvrir(txt);
    auto& view = find<QPlainTextEdit>("BoxVisualisation");
    auto& apply = find<QWidget>("cmdAppliquerModif");
    EXPECT_FALSE(apply.isVisible());
    QTextCursor cursor = view.document()->find(QStringLiteral("#112233"));
    ASSERT_FALSE(cursor.isNull());
    cursor.insertText(QStringLiteral("#445566"));
    EXPECT_TRUE(apply.isVisible());
    EXPECT_TRUE(program.session.changed());
    program.session.cmdAppliquerModif_Click();
    EXPECT_FALSE(apply.isVisible());
    EXPECT_EQ(program.document.Polygone.at(0).Couleurs, (Bytes{0x66, 0x55, 0x44}));
    EXPECT_NE(title().find(" modifié"), std::string::npos);
    trigger("mnuAnnulerDocument");
    EXPECT_EQ(program.document.Polygone.at(0).Couleurs, (Bytes{0x33, 0x22, 0x11}));
    EXPECT_NE(view.toPlainText().indexOf(QLatin1String("#112233")), -1);
    EXPECT_EQ(title().find(" modifié"), std::string::npos);
}

TEST_F(MainWindow, CommandsStandWhereTheyMakeSense) {
    const auto enabled = [&](const char* name) { return window.menus().action(name).isEnabled(); };
    EXPECT_TRUE(enabled("mnuNouveau"));
    EXPECT_FALSE(enabled("mnuEnregistrer"));
    EXPECT_FALSE(enabled("mnuAnnulerDocument"));
    EXPECT_FALSE(enabled("mnucompiler")) << "its window comes later";
    EXPECT_FALSE(window.menus().action("mnucompiler").toolTip().isEmpty());
    program.session.ouvrir(typ);
    EXPECT_TRUE(enabled("mnuEnregistrer"));
    EXPECT_FALSE(enabled("cmdSupprimer"));
    program.current.choose({ObjectKind::POI, 0, 0});
    EXPECT_TRUE(enabled("cmdSupprimer"));

    // The six commands of the edit menu go to the text control with the focus.
    EXPECT_FALSE(enabled("mnuColler"));
    auto& field = find<QLineEdit>("txtFID");
    window.activateWindow();
    field.setFocus();
    window.menus().followFocus(&field);
    EXPECT_TRUE(enabled("mnuColler"));
    window.menus().followFocus(nullptr);
    EXPECT_FALSE(enabled("mnuColler"));
}

TEST_F(MainWindow, PanesFoldAndAreRemembered) {
    auto& lists = find<QWidget>("fraListes");
    EXPECT_TRUE(lists.isVisible());
    trigger("mnuListesObjets");
    EXPECT_FALSE(lists.isVisible());
    EXPECT_EQ(program.settings.text(keys::kListesObjets), "False");
    frmMain again(program.context);
    EXPECT_FALSE(again.menus().action("mnuListesObjets").isChecked());
}

}  // namespace
}  // namespace quillmark
