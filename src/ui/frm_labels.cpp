#include "ui/frm_labels.h"

#include <QAction>
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

// Without a selection all of them.
void copySelection(const QTreeWidget& list, const std::vector<SpecialLabel>& labels) {
    const bool all = list.selectedItems().isEmpty();
    std::string text;
    for (std::size_t row = 0; row < labels.size(); ++row) {
        if (all || list.topLevelItem(static_cast<int>(row))->isSelected()) {
            if (!text.empty()) {
                text += '\n';
            }
            text += labels[row].line();
        }
    }
    QGuiApplication::clipboard()->setText(toQt(text));
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
        const auto copyRows = guarded("cmdCopier_Click", "frmLabels",
                                      [list, rows = labels.rows()] { copySelection(*list, rows); });
        connect(copy, &QPushButton::clicked, this, copyRows);
        // The list's own answer to these keys is one cell.
        auto* keys = new QAction(list);
        keys->setShortcuts(QKeySequence::Copy);
        keys->setShortcutContext(Qt::WidgetShortcut);
        list->addAction(keys);
        connect(keys, &QAction::triggered, this, copyRows);
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
