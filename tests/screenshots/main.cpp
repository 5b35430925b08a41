// Pictures of the main window and of every dialogue, for people to look at.
//   quillmark-screenshots OUTDIR FILE LANGUAGE light|dark
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QMenu>
#include <QPixmap>
#include <QStyleFactory>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "bitmap/garmin_swatches.h"
#include "core/paths.h"
#include "editors/recent_colours.h"
#include "ui/frm_about.h"
#include "ui/frm_erreur.h"
#include "ui/frm_inputbox.h"
#include "ui/frm_labels.h"
#include "ui/frm_langues.h"
#include "ui/frm_main.h"
#include "ui/frm_msgbox.h"
#include "ui/frm_palette.h"
#include "ui/frm_preferences.h"
#include "ui/frm_sauvegardetxt.h"
#include "ui/program.h"
#include "ui/qt_text.h"

namespace quillmark::testing {
namespace {

QPalette darkPalette() {
    const QColor window(45, 45, 48);
    const QColor text(225, 225, 225);
    QPalette palette(window);
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(140, 140, 140));
    palette.setColor(QPalette::Highlight, QColor(52, 102, 163));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 170, 240));
    return palette;
}

class Album {
  public:
    Album(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {
        QDir().mkpath(folder_);
    }
    void take(QWidget& window, const char* name) {
        window.show();
        settle();
        const QString file =
            folder_ + QLatin1Char('/') + QLatin1String(name) + suffix_ + QStringLiteral(".png");
        if (!window.grab().save(file)) {
            std::fprintf(stderr, "can't write %s\n", qPrintable(file));
            failed = true;
        }
    }
    bool failed = false;

    // Layouts and what is drawn in steps come to rest.
    static void settle() {
        for (int i = 0; i < 20; ++i) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    }

  private:
    QString folder_;
    QString suffix_;
};

void photograph(Album& album, const std::string& file, const std::string& langue) {
    Program program(langue);
    frmMain window(program.context);
    window.resize(1100, 720);
    album.take(window, "main-empty");
    program.session.ouvrir(pathFromUtf8(file));
    Album::settle();
    album.take(window, "main-text");
    if (objectCount(program.document, ObjectKind::Polygone) > 1) {
        program.current.choose({ObjectKind::Polygone, 1, 0});
    }
    program.session.typeHeaderField(HeaderField::FID, "4242");
    album.take(window, "main-selected");
    for (const auto& [kind, name] : {std::pair{ObjectKind::Polygone, "sheet-polygons"},
                                     std::pair{ObjectKind::Polyline, "sheet-lines"},
                                     std::pair{ObjectKind::POI, "sheet-points"}}) {
        if (objectCount(program.document, kind) > 0) {
            program.current.choose({kind, 0, 0});
            window.menus().action("mnuIcones").trigger();
            album.take(window, name);
        }
    }
    window.menus().action("mnuTexte").trigger();
    for (QMenu* menu : window.findChildren<QMenu*>()) {
        if (!menu->isEmpty()) {
            album.take(*menu, qPrintable(QStringLiteral("menu-") + menu->objectName()));
            menu->hide();
        }
    }

    frmErreur journal(&window, program.context);
    journal.open();
    album.take(journal, "journal");
    const Traduction& t = program.traduction;
    frmMsgBox question(&window, t,
                       t.Trad("Main", "Voulez-vous enregistrer le fichier ?", "msgEnregistrer"),
                       MessageStyle::yesNoCancel | MessageStyle::question, {});
    album.take(question, "question");
    std::string longText;
    for (int i = 1; i <= 60; ++i) {
        longText += "Ligne " + std::to_string(i) + " : <b>&texte</b> [*]\r\n";
    }
    frmMsgBox message(&window, t, longText, MessageStyle::ok | MessageStyle::warning, "Titre");
    album.take(message, "message-long");
    frmInputBox input(&window, t, "Page de code", {}, "1252");
    album.take(input, "input");
    frmLangues languages(&window, program.context);
    album.take(languages, "languages");
    frmSauvegardetxt backups(&window, program.context);
    album.take(backups, "backups");
    frmAbout about(&window, program.context);
    album.take(about, "about");
    frmLabels labels(&window, program.context);
    album.take(labels, "labels");
    frmPreferences preferences(&window, program.context, Preferences(program.settings), {});
    album.take(preferences, "preferences");
    for (const Couleur colour : {0x41307C, 0x00A0FF, 0x2E8B57, 0xC8C8C8, 0x0000FF}) {
        rememberColour(program.settings, colour);
    }
    for (const auto& [tab, colour, name] :
         {std::tuple{ChooserTab::series60, couleurDuCarre(107), "palette-60"},
          {ChooserTab::bits16, 0x41307C, "palette-16"},
          {ChooserTab::all, 0x41307C, "palette-all"}}) {
        frmPalette palette(&window, program.context, {colour, {}, tab});
        album.take(palette, name);
    }
    window.menus().action("mnuRecherche").trigger();
    if (auto* search = window.findChild<QDialog*>(QStringLiteral("frmRecherche"))) {
        album.take(*search, "search");
    }
}

}  // namespace
}  // namespace quillmark::testing

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "quillmark-screenshots OUTDIR FILE LANGUAGE light|dark\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const bool dark = QLatin1String(argv[4]) == QLatin1String("dark");
    if (dark) {
        QApplication::setPalette(quillmark::testing::darkPalette());
    }
    const QString suffix = QStringLiteral("-%1-%2-x%3")
                               .arg(QLatin1String(argv[3]), QLatin1String(argv[4]))
                               .arg(qApp->devicePixelRatio());
    quillmark::testing::Album album(QString::fromLocal8Bit(argv[1]), suffix);
    quillmark::testing::photograph(album, argv[2], argv[3]);
    return album.failed ? 1 : 0;
}
