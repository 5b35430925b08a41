#include "ui/frm_erreur.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "core/paths.h"
#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"

namespace quillmark {

class JournalModel : public QAbstractTableModel {
  public:
    explicit JournalModel(const JournalList& list) : list_(list) {}

    void reset() {
        beginResetModel();
        endResetModel();
    }
    void setReversed(bool reversed) {
        reversed_ = reversed;
        reset();
    }
    [[nodiscard]] const JournalRow& row(int row) const {
        const auto count = list_.rows().size();
        const auto place = static_cast<std::size_t>(row);
        return list_.rows()[reversed_ ? count - 1 - place : place];
    }
    // The first one without such an entry.
    [[nodiscard]] int rowOf(const JournalRow& wanted) const {
        const auto& rows = list_.rows();
        const auto found = std::find(rows.begin(), rows.end(), wanted);
        if (found == rows.end()) {
            return 0;
        }
        const auto place = static_cast<int>(found - rows.begin());
        return reversed_ ? static_cast<int>(rows.size()) - 1 - place : place;
    }
    void setWords(const QString& error, const QString& warning) {
        errorWord_ = error;
        warningWord_ = warning;
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(list_.rows().size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& /*parent*/) const override { return 2; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const JournalRow& shown = row(index.row());
        if (role == Qt::DisplayRole) {
            return index.column() == 0
                       ? toQt(shown.place)
                       : toQt(shown.text).replace(QLatin1Char('\n'), QLatin1String("   "));
        }
        if (role == Qt::ToolTipRole) {
            return plainTip(toQt(shown.text));
        }
        if (role == Qt::AccessibleTextRole && index.column() == 0) {
            const QString& word = shown.kind == JournalKind::error ? errorWord_ : warningWord_;
            return shown.place.empty() ? word : word + QStringLiteral(", ") + toQt(shown.place);
        }
        if (role == Qt::DecorationRole && index.column() == 0) {
            return shown.kind == JournalKind::error ? error_ : warning_;
        }
        return {};
    }

  private:
    const JournalList& list_;
    bool reversed_ = false;
    QString errorWord_;
    QString warningWord_;
    QIcon error_ = icon("error");
    QIcon warning_ = icon("warning");
};

frmErreur::frmErreur(QWidget* parent, AppContext& context)
    : QDialog(parent),
      context_(context),
      list_(context.session, context.traduction),
      model_(new JournalModel(list_)),
      lblErreurs_(new QLabel),
      lblFichier_(new QLabel),
      lstMessages_(new QTreeView),
      txtErreurs_(new QPlainTextEdit),
      chkInverser_(new QCheckBox),
      cmdCopy_(new QPushButton),
      cmdFermer_(new QPushButton) {
    setObjectName(QStringLiteral("frmErreur"));
    model_->setParent(this);
    QFont bold = lblErreurs_->font();
    bold.setBold(true);
    lblErreurs_->setFont(bold);
    lblErreurs_->setObjectName(QStringLiteral("lblErreurs"));
    lblFichier_->setObjectName(QStringLiteral("lblFichier"));
    lblFichier_->setTextFormat(Qt::PlainText);
    lblFichier_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblFichier_->setWordWrap(true);

    lstMessages_->setObjectName(QStringLiteral("lstMessages"));
    lstMessages_->setModel(model_);
    lstMessages_->setHeaderHidden(true);
    lstMessages_->setRootIsDecorated(false);
    lstMessages_->setUniformRowHeights(true);
    lstMessages_->setAlternatingRowColors(true);
    lstMessages_->header()->setStretchLastSection(true);
    txtErreurs_->setObjectName(QStringLiteral("txtErreurs"));
    txtErreurs_->setReadOnly(true);
    txtErreurs_->setTabChangesFocus(true);
    auto* parts = new QSplitter(Qt::Vertical);
    parts->addWidget(lstMessages_);
    parts->addWidget(txtErreurs_);
    parts->setStretchFactor(0, 3);
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);

    chkInverser_->setObjectName(QStringLiteral("chkInverser"));
    cmdCopy_->setObjectName(QStringLiteral("cmdCopy"));
    cmdCopy_->setIcon(icon("copy"));
    cmdFermer_->setObjectName(QStringLiteral("cmdFermer"));
    // Enter belongs to the list; it mustn't close the window as well.
    cmdCopy_->setAutoDefault(false);
    cmdFermer_->setAutoDefault(false);
    auto* foot = new QHBoxLayout;
    foot->addWidget(chkInverser_);
    foot->addStretch();
    foot->addWidget(cmdCopy_);
    foot->addWidget(cmdFermer_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lblErreurs_);
    column->addWidget(lblFichier_);
    column->addWidget(parts, 1);
    column->addLayout(foot);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 28);

    connect(lstMessages_, &QTreeView::activated, this,
            guarded("lstMessages_DblClick", "frmErreur",
                    [this](const QModelIndex& index) { go(index.row()); }));
    connect(lstMessages_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            guarded("lstMessages_Click", "frmErreur", [this](const QModelIndex& index) {
                txtErreurs_->setPlainText(index.isValid() ? toQt(model_->row(index.row()).text)
                                                          : QString());
            }));
    connect(chkInverser_, &QCheckBox::toggled, this,
            guarded("chkInverser_Click", "frmErreur", [this](bool reversed) {
                const int row = lstMessages_->currentIndex().row();
                model_->setReversed(reversed);
                if (row >= 0) {
                    lstMessages_->setCurrentIndex(model_->index(model_->rowCount({}) - 1 - row, 0));
                }
            }));
    connect(cmdCopy_, &QPushButton::clicked, this, guarded("cmdCopy_Click", "frmErreur", [this] {
                QGuiApplication::clipboard()->setText(toQt(list_.text()));
            }));
    connect(cmdFermer_, &QPushButton::clicked, this,
            guarded("cmdFermer_Click", "frmErreur", [this] { hide(); }));
    language_ = context.languageChanged.connect([this] { retranslate(); });
    facts_ = context.session.factsChanged.connect([this] {
        showPath();
        if (isVisible() && shownVersion_ != context_.session.journalVersion()) {
            refresh();
        }
    });
    retranslate();
}

void frmErreur::open() {
    refresh();
    show();
    raise();
    activateWindow();
    lstMessages_->setFocus();
}

void frmErreur::retranslate() {
    const Traduction& t = context_.traduction;
    setWindowTitle(toQt(t.Trad("Erreurs", "Journal des messages", "frmErreur")));
    chkInverser_->setText(toQt(t.Trad("Erreurs", "Ordre &inverse", "chkInverser")));
    cmdCopy_->setText(toQt(t.Trad("Erreurs", "Copier dans le presse-papier", "cmdCopier")));
    cmdFermer_->setText(toQt(t.Trad("Erreurs", "Fermer", "cmdFermer")));
    model_->setWords(toQt(t.Trad("Erreurs", "Erreurs", "lblErreurs")),
                     toQt(t.Trad("Erreurs", "Avertissements", "msgWarning")));
    lstMessages_->setAccessibleName(windowTitle());
    txtErreurs_->setAccessibleName(toQt(t.Trad("Erreurs", "Texte du message", "txtErreurs")));
    refresh();
}

void frmErreur::refresh() {
    // The entry that is being read stays, as long as it is there.
    const QModelIndex current = lstMessages_->currentIndex();
    const auto read = current.isValid() ? std::optional(model_->row(current.row())) : std::nullopt;
    list_.refresh();
    shownVersion_ = context_.session.journalVersion();
    lblErreurs_->setText(toQt(list_.lblErreurs()));
    showPath();
    model_->reset();
    lstMessages_->setColumnWidth(0, fontMetrics().averageCharWidth() * 18);
    if (model_->rowCount({}) > 0) {
        lstMessages_->setCurrentIndex(model_->index(read ? model_->rowOf(*read) : 0, 0));
    } else {
        txtErreurs_->clear();
    }
}

void frmErreur::showPath() {
    lblFichier_->setText(toQt(utf8FromPath(context_.session.facts().FichierTYP)));
    lblFichier_->setVisible(!lblFichier_->text().isEmpty());
}

void frmErreur::go(int row) {
    const JournalRow& wanted = model_->row(row);
    if (wanted.line > 0) {
        if (goToLine) {
            goToLine(wanted.line);
        }
    } else if (const ObjectRef object = list_.objectOf(wanted);
               object.kind != ObjectKind::none && goToObject) {
        goToObject(object);
    }
}

}  // namespace quillmark
