#include "ui/frm_sauvegardetxt.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

constexpr const char* kWindow = "frmSauvegardetxt";
constexpr int kLineCharacters = 90;
constexpr int kLines = 30;

template <typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

}  // namespace

frmSauvegardetxt::frmSauvegardetxt(QWidget* parent, AppContext& context)
    : QDialog(parent),
      context_(context),
      browser_(context.backups),
      earlier_(earlierBackup(context.folders.backupFile())),
      lblTitre_(named(new QLabel, "lblTitre")),
      txtSauvegarde_(named(new QPlainTextEdit, "txtSauvegarde")),
      cmdPrecedent_(named(new QPushButton, "cmdPrecedent")),
      cmdSuivant_(named(new QPushButton, "cmdSuivant")),
      cmdSessionPrecedente_(named(new QPushButton, "cmdSessionPrecedente")),
      cmdCopier_(named(new QPushButton, "cmdCopier")),
      cmdFermer_(named(new QPushButton, "cmdFermer")) {
    setObjectName(QLatin1String(kWindow));
    build();
    connectControls();
    language_ = context.languageChanged.connect([this] { retranslate(); });
    kept_ = context.session.backupKept.connect([this] {
        if (!cmdSessionPrecedente_->isChecked()) {
            browser_.refresh();
            showState();
        }
    });
    retranslate();
}

void frmSauvegardetxt::build() {
    lblTitre_->setTextFormat(Qt::PlainText);
    lblTitre_->setWordWrap(true);
    txtSauvegarde_->setReadOnly(true);
    txtSauvegarde_->setTabChangesFocus(true);
    txtSauvegarde_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtSauvegarde_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    cmdCopier_->setIcon(icon("copy"));
    cmdSessionPrecedente_->setIcon(icon("backup"));
    cmdSessionPrecedente_->setCheckable(true);
    std::error_code none;
    if (std::filesystem::file_size(earlier_, none) == 0 || none) {
        cmdSessionPrecedente_->hide();
    }
    cmdFermer_->setDefault(true);

    auto* foot = new QHBoxLayout;
    foot->addWidget(cmdPrecedent_);
    foot->addWidget(cmdSuivant_);
    foot->addSpacing(12);
    foot->addWidget(cmdSessionPrecedente_);
    foot->addStretch();
    foot->addWidget(cmdCopier_);
    foot->addWidget(cmdFermer_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lblTitre_);
    column->addWidget(txtSauvegarde_, 1);
    column->addLayout(foot);
    resize(fontMetrics().averageCharWidth() * kLineCharacters,
           fontMetrics().lineSpacing() * kLines);
}

void frmSauvegardetxt::connectControls() {
    connect(cmdPrecedent_, &QPushButton::clicked, this,
            guarded("cmdPrecedent_Click", kWindow, [this] {
                browser_.cmdPrecedent_Click();
                showState();
            }));
    connect(cmdSuivant_, &QPushButton::clicked, this, guarded("cmdSuivant_Click", kWindow, [this] {
                browser_.cmdSuivant_Click();
                showState();
            }));
    connect(cmdSessionPrecedente_, &QPushButton::toggled, this,
            guarded("cmdSessionPrecedente_Click", kWindow,
                    [this](bool wanted) { cmdSessionPrecedente_Click(wanted); }));
    // The text itself and not the control's: some characters don't survive a control.
    connect(cmdCopier_, &QPushButton::clicked, this, guarded("cmdCopier_Click", kWindow, [this] {
                QGuiApplication::clipboard()->setText(toQt(browser_.text()));
            }));
    connect(cmdFermer_, &QPushButton::clicked, this,
            guarded("cmdFermer_Click", kWindow, [this] { close(); }));
}

void frmSauvegardetxt::retranslate() {
    const Traduction& t = context_.traduction;
    cmdPrecedent_->setText(toQt(t.Trad("Sauvegardetxt", "<<", "cmdPrecedent")));
    cmdSuivant_->setText(toQt(t.Trad("Sauvegardetxt", ">>", "cmdSuivant")));
    // A new text takes the old one's key away.
    cmdPrecedent_->setShortcut(QKeySequence(QKeySequence::Back));
    cmdSuivant_->setShortcut(QKeySequence(QKeySequence::Forward));
    cmdCopier_->setText(
        toQt(t.Trad("Sauvegardetxt", "&Copier dans le presse-papier", "cmdCopier")));
    cmdFermer_->setText(toQt(t.Trad("Sauvegardetxt", "&Fermer", "cmdFermer")));
    cmdSessionPrecedente_->setText(
        toQt(t.Trad("Sauvegardetxt", "&Session précédente", "cmdSessionPrecedente")));
    cmdSessionPrecedente_->setToolTip(toQt(
        t.Trad("Sauvegardetxt", "Afficher les sauvegardes de la session précédente de Quillmark",
               "cmdSessionPrecedenteTip")));
    const std::array arrows{
        std::pair(cmdPrecedent_,
                  t.Trad("Sauvegardetxt", "Sauvegarde précédente", "cmdPrecedentTip")),
        std::pair(cmdSuivant_, t.Trad("Sauvegardetxt", "Sauvegarde suivante", "cmdSuivantTip"))};
    for (const auto& [button, tip] : arrows) {
        button->setToolTip(toQt(tip));
        button->setAccessibleName(toQt(tip));
    }
    txtSauvegarde_->setAccessibleName(
        toQt(t.Trad("Sauvegardetxt", "Texte de la sauvegarde", "txtSauvegarde")));
    showState();
}

void frmSauvegardetxt::showState() {
    setWindowTitle(toQt(browser_.caption(context_.traduction)));
    lblTitre_->setText(toQt(browser_.title()));
    lblTitre_->setVisible(!lblTitre_->text().isEmpty());
    cmdPrecedent_->setEnabled(browser_.hasPrevious());
    cmdSuivant_->setEnabled(browser_.hasNext());
    cmdCopier_->setEnabled(browser_.count() > 0);
    txtSauvegarde_->setEnabled(browser_.count() > 0);
    // Not compared with the control's, which has other line ends.
    if (QString text = toQt(browser_.text()); text != shown_) {
        txtSauvegarde_->setPlainText(text);
        shown_ = std::move(text);
    }
}

void frmSauvegardetxt::cmdSessionPrecedente_Click(bool wanted) {
    if (!wanted) {
        browser_.showThisRun();
        showState();
        return;
    }
    // The file can be large: it is looked through elsewhere.
    const auto found = std::make_shared<std::vector<BackupPlace>>();
    context_.tasks.run(
        {fromQt(cmdSessionPrecedente_->text().remove(QLatin1Char('&'))), true,
         [found, file = earlier_](Progress&) { *found = listBackups(file); },
         guarded("cmdSessionPrecedente_Click", kWindow,
                 [self = QPointer<frmSauvegardetxt>(this), found](const TaskEnd& end) {
                     if (!self.isNull() && self->cmdSessionPrecedente_->isChecked()) {
                         self->showEarlierRun(end, std::move(*found));
                     }
                 })});
}

void frmSauvegardetxt::showEarlierRun(const TaskEnd& end, std::vector<BackupPlace> places) {
    if (!end.completed()) {
        cmdSessionPrecedente_->setChecked(false);
        if (end.failure) {
            std::rethrow_exception(end.failure);
        }
        return;
    }
    browser_.showEarlierRun(earlier_, std::move(places));
    showState();
}

}  // namespace quillmark
