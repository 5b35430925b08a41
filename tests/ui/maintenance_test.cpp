#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include "ui/frm_about.h"
#include "ui/frm_sauvegardetxt.h"
#include "ui/frm_update.h"
#include "ui/program.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

using testing::Program;

template <typename Control>
Control& control(const QWidget& window, const char* name) {
    return *window.findChild<Control*>(QLatin1String(name));
}

// Answers every request with one note.
class NoteServer : public QTcpServer {
  public:
    NoteServer(const QByteArray& status, const QByteArray& note) {
        connect(this, &QTcpServer::newConnection, this, [this, status, note] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket, status, note] {
                ++requests;
                socket->readAll();
                socket->write("HTTP/1.1 " + status + "\r\nConnection: close\r\nContent-Length: " +
                              QByteArray::number(note.size()) + "\r\n\r\n" + note);
                socket->disconnectFromHost();
            });
        });
        listen(QHostAddress::LocalHost);
    }
    [[nodiscard]] std::string address() const {
        return "http://127.0.0.1:" + std::to_string(serverPort()) + "/q/version.txt";
    }
    int requests = 0;
};

TEST(FrmSauvegardetxt, ButtonsWalkAndCopyAndAnEmptyListOnlyCloses) {
    Program program;
    {
        const frmSauvegardetxt empty(nullptr, program.context);
        for (const char* name : {"cmdPrecedent", "cmdSuivant", "cmdCopier"}) {
            EXPECT_FALSE(control<QPushButton>(empty, name).isEnabled()) << name;
        }
        EXPECT_TRUE(control<QPushButton>(empty, "cmdFermer").isEnabled());
        EXPECT_TRUE(control<QPushButton>(empty, "cmdSessionPrecedente").isHidden());
    }
    program.backups.add(TextBackups::prepare("one\u00a0\r\n"));
    program.backups.add(TextBackups::prepare("two"));
    appendBackup(earlierBackup(program.folders.backupFile()), backupBlock("<b>", "n°", 0, "old"));
    frmSauvegardetxt window(nullptr, program.context);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Dernière sauvegarde au format texte  ( 2/2 )"));
    EXPECT_FALSE(control<QPushButton>(window, "cmdSuivant").isEnabled());
    control<QPushButton>(window, "cmdPrecedent").click();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Sauvegarde au format texte  ( 1/2 )"));
    control<QPushButton>(window, "cmdCopier").click();
    EXPECT_EQ(fromQt(QGuiApplication::clipboard()->text()), "one\u00a0\r\n");

    auto& text = control<QPlainTextEdit>(window, "txtSauvegarde");
    text.moveCursor(QTextCursor::End);
    program.session.backupKept();
    EXPECT_TRUE(text.textCursor().atEnd()) << "who reads stays where they are";
    auto& earlier = control<QPushButton>(window, "cmdSessionPrecedente");
    earlier.click();
    EXPECT_EQ(text.toPlainText(), QStringLiteral("old"));
    EXPECT_EQ(control<QLabel>(window, "lblTitre").text(), QStringLiteral("<b> n°0"));
    earlier.click();
    EXPECT_EQ(text.toPlainText(), QStringLiteral("two"));
}

TEST(FrmUpdate, TellsWhatTheNoteSays) {
    struct Case {
        QByteArray status, note;
        QString words;
        bool offersPage;
    };
    const QString failure = QStringLiteral("La recherche d'une nouvelle version n'a pas abouti.");
    for (const Case& each :
         {Case{"200 OK", "v1.0.1\n", QStringLiteral("Une nouvelle version est disponible : v1.0.1"),
               true},
          Case{"200 OK", "1.0.0", QStringLiteral("Cette version est la plus récente."), false},
          Case{"404 Not Found", "9.9.9", failure, false},
          Case{"200 OK", "9.9.9" + QByteArray(100000, ' '), failure, false}}) {
        const NoteServer server(each.status, each.note);
        Program program;
        program.context.Version = "v1.0.0";
        program.settings.setText(keys::kMajAdresse, server.address());
        frmUpdate window(nullptr, program.context);
        window.show();
        auto& words = control<QLabel>(window, "lblResultat");
        EXPECT_TRUE(QTest::qWaitFor([&] { return words.text() == each.words; }))
            << fromQt(words.text());
        EXPECT_EQ(control<QPushButton>(window, "cmdTelecharger").isVisible(), each.offersPage);
    }
}

TEST(FrmUpdate, StartAsksOnlyWhenToldToAndTellsOneLine) {
    const NoteServer server("200 OK", "2.0.0");
    Program program;
    program.context.Version = "v1.0.0";
    std::vector<std::string> told;
    const auto connection =
        program.session.told.connect([&](const std::string& line) { told.push_back(line); });
    QObject owner;
    program.settings.setBoolean(keys::kMajAuto, true);
    checkForUpdateAtStart(&owner, program.context);
    program.settings.setBoolean(keys::kMajAuto, false);
    program.settings.setText(keys::kMajAdresse, server.address());
    checkForUpdateAtStart(&owner, program.context);
    QTest::qWait(50);
    EXPECT_EQ(server.requests, 0);
    EXPECT_TRUE(told.empty());

    program.settings.setBoolean(keys::kMajAuto, true);
    checkForUpdateAtStart(&owner, program.context);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }));
    EXPECT_EQ(told, (std::vector<std::string>{"Une nouvelle version est disponible : v2.0.0"}));

    program.settings.setText(keys::kMajAdresse, "file:///etc/hostname");
    checkForUpdateAtStart(&owner, program.context);
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }));
}

TEST(FrmAbout, ShowsVersionAndLicence) {
    Program program;
    program.context.Version = "v1.2.3";
    const frmAbout window(nullptr, program.context);
    EXPECT_EQ(control<QLabel>(window, "lblVersion").text(), QStringLiteral("Quillmark v1.2.3"));
    EXPECT_TRUE(control<QPlainTextEdit>(window, "txtLicence")
                    .toPlainText()
                    .contains(QLatin1String("Permission is hereby granted, free of charge")));
}

}  // namespace
}  // namespace quillmark
