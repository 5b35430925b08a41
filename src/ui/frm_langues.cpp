#include "ui/frm_langues.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/qt_text.h"

namespace quillmark {

frmLangues::frmLangues(QWidget* parent, AppContext& context)
    : QDialog(parent),
      context_(context),
      choice_(context.folders, context.settings, context.traduction, context.languageChanged),
      lstLang_(new QListWidget),
      cmdOK_(new QPushButton),
      cmdAnnuler_(new QPushButton) {
    setObjectName(QStringLiteral("frmLangues"));
    lstLang_->setObjectName(QStringLiteral("lstLang"));
    lstLang_->setUniformItemSizes(true);
    lstLang_->setSpacing(2);
    for (const std::string& language : choice_.lstLang()) {
        lstLang_->addItem(toQt(language));
    }
    lstLang_->setCurrentRow(choice_.currentRow());
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdOK_->setDefault(true);
    cmdAnnuler_->setObjectName(QStringLiteral("cmdAnnuler"));

    auto* buttons = new QDialogButtonBox;
    buttons->addButton(cmdOK_, QDialogButtonBox::AcceptRole);
    buttons->addButton(cmdAnnuler_, QDialogButtonBox::RejectRole);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lstLang_, 1);
    column->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 40, fontMetrics().lineSpacing() * 16);

    connect(cmdOK_, &QPushButton::clicked, this,
            guarded("cmdOK_Click", "frmLangues", [this] { cmdOK_Click(); }));
    connect(cmdAnnuler_, &QPushButton::clicked, this,
            guarded("cmdAnnuler_Click", "frmLangues", [this] { reject(); }));
    connect(lstLang_, &QListWidget::itemDoubleClicked, this,
            guarded("lstLang_DblClick", "frmLangues", [this] { cmdOK_Click(); }));
    language_ = context.languageChanged.connect([this] { retranslate(); });
    retranslate();
}

void frmLangues::retranslate() {
    const Traduction& t = context_.traduction;
    setWindowTitle(toQt(t.Trad("Langues", "Langues disponibles", "lblLangues")));
    lstLang_->setAccessibleName(windowTitle());
    cmdOK_->setText(toQt(t.Trad("Langues", "OK", "cmdOK")));
    cmdAnnuler_->setText(toQt(t.Trad("Langues", "Annuler", "cmdAnnuler")));
}

void frmLangues::cmdOK_Click() {
    accept();
    choice_.cmdOK_Click(lstLang_->currentRow());
}

}  // namespace quillmark
