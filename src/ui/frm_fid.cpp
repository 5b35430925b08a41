#include "ui/frm_fid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"
#include "views/search_words.h"

namespace quillmark {

frmFID::frmFID(QWidget* parent, AppContext& context, const std::string& FID,
               const std::vector<std::string>& names)
    : QDialog(parent),
      context_(context),
      FID_(toQt(FID)),
      txtFiltreFID_(new QLineEdit),
      lstFIDs_(new QListWidget),
      cmdCopier_(new QPushButton),
      cmdFermer_(new QPushButton) {
    setObjectName(QStringLiteral("frmFID"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    txtFiltreFID_->setObjectName(QStringLiteral("txtFiltreFID"));
    txtFiltreFID_->setClearButtonEnabled(true);
    txtFiltreFID_->addAction(icon("find"), QLineEdit::LeadingPosition);
    lstFIDs_->setObjectName(QStringLiteral("lstFIDs"));
    lstFIDs_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstFIDs_->setUniformItemSizes(true);
    for (const std::string& name : names) {
        lstFIDs_->addItem(toQt(name));
    }
    cmdCopier_->setObjectName(QStringLiteral("cmdCopier"));
    cmdCopier_->setIcon(icon("copy"));
    cmdFermer_->setObjectName(QStringLiteral("cmdFermer"));
    cmdFermer_->setDefault(true);

    auto* foot = new QHBoxLayout;
    foot->addWidget(cmdCopier_);
    foot->addStretch();
    foot->addWidget(cmdFermer_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(txtFiltreFID_);
    column->addWidget(lstFIDs_, 1);
    column->addLayout(foot);
    resize(fontMetrics().averageCharWidth() * 56, fontMetrics().lineSpacing() * 22);

    connect(
        txtFiltreFID_, &QLineEdit::textChanged, this,
        guarded("txtFiltreFID_Change", "frmFID", [this](const QString& text) { filter(text); }));
    connect(cmdCopier_, &QPushButton::clicked, this,
            guarded("cmdCopier_Click", "frmFID", [this] { copy(); }));
    connect(cmdFermer_, &QPushButton::clicked, this,
            guarded("cmdFermer_Click", "frmFID", [this] { close(); }));
    auto* copyKey = new QShortcut(QKeySequence::Copy, lstFIDs_);
    copyKey->setContext(Qt::WidgetShortcut);
    connect(copyKey, &QShortcut::activated, this,
            guarded("lstFIDs_Copy", "frmFID", [this] { copy(); }));
    language_ = context.languageChanged.connect([this] { retranslate(); });
    retranslate();
}

void frmFID::retranslate() {
    const Traduction& t = context_.traduction;
    QString title = toQt(t.Trad("Main", "FID", "lblFID")) + QLatin1Char(' ') + FID_;
    setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
    txtFiltreFID_->setPlaceholderText(toQt(t.Trad("Main", "Filtrer", "txtFiltreFID")));
    txtFiltreFID_->setAccessibleName(txtFiltreFID_->placeholderText());
    lstFIDs_->setAccessibleName(windowTitle());
    cmdCopier_->setText(toQt(t.Trad("Erreurs", "Copier dans le presse-papier", "cmdCopier")));
    cmdFermer_->setText(toQt(t.Trad("Erreurs", "Fermer", "cmdFermer")));
}

void frmFID::filter(const QString& text) {
    const std::string wanted = foldedForSearch(fromQt(text));
    for (int i = 0; i < lstFIDs_->count(); ++i) {
        QListWidgetItem& item = *lstFIDs_->item(i);
        const bool found = foldedForSearch(fromQt(item.text())).find(wanted) != std::string::npos;
        item.setHidden(!found);
        item.setSelected(found && item.isSelected());
    }
}

void frmFID::copy() {
    QStringList lines;
    const bool some = !lstFIDs_->selectedItems().isEmpty();
    for (int i = 0; i < lstFIDs_->count(); ++i) {
        const QListWidgetItem& item = *lstFIDs_->item(i);
        if (!item.isHidden() && (!some || item.isSelected())) {
            lines += item.text();
        }
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

}  // namespace quillmark
