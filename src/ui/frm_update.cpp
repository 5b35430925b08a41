#include "ui/frm_update.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"
#include "ui/version_fetch.h"

namespace quillmark {
namespace {

constexpr int kLineCharacters = 56;
constexpr int kIcon = 48;  // logical pixels

template <typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

UpdateCheck judged(const std::optional<std::string>& note, const AppContext& context) {
    return judgeVersionNote(note, readVersion(context.Version).value_or(Version()));
}

}  // namespace

frmUpdate::frmUpdate(QWidget* parent, AppContext& context)
    : QDialog(parent),
      context_(context),
      lblResultat_(named(new QLabel, "lblResultat")),
      lblVersion_(named(new QLabel, "lblVersion")),
      prgRecherche_(named(new QProgressBar, "prgRecherche")),
      cmdTelecharger_(named(new QPushButton, "cmdTelecharger")),
      cmdFermer_(named(new QPushButton, "cmdFermer")) {
    setObjectName(QStringLiteral("frmUpdate"));
    for (QLabel* label : {lblResultat_, lblVersion_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    lblResultat_->setMinimumWidth(fontMetrics().averageCharWidth() * kLineCharacters);
    prgRecherche_->setRange(0, 0);
    prgRecherche_->setTextVisible(false);
    cmdTelecharger_->setIcon(icon("globe"));
    cmdFermer_->setDefault(true);

    auto* drawing = new QLabel;
    drawing->setPixmap(icon("quillmark").pixmap(QSize(kIcon, kIcon), devicePixelRatioF()));
    auto* words = new QVBoxLayout;
    words->setSpacing(8);
    words->addWidget(lblResultat_);
    words->addWidget(prgRecherche_);
    words->addWidget(lblVersion_);
    words->addStretch();
    auto* body = new QHBoxLayout;
    body->setSpacing(16);
    body->addWidget(drawing, 0, Qt::AlignTop);
    body->addLayout(words, 1);
    auto* foot = new QHBoxLayout;
    foot->addWidget(cmdTelecharger_);
    foot->addStretch();
    foot->addWidget(cmdFermer_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(16);
    column->addLayout(body, 1);
    column->addLayout(foot);

    connect(cmdTelecharger_, &QPushButton::clicked, this,
            guarded("cmdTelecharger_Click", "frmUpdate", [this] { cmdTelecharger_Click(); }));
    connect(cmdFermer_, &QPushButton::clicked, this,
            guarded("cmdFermer_Click", "frmUpdate", [this] { close(); }));
    language_ = context.languageChanged.connect([this] { retranslate(); });
    retranslate();
    cmdFermer_->setFocus();
    fetchVersionNote(this, context.settings.text(keys::kMajAdresse),
                     [this](const std::optional<std::string>& note) {
                         check_ = judged(note, context_);
                         retranslate();
                     });
}

void frmUpdate::retranslate() {
    const Traduction& t = context_.traduction;
    setWindowTitle(toQt(t.Trad("MiseAJour", "Mise à jour", "frmUpdate")));
    lblResultat_->setText(
        toQt(check_ ? updateText(*check_, t)
                    : t.Trad("MiseAJour", "Recherche d'une nouvelle version...", "msgRecherche")));
    lblVersion_->setText(
        toQt(t.Trad("MiseAJour", "Version installée :", "lblVersion") + ' ' + context_.Version));
    prgRecherche_->setAccessibleName(
        toQt(t.Trad("MiseAJour", "Recherche en cours", "prgRecherche")));
    cmdTelecharger_->setText(
        toQt(t.Trad("MiseAJour", "&Ouvrir la page de téléchargement", "cmdTelecharger")));
    cmdTelecharger_->setToolTip(
        plainTip(toQt(downloadPage(context_.settings.text(keys::kMajAdresse)))));
    cmdFermer_->setText(toQt(t.Trad("MiseAJour", "&Fermer", "cmdFermer")));
    prgRecherche_->setVisible(!check_);
    cmdTelecharger_->setVisible(check_ && check_->found == UpdateCheck::Found::newer);
}

void frmUpdate::cmdTelecharger_Click() const {
    QDesktopServices::openUrl(
        QUrl(toQt(downloadPage(context_.settings.text(keys::kMajAdresse))), QUrl::StrictMode));
}

void checkForUpdateAtStart(QObject* owner, AppContext& context) {
    const std::string address = context.settings.text(keys::kMajAdresse);
    if (address.empty() || !context.settings.boolean(keys::kMajAuto)) {
        return;
    }
    fetchVersionNote(owner, address, [&context](const std::optional<std::string>& note) {
        const std::string line = updateLine(judged(note, context), context.traduction);
        if (!line.empty()) {
            context.session.told(line);
        }
    });
}

}  // namespace quillmark
