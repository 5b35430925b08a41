#include "ui/document_card_panel.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QVBoxLayout>

#include "core/paths.h"
#include "ui/digits_edit.h"
#include "ui/elided_label.h"
#include "ui/frm_fid.h"
#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"
#include "ui/text_button.h"

namespace quillmark {
namespace {

// Styles cut the text of a narrow combo without a sign of it.
class ElidingCombo : public QComboBox {
  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QRect room = style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                   QStyle::SC_ComboBoxEditField, this);
        option.currentText =
            fontMetrics().elidedText(option.currentText, Qt::ElideRight, room.width() - 4);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};

QComboBox* combo(const char* name, QObject* watcher) {
    auto* box = new ElidingCombo;
    box->setObjectName(QLatin1String(name));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(6);
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(watcher);
    return box;
}

QLabel* caption(const char* name, QWidget* buddy) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setBuddy(buddy);
    return label;
}

void showChoice(QComboBox& box, const CardChoice& choice) {
    QStringList items;
    for (const std::string& item : choice.items) {
        items += toQt(item);
    }
    bool same = box.count() == items.size();
    for (int i = 0; same && i < box.count(); ++i) {
        same = box.itemText(i) == items[i];
    }
    if (!same) {
        box.clear();
        box.addItems(items);
        for (int i = 0; i < box.count(); ++i) {
            box.setItemData(i, choice.values.at(static_cast<std::size_t>(i)));
        }
    }
    box.setCurrentIndex(choice.index);
}

}  // namespace

DocumentCardPanel::DocumentCardPanel(AppContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      lblNomTyp_(new ElidedLabel(QStringLiteral("lblNomTyp"))),
      lblDossier_(new ElidedLabel(QStringLiteral("lblDossier"))),
      lblErreurs_(new TextButton(QStringLiteral("lblErreurs"))),
      lblAvertissements_(new TextButton(QStringLiteral("lblAvertissements"))),
      lblDateCreation_(new ElidedLabel(QStringLiteral("lblDateCreation"))),
      lblLongueur_(new ElidedLabel(QStringLiteral("lblLongueur"))),
      lblFID_(new TextButton(QStringLiteral("lblFID"))),
      txtFID_(new DigitsEdit(QStringLiteral("txtFID"))),
      txtProductCode_(new DigitsEdit(QStringLiteral("txtProductCode"))),
      cbbCodepage_(combo("cbbCodepage", this)),
      cbbHeadersize_(combo("cbbHeadersize", this)) {
    setObjectName(QStringLiteral("fraDocument"));
    lblProductCode_ = caption("lblProductCode", txtProductCode_);
    lblCodepage_ = caption("lblCodepage", cbbCodepage_);
    lblHeadersize_ = caption("lblHeadersize", cbbHeadersize_);
    build();
    connectControls();
    connections_.push_back(context.session.documentChanged.connect([this](const Change& change) {
        showState();
        if (change.what == Change::What::replaced && context_.session.facts().isNew) {
            txtFID_->setFocus(Qt::OtherFocusReason);
        }
    }));
    connections_.push_back(context.session.factsChanged.connect([this] { showState(); }));
    connections_.push_back(context.languageChanged.connect([this] { retranslate(); }));
    retranslate();
}

void DocumentCardPanel::build() {
    QFont bold = lblNomTyp_->font();
    bold.setBold(true);
    lblNomTyp_->setFont(bold);
    lblDossier_->setSecondary(true);
    lblDateCreation_->setSecondary(true);
    lblLongueur_->setSecondary(true);
    lblErreurs_->setIcon(icon("error"));
    lblAvertissements_->setIcon(icon("warning"));

    auto* facts = new QHBoxLayout;
    facts->addWidget(lblLongueur_, 1);
    facts->addWidget(lblDateCreation_);
    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(3);
    fields->setColumnStretch(0, 1);
    fields->setColumnStretch(1, 1);
    fields->addWidget(lblFID_, 0, 0, Qt::AlignLeft | Qt::AlignBottom);
    fields->addWidget(lblProductCode_, 0, 1, Qt::AlignBottom);
    fields->addWidget(txtFID_, 1, 0);
    fields->addWidget(txtProductCode_, 1, 1);
    fields->setRowMinimumHeight(2, 4);
    fields->addWidget(lblCodepage_, 3, 0, Qt::AlignBottom);
    fields->addWidget(lblHeadersize_, 3, 1, Qt::AlignBottom);
    fields->addWidget(cbbCodepage_, 4, 0);
    fields->addWidget(cbbHeadersize_, 4, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    column->addWidget(lblNomTyp_);
    column->addWidget(lblDossier_);
    column->addLayout(facts);
    column->addWidget(lblErreurs_);
    column->addWidget(lblAvertissements_);
    column->addSpacing(6);
    column->addLayout(fields);
    setTabOrder(lblFID_, txtFID_);
    setTabOrder(txtFID_, txtProductCode_);
    setTabOrder(txtProductCode_, cbbCodepage_);
    setTabOrder(cbbCodepage_, cbbHeadersize_);
}

void DocumentCardPanel::connectControls() {
    for (const HeaderField field : {HeaderField::FID, HeaderField::ProductCode}) {
        const std::string name = fromQt(edit(field).objectName());
        connect(&edit(field), &QLineEdit::textEdited, this,
                guarded(name + "_Change", "frmMain", [this, field](const QString& text) {
                    context_.session.typeHeaderField(field, fromQt(text));
                    showField(field);
                }));
        edit(field).left = guarded(name + "_LostFocus", "frmMain", [this, field] {
            if (context_.session.facts().hasDocument) {
                context_.session.leaveHeaderField(field);
                showField(field);
            }
        });
    }
    connect(cbbCodepage_, &QComboBox::activated, this,
            guarded("cbbCodepage_Click", "frmMain", [this](int index) {
                context_.session.setCodePage(cbbCodepage_->itemData(index).toInt());
                showState();
            }));
    connect(cbbHeadersize_, &QComboBox::activated, this,
            guarded("cbbHeadersize_Click", "frmMain", [this](int index) {
                context_.session.setHeaderSize(cbbHeadersize_->itemData(index).toInt());
                showState();
            }));
    connect(lblFID_, &TextButton::clicked, this,
            guarded("lblFID_Click", "frmMain", [this] { lblFID_Click(); }));
    for (TextButton* notice : {lblErreurs_, lblAvertissements_}) {
        connect(notice, &TextButton::clicked, this,
                guarded("lblNomTyp_Click", "frmMain", [this] { lblNomTyp_Click(); }));
    }
    lblNomTyp_->installEventFilter(this);
}

DigitsEdit& DocumentCardPanel::edit(HeaderField field) const {
    return field == HeaderField::FID ? *txtFID_ : *txtProductCode_;
}

void DocumentCardPanel::retranslate() {
    const Traduction& t = context_.traduction;
    lblFID_->setText(toQt(t.Trad("Main", "FID", "lblFID")));
    lblProductCode_->setText(toQt(t.Trad("Main", "Product Code", "lblProductCode")));
    lblCodepage_->setText(toQt(t.Trad("Main", "Page de code", "lblCodepage")));
    lblHeadersize_->setText(toQt(t.Trad("Main", "Taille de l'entête", "lblHeadersize")));
    lblFID_->setToolTip(
        plainTip(toQt(t.Trad("Main", "Afficher les cartes de ce FID", "lblFIDTip"))));
    lblFID_->setAccessibleName(lblFID_->text());
    lblFID_->setAccessibleDescription(
        toQt(t.Trad("Main", "Afficher les cartes de ce FID", "lblFIDTip")));
    txtFID_->setAccessibleName(lblFID_->text());
    txtProductCode_->setAccessibleName(lblProductCode_->text());
    cbbCodepage_->setAccessibleName(lblCodepage_->text());
    cbbHeadersize_->setAccessibleName(lblHeadersize_->text());
    setAccessibleName(toQt(t.Trad("Main", "Document", "cmdvoirtxt")));
    showState();
}

void DocumentCardPanel::showState() {
    const bool hasDocument = context_.session.facts().hasDocument;
    const Document& document = context_.session.document();
    showFile();
    showField(HeaderField::FID);
    showField(HeaderField::ProductCode);
    showChoice(*cbbCodepage_, cbbCodepage(document.CodePage));
    showChoice(*cbbHeadersize_, cbbHeadersize(document.TailleEntete, context_.traduction));
    const QString tip = toQt(cbbHeadersizeTip(document.TailleEntete, context_.traduction));
    cbbHeadersize_->setToolTip(hasDocument ? plainTip(tip) : QString());
    for (QWidget* field :
         std::initializer_list<QWidget*>{txtFID_, txtProductCode_, cbbCodepage_, cbbHeadersize_}) {
        field->setEnabled(hasDocument);
    }
}

void DocumentCardPanel::showFile() {
    const Session& session = context_.session;
    const SessionFacts& facts = session.facts();
    const QString path = toQt(utf8FromPath(facts.FichierTYP));
    lblNomTyp_->show(toQt(lblNomTyp(facts, context_.traduction)), path);
    lblDossier_->show(facts.hasDocument ? toQt(facts.DossierFichier()) : QString(), path);
    lblDossier_->setVisible(!path.isEmpty());
    lblDateCreation_->show(facts.hasDocument ? toQt(lblDateCreation(session.document()))
                                             : QString());
    lblLongueur_->show(toQt(lblLongueur(facts, session.showsModified(), context_.traduction)));
    lblErreurs_->setVisible(false);
    lblAvertissements_->setVisible(false);
    const auto notices =
        cardNotices(session.errorCount(), session.warningCount(), context_.traduction);
    for (const CardNotice& notice : notices) {
        TextButton& line = notice.kind == JournalKind::error ? *lblErreurs_ : *lblAvertissements_;
        line.setText(toQt(notice.text));
        line.setAccessibleName(line.text());
        line.setVisible(true);
    }
}

void DocumentCardPanel::showField(HeaderField field) {
    const Document& document = context_.session.document();
    const bool hasDocument = context_.session.facts().hasDocument;
    const std::string& text = field == HeaderField::FID ? document.FID : document.ProductCode;
    edit(field).show(hasDocument ? toQt(text) : QString());
    edit(field).setToolTip(plainTip(toQt(headerFieldTip(field, text))));
    if (field == HeaderField::FID) {
        lblFID_->setEnabled(hasDocument && !text.empty());
    }
}

void DocumentCardPanel::lblFID_Click() {
    const std::string& FID = context_.session.document().FID;
    const Profile mapIds = Profile::load(context_.folders.dataFile("MapId.txt"));
    (new frmFID(this, context_, FID, lstFIDs(FID, mapIds, context_.traduction)))->show();
}

void DocumentCardPanel::lblNomTyp_Click() {
    const bool faults = !lblErreurs_->isHidden() || !lblAvertissements_->isHidden();
    if (faults && journalRequested) {
        journalRequested();
    }
}

bool DocumentCardPanel::eventFilter(QObject* watched, QEvent* event) {
    // Scrolling over the card changes no document.
    auto* box = qobject_cast<QComboBox*>(watched);
    if (box != nullptr && event->type() == QEvent::Wheel && !box->hasFocus()) {
        event->ignore();
        return true;
    }
    if (box != nullptr && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            guarded(fromQt(box->objectName()) + "_LostFocus", "frmMain",
                    [this] { context_.session.endStep(); })();
        }
    }
    if (watched == lblNomTyp_ && event->type() == QEvent::MouseButtonRelease) {
        guarded("lblNomTyp_Click", "frmMain", [this] { lblNomTyp_Click(); })();
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace quillmark
