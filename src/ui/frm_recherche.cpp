#include "ui/frm_recherche.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

constexpr const char* kWindow = "frmRecherche";
constexpr int kFieldCharacters = 36;

template <typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

}  // namespace

frmRecherche::frmRecherche(QWidget* parent, AppContext& context, SearchedText& text)
    : QDialog(parent),
      context_(context),
      search_(text, context.dialogues, context.traduction),
      lblRechercher_(named(new QLabel, "lblRechercher")),
      lblRemplacer_(named(new QLabel, "lblRemplacer")),
      Text1_(named(new QLineEdit, "Text1")),
      txtRemplacer_(named(new QLineEdit, "txtRemplacer")),
      chkCasse_(named(new QCheckBox, "chkCasse")),
      chkMotEntier_(named(new QCheckBox, "chkMotEntier")),
      cmdSuivant_(named(new QPushButton, "cmdSuivant")),
      cmdRemplacer_(named(new QPushButton, "cmdRemplacer")),
      cmdRemplacerTout_(named(new QPushButton, "cmdRemplacerTout")),
      cmdAnnuler_(named(new QPushButton, "cmdAnnuler")) {
    setObjectName(QLatin1String(kWindow));
    setModal(false);
    build();
    connectControls();
    language_ = context.languageChanged.connect([this] { retranslate(); });
    facts_ = context.session.factsChanged.connect([this] { showState(); });
    retranslate();
    showState();
}

void frmRecherche::build() {
    lblRechercher_->setBuddy(Text1_);
    lblRemplacer_->setBuddy(txtRemplacer_);
    Text1_->setMinimumWidth(fontMetrics().averageCharWidth() * kFieldCharacters);
    // Enter is the next match, whichever button has the focus.
    cmdSuivant_->setDefault(true);
    for (QPushButton* button : {cmdRemplacer_, cmdRemplacerTout_, cmdAnnuler_}) {
        button->setAutoDefault(false);
    }
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(8);
    fields->addWidget(lblRechercher_, 0, 0);
    fields->addWidget(Text1_, 0, 1);
    fields->addWidget(lblRemplacer_, 1, 0);
    fields->addWidget(txtRemplacer_, 1, 1);
    auto* options = new QHBoxLayout;
    options->setSpacing(18);
    options->addWidget(chkCasse_);
    options->addWidget(chkMotEntier_);
    options->addStretch();
    fields->addLayout(options, 2, 1);
    fields->setRowStretch(3, 1);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(6);
    buttons->addWidget(cmdSuivant_);
    buttons->addWidget(cmdRemplacer_);
    buttons->addWidget(cmdRemplacerTout_);
    buttons->addSpacing(6);
    buttons->addWidget(cmdAnnuler_);
    buttons->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(14, 14, 14, 14);
    row->setSpacing(18);
    row->addLayout(fields, 1);
    row->addLayout(buttons);
    const QList<QWidget*> order{Text1_,      txtRemplacer_, chkCasse_,         chkMotEntier_,
                                cmdSuivant_, cmdRemplacer_, cmdRemplacerTout_, cmdAnnuler_};
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

void frmRecherche::connectControls() {
    connect(Text1_, &QLineEdit::textChanged, this,
            guarded("Text1_Change", kWindow, [this](const QString& typed) {
                search_.Text1_Change(fromQt(typed));
                showState();
            }));
    connect(txtRemplacer_, &QLineEdit::textChanged, this,
            guarded("txtRemplacer_Change", kWindow,
                    [this](const QString& typed) { search_.state.txtRemplacer = fromQt(typed); }));
    connect(chkCasse_, &QCheckBox::toggled, this,
            guarded("chkCasse_Click", kWindow,
                    [this](bool checked) { search_.state.chkCasse = checked; }));
    connect(chkMotEntier_, &QCheckBox::toggled, this,
            guarded("chkMotEntier_Click", kWindow,
                    [this](bool checked) { search_.state.chkMotEntier = checked; }));
    connect(cmdSuivant_, &QPushButton::clicked, this,
            guarded("cmdSuivant_Click", kWindow, [this] { search_.cmdSuivant_Click(); }));
    connect(cmdRemplacer_, &QPushButton::clicked, this,
            guarded("cmdRemplacer_Click", kWindow, [this] { search_.cmdRemplacer_Click(); }));
    connect(
        cmdRemplacerTout_, &QPushButton::clicked, this,
        guarded("cmdRemplacerTout_Click", kWindow, [this] { search_.cmdRemplacerTout_Click(); }));
    connect(cmdAnnuler_, &QPushButton::clicked, this,
            guarded("cmdAnnuler_Click", kWindow, [this] { reject(); }));
}

void frmRecherche::open() {
    guarded("frmRecherche_Show", kWindow, [this] { search_.open(); })();
    {
        const QSignalBlocker quiet(Text1_);  // the search goes on from the selection
        Text1_->setText(toQt(search_.state.Text1));
    }
    showState();
    show();
    raise();
    activateWindow();
    Text1_->setFocus();
    Text1_->selectAll();
}

void frmRecherche::retranslate() {
    const Traduction& t = context_.traduction;
    setWindowTitle(toQt(t.Trad("Recherche", "Rechercher et remplacer", "frmRecherche")));
    lblRechercher_->setText(toQt(t.Trad("Recherche", "Rec&hercher", "lblRechercher")));
    lblRemplacer_->setText(toQt(t.Trad("Recherche", "Remplacer &par", "lblRemplacer")));
    chkCasse_->setText(toQt(t.Trad("Recherche", "Respecter la &casse", "chkCasse")));
    chkMotEntier_->setText(toQt(t.Trad("Recherche", "Mot &entier", "chkMotEntier")));
    cmdSuivant_->setText(toQt(t.Trad("Recherche", "&Suivant", "cmdSuivant")));
    cmdRemplacer_->setText(toQt(t.Trad("Recherche", "&Remplacer", "cmdRemplacer")));
    cmdRemplacerTout_->setText(toQt(t.Trad("Recherche", "Remplacer &tout", "cmdRemplacerTout")));
    cmdAnnuler_->setText(toQt(t.Trad("Recherche", "&Fermer", "cmdAnnuler")));
}

void frmRecherche::showState() {
    for (QPushButton* button : {cmdSuivant_, cmdRemplacer_, cmdRemplacerTout_}) {
        button->setEnabled(search_.canSearch() && context_.session.facts().hasDocument);
    }
}

}  // namespace quillmark
