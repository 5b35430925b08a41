#include "ui/frm_labels.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"
#include "views/special_labels.h"

namespace quillmark {
namespace {

void copySelection(const QTreeWidget& list) {
    QStringList lines;
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
        const QTreeWidgetItem& item = *list.topLevelItem(row);
        if (item.isSelected() || list.selectedItems().isEmpty()) {
            lines << QStringList{item.text(0), item.text(1), item.text(2)}.join(QLatin1Char('\t'));
        }
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

}  // namespace

frmLabels::frmLabels(QWidget* parent, AppContext& context) : QDialog(parent) {
    setObjectName(QStringLiteral("frmLabels"));
    const Traduction& t = context.traduction;
    const SpecialLabels labels(context.session.document());
    setWindowTitle(toQt(labels.title(t)));
    auto* column = new QVBoxLayout(this);
    auto* buttons = new QDialogButtonBox;
    if (labels.rows().empty()) {
        auto* none = new QLabel(toQt(t.Trad("Main", "Aucun Label Special", "txtPasdePOI")));
        none->setObjectName(QStringLiteral("lblVide"));
        none->setAlignment(Qt::AlignCenter);
        none->setMinimumSize(fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 5);
        column->addWidget(none, 1);
    } else {
        auto* list = new QTreeWidget;
        list->setObjectName(QStringLiteral("lstLabels"));
        list->setAccessibleName(windowTitle());
        list->setRootIsDecorated(false);
        list->setUniformRowHeights(true);
        list->setAlternatingRowColors(true);
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        list->setHeaderLabels({toQt(t.Trad("Main", "Texte", "lblTexteLabel")),
                               toQt(t.Trad("Main", "Table A", "lblTableA")),
                               toQt(t.Trad("Main", "Table B", "lblTableB"))});
        for (const SpecialLabel& row : labels.rows()) {
            new QTreeWidgetItem(list, {toQt(row.text), toQt(row.tableA), toQt(row.tableB)});
        }
        for (const int table : {1, 2}) {
            list->resizeColumnToContents(table);
        }
        list->setColumnWidth(0, fontMetrics().averageCharWidth() * 40);
        column->addWidget(list, 1);
        auto* copy =
            buttons->addButton(toQt(t.Trad("Erreurs", "Copier dans le presse-papier", "cmdCopier")),
                               QDialogButtonBox::ActionRole);
        copy->setObjectName(QStringLiteral("cmdCopier"));
        copy->setIcon(icon("copy"));
        connect(copy, &QPushButton::clicked, this,
                guarded("cmdCopier_Click", "frmLabels", [list] { copySelection(*list); }));
        resize(fontMetrics().averageCharWidth() * 80, fontMetrics().lineSpacing() * 24);
    }
    auto* close = buttons->addButton(toQt(t.Trad("Erreurs", "Fermer", "cmdFermer")),
                                     QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("cmdFermer"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this,
            guarded("cmdFermer_Click", "frmLabels", [this] { reject(); }));
    column->addWidget(buttons);
}

}  // namespace quillmark
