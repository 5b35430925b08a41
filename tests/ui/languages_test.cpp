#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QRegularExpression>

#include "core/paths.h"
#include "languages/source_texts.h"
#include "session/save.h"
#include "support/generated_document.h"
#include "ui/frm_about.h"
#include "ui/frm_fid.h"
#include "ui/frm_inputbox.h"
#include "ui/frm_labels.h"
#include "ui/frm_langues.h"
#include "ui/frm_main.h"
#include "ui/frm_msgbox.h"
#include "ui/frm_palette.h"
#include "ui/frm_preferences.h"
#include "ui/frm_sauvegardetxt.h"
#include "ui/frm_update.h"
#include "ui/program.h"
#include "ui/qt_text.h"
#include "ui/shown_texts.h"
#include "views/language_choice.h"

namespace quillmark {
namespace {

using namespace testing;

constexpr const char* kLanguages[] = {"Francais", "Deutsch",    "English", "Español",
                                      "Italiano", "Nederlands", "Polski"};
// Stands before every text of a made-up language.
constexpr const char* kMark = "¤";

struct NamedWindow {
    const char* name;
    std::unique_ptr<QWidget> window;
};

// The windows beside the main one, as they are when they open.
std::vector<NamedWindow> dialogs(AppContext& context) {
    const Traduction& t = context.traduction;
    std::vector<NamedWindow> windows;
    const auto add = [&](const char* name, auto window) {
        windows.push_back({name, std::move(window)});
    };
    add("frmAbout", std::make_unique<frmAbout>(nullptr, context));
    add("frmFID",
        std::make_unique<frmFID>(nullptr, context, "5555", std::vector<std::string>{"1", "2"}));
    add("frmInputBox", std::make_unique<frmInputBox>(nullptr, t, "1", "2", "3"));
    add("frmLangues", std::make_unique<frmLangues>(nullptr, context));
    add("frmLabels", std::make_unique<frmLabels>(nullptr, context));
    for (const MessageStyle style :
         {MessageStyle::okCancel, MessageStyle::yesNoCancel, MessageStyle::retryCancel}) {
        add("frmMsgBox", std::make_unique<frmMsgBox>(nullptr, t, "1", style, "2"));
    }
    add("frmPalette",
        std::make_unique<frmPalette>(nullptr, context, ChooserRequest{0, {}, ChooserTab::all}));
    add("frmPreferences",
        std::make_unique<frmPreferences>(nullptr, context, Preferences(context.settings),
                                         frmPreferences::ChooseColour()));
    add("frmSauvegardetxt", std::make_unique<frmSauvegardetxt>(nullptr, context));
    add("frmUpdate", std::make_unique<frmUpdate>(nullptr, context));
    return windows;
}

class Languages : public ::testing::Test {
  protected:
    // A file of the user's own with the mark before each text that the sources ask for.
    static void addMarkedLanguage(const Program& program) {
        const auto sources = std::filesystem::path(QUILLMARK_SOURCE_FOLDER) / "src";
        std::map<std::string, std::string> sections;
        for (const auto& text : languages::collectTexts(sources).texts) {
            sections[text.section] += text.cle + "=\"" + kMark + text.defaut + "\"\n";
        }
        std::string marked;
        for (const auto& [section, lines] : sections) {
            marked += '[' + section + "]\n" + lines;
        }
        std::filesystem::create_directories(program.folders.userData / "Langues");
        writePlain(program.folders.userData / "Langues" / "Marked.lng", bytesOf(marked));
    }
    // A document with faults, so that their marks show.
    static void openDocument(Program& program) {
        Document document = generatedDocument(7);
        document.FID = "5555";
        Bytes bytes = CreerTYP(document, DateTime{2024, 5, 6, 7, 8, 9}).file;
        bytes.resize(bytes.size() - 40);
        const auto file = program.folder.path() / "carte.typ";
        writePlain(file, bytes);
        program.session.ouvrir(file);
        program.session.typeHeaderField(HeaderField::FID, "5556");
    }
};

// The windows that stay open beside the main one.
QList<QWidget*> openBesides(frmMain& window) {
    window.menus().action("mnuRecherche").trigger();
    window.menus().action("mnuMessages").trigger();
    QList<QWidget*> opened;
    for (QDialog* dialog : window.findChildren<QDialog*>()) {
        EXPECT_TRUE(dialog->isVisible());
        opened << dialog;
    }
    EXPECT_GE(opened.size(), 2);
    return opened;
}

void expectReadable(QWidget& window, const std::string& where) {
    QApplication::sendPostedEvents();
    for (const auto& [kind, found] : {std::pair{"cut", cutTexts(window)},
                                      {"without a name", namelessControls(window)},
                                      {"access key twice", repeatedAccessKeys(window)}}) {
        for (const QString& fault : found) {
            ADD_FAILURE() << where << ", " << kind << ": " << fromQt(fault);
        }
    }
}

TEST_F(Languages, EveryTextOfTheWindowsFindsRoom) {
    for (const char* language : kLanguages) {
        Program program(language);
        frmMain window(program.context);
        window.show();
        expectReadable(window, std::string(language) + " frmMain, empty");
        openDocument(program);
        for (const char* view : {"mnuTexte", "mnuIcones"}) {
            window.menus().action(view).trigger();
            for (const QSize& size : {QSize(961, 711), QSize(800, 500)}) {
                window.resize(size);
                expectReadable(window, std::string(language) + " frmMain " + view + " " +
                                           std::to_string(size.width()));
            }
        }
        for (QWidget* opened : openBesides(window)) {
            expectReadable(*opened, std::string(language) + " " + fromQt(opened->objectName()));
        }
        for (const NamedWindow& each : dialogs(program.context)) {
            each.window->show();
            expectReadable(*each.window, std::string(language) + " " + each.name);
        }
    }
}

// Names of files, fonts, keys and colours, and words of the text form, are the same in all
// languages.
bool isForAll(const QString& owner, QString text, const Program& program) {
    static const QRegularExpression kMarkup(QStringLiteral("<[^>]*>"));
    static const QRegularExpression kForAll(
        QStringLiteral("^(POI|Type=0x[^ ]*|[FP]ID:   0x[0-9A-F]+|Ctrl\\+.*|Quillmark "
                       "v[0-9.]+.*|#[0-9A-F]{6}|carte\\.typ)$"));
    text.remove(kMarkup);
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); }) ||
           kForAll.match(text).hasMatch() || owner.startsWith(QLatin1String("cbbPolice.")) ||
           text.startsWith(toQt(utf8FromPath(program.folder.path())));
}

void expectMarked(QWidget& window, const Program& program) {
    for (const auto& [owner, text] : shownTexts(window)) {
        EXPECT_TRUE(isForAll(owner, text, program) || text.contains(QString::fromUtf8(kMark)))
            << fromQt(window.objectName()) << ": " << fromQt(owner) << " \"" << fromQt(text) << '"';
    }
}

TEST_F(Languages, AChangeReachesEveryTextOfTheOpenWindows) {
    Program program;
    addMarkedLanguage(program);
    frmMain window(program.context);
    window.show();
    openDocument(program);
    openBesides(window);
    LanguageChoice(program.folders, program.settings, program.traduction, program.languageChanged)
        .choose("Marked");
    EXPECT_EQ(program.traduction.Langue(), "Marked");
    expectMarked(window, program);
    for (QWidget* opened : openBesides(window)) {
        expectMarked(*opened, program);
    }
    for (const NamedWindow& each : dialogs(program.context)) {
        expectMarked(*each.window, program);
    }
}

}  // namespace
}  // namespace quillmark
