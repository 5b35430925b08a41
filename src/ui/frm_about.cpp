#include "ui/frm_about.h"

#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

constexpr int kIcon = 64;  // logical pixels
constexpr int kLineCharacters = 72;
constexpr int kLines = 9;
constexpr double kNameSize = 1.6;  // of the window's font

template <typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

// Broken into lines for a file; here the window breaks them.
QString licence() {
    QFile file(QStringLiteral(":/LICENSE"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QStringList paragraphs = QString::fromUtf8(file.readAll())
                                 .trimmed()
                                 .split(QStringLiteral("\n\n"), Qt::SkipEmptyParts);
    for (QString& paragraph : paragraphs) {
        paragraph = paragraph.simplified();
    }
    return paragraphs.join(QStringLiteral("\n\n"));
}

}  // namespace

frmAbout::frmAbout(QWidget* parent, AppContext& context)
    : QDialog(parent),
      context_(context),
      lblVersion_(named(new QLabel, "lblVersion")),
      lblDescription_(named(new QLabel, "lblDescription")),
      lblLicence_(named(new QLabel, "lblLicence")),
      txtLicence_(named(new QPlainTextEdit, "txtLicence")),
      cmdFermer_(named(new QPushButton, "cmdFermer")) {
    setObjectName(QStringLiteral("frmAbout"));
    QFont large = font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * kNameSize);
    lblVersion_->setFont(large);
    lblVersion_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblDescription_->setWordWrap(true);
    lblLicence_->setBuddy(txtLicence_);
    txtLicence_->setReadOnly(true);
    txtLicence_->setTabChangesFocus(true);
    txtLicence_->setPlainText(licence());
    txtLicence_->setMinimumSize(fontMetrics().averageCharWidth() * kLineCharacters,
                                fontMetrics().lineSpacing() * kLines);
    cmdFermer_->setDefault(true);

    auto* drawing = new QLabel;
    drawing->setPixmap(icon("quillmark").pixmap(QSize(kIcon, kIcon), devicePixelRatioF()));
    auto* words = new QVBoxLayout;
    words->addWidget(lblVersion_);
    words->addWidget(lblDescription_);
    auto* head = new QHBoxLayout;
    head->setSpacing(16);
    head->addWidget(drawing, 0, Qt::AlignTop);
    head->addLayout(words, 1);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(cmdFermer_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(12);
    column->addLayout(head);
    column->addWidget(lblLicence_);
    column->addWidget(txtLicence_, 1);
    column->addLayout(foot);

    connect(cmdFermer_, &QPushButton::clicked, this,
            guarded("cmdFermer_Click", "frmAbout", [this] { close(); }));
    language_ = context.languageChanged.connect([this] { retranslate(); });
    retranslate();
    cmdFermer_->setFocus();
}

void frmAbout::retranslate() {
    const Traduction& t = context_.traduction;
    setWindowTitle(toQt(t.Trad("Aide", "À propos de Quillmark", "frmAbout")));
    lblVersion_->setText(QStringLiteral("Quillmark ") + toQt(context_.Version));
    lblDescription_->setText(
        toQt(t.Trad("Aide", "Éditeur de fichiers TYP, les feuilles de style des cartes Garmin.",
                    "lblDescription")));
    lblLicence_->setText(toQt(t.Trad("Aide", "&Licence", "lblLicence")));
    txtLicence_->setAccessibleName(lblLicence_->text().remove(QLatin1Char('&')));
    cmdFermer_->setText(toQt(t.Trad("Aide", "&Fermer", "cmdFermer")));
}

}  // namespace quillmark
