#include "ui/frm_inputbox.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/qt_text.h"

namespace quillmark {

frmInputBox::frmInputBox(QWidget* parent, const Traduction& traduction, const std::string& prompt,
                         const std::string& titre, const std::string& initial)
    : QDialog(parent), Text1_(new QLineEdit(toQt(initial))) {
    setObjectName(QStringLiteral("frmInputBox"));
    setWindowTitle(titre.empty() ? QStringLiteral("Quillmark") : toQt(titre));
    auto* label = new QLabel(withoutAccessKey(toQt(prompt)));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setBuddy(Text1_);
    Text1_->setObjectName(QStringLiteral("Text1"));
    Text1_->setAccessibleName(toQt(prompt));
    Text1_->setMinimumWidth(QFontMetrics(Text1_->font()).averageCharWidth() * 40);
    Text1_->selectAll();

    auto* buttons = new QDialogButtonBox;
    auto* ok =
        buttons->addButton(withoutAccessKey(toQt(traduction.Trad("MsgBox", "OK", "MsgBoxOK"))),
                           QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto* cancel = buttons->addButton(
        withoutAccessKey(toQt(traduction.Trad("MsgBox", "Annuler", "MsgBoxAnnuler"))),
        QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdAnnuler"));
    connect(ok, &QPushButton::clicked, this,
            guarded("cmdOK_Click", "frmInputBox", [this] { accept(); }));
    connect(cancel, &QPushButton::clicked, this,
            guarded("cmdAnnuler_Click", "frmInputBox", [this] { reject(); }));

    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(Text1_);
    column->addWidget(buttons);
}

std::string frmInputBox::text() const {
    return fromQt(Text1_->text());
}

}  // namespace quillmark
