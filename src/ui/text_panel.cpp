#include "ui/text_panel.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/apply_button.h"
#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"
#include "ui/text_editor.h"

namespace quillmark {
namespace {

constexpr const char* kWindow = "frmMain";
const QKeySequence kApply(Qt::CTRL | Qt::Key_Return);

QToolButton* switchButton(const char* name, QButtonGroup& group) {
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    group.addButton(button);
    return button;
}

}  // namespace

TextPanel::TextPanel(QWidget* parent, AppContext& context)
    : QWidget(parent),
      context_(context),
      bar_(new QWidget),
      editor_(new TextEditor),
      cmdAppliquerModif_(new ApplyButton),
      foot_(new QVBoxLayout),
      backupTimer_(new QTimer(this)) {
    setObjectName(QStringLiteral("fraTexte"));
    build();
    connectSwitch();
    connectEditor();
    connections_.push_back(context.languageChanged.connect([this] { retranslate(); }));
    connections_.push_back(context.session.factsChanged.connect([this] { showState(); }));
    connections_.push_back(context.current.changed.connect([this] {
        showState();
        markCurrent();
    }));
    connections_.push_back(context.session.documentChanged.connect([this](const Change& change) {
        if (change.what == Change::What::replaced) {
            editor_->forgetPlace();
        }
    }));
    retranslate();
    showState();
    context.session.setTextPane(this);
}

TextPanel::~TextPanel() {
    context_.session.setTextPane(nullptr);
}

void TextPanel::build() {
    auto* group = new QButtonGroup(this);
    cmdvoirtxt_ = switchButton("cmdvoirtxt", *group);
    cmdvoirtxt_->setIcon(icon("text"));
    cmdvoirobjet_ = switchButton("cmdvoirobjet", *group);
    cmdvoirobjet_->setIcon(icon("object"));
    bar_->setObjectName(QStringLiteral("fraVue"));
    auto* row = new QHBoxLayout(bar_);
    row->setContentsMargins(6, 4, 6, 4);
    row->setSpacing(4);
    row->addWidget(cmdvoirtxt_);
    row->addWidget(cmdvoirobjet_);
    row->addStretch();

    cmdAppliquerModif_->setObjectName(QStringLiteral("cmdAppliquerModif"));
    cmdAppliquerModif_->setIcon(icon("apply"));
    cmdAppliquerModif_->hide();
    // Below the text, which so stays where it is when the first key is typed.
    foot_->addWidget(cmdAppliquerModif_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addWidget(editor_, 1);
    column->addLayout(foot_);
    setFocusProxy(editor_);
    setTabOrder(cmdvoirtxt_, cmdvoirobjet_);
    setTabOrder(cmdvoirobjet_, editor_);
    setTabOrder(editor_, cmdAppliquerModif_);
}

void TextPanel::connectSwitch() {
    const auto settled = [this](bool /*done*/) { showState(); };
    connect(cmdvoirtxt_, &QToolButton::clicked, this,
            guarded("cmdvoirtxt_Click", kWindow,
                    [this, settled] { context_.session.showWholeDocument(settled); }));
    connect(cmdvoirobjet_, &QToolButton::clicked, this,
            guarded("cmdvoirobjet_Click", kWindow, [this, settled] {
                context_.session.showObject(context_.current.object(), settled);
            }));
    connect(cmdAppliquerModif_, &QAbstractButton::clicked, this,
            guarded("cmdAppliquerModif_Click", kWindow,
                    [this] { context_.session.cmdAppliquerModif_Click(); }));
    auto* apply = new QShortcut(kApply, this);
    apply->setContext(Qt::WidgetWithChildrenShortcut);
    connect(apply, &QShortcut::activated, cmdAppliquerModif_, &QAbstractButton::click);
}

void TextPanel::connectEditor() {
    connect(editor_, &TextEditor::editedChanged, this,
            guarded("BoxVisualisation_Change", kWindow, [this] {
                showState();
                context_.session.factsChanged();  // title and changed mark follow
            }));
    connect(editor_, &TextEditor::undoBeyond, this,
            guarded("mnuAnnuler_Click", kWindow, [this] { context_.session.undo(); }));
    connect(editor_, &TextEditor::redoBeyond, this,
            guarded("mnuRetablir_Click", kWindow, [this] { context_.session.redo(); }));
    backupTimer_->setObjectName(QStringLiteral("tmrSauvegarde"));
    backupTimer_->setSingleShot(true);
    connect(editor_, &TextEditor::typed, backupTimer_,
            [this] { backupTimer_->start(pace_.wait(std::chrono::steady_clock::now())); });
    connect(backupTimer_, &QTimer::timeout, this,
            guarded("sauvegardertexte", kWindow, [this] { keepBackup(); }));
}

void TextPanel::keepBackup() {
    if (editor_->isEdited()) {
        pace_.kept(std::chrono::steady_clock::now());
        context_.session.sauvegardertexte();
    }
}

void TextPanel::retranslate() {
    const Traduction& t = context_.traduction;
    cmdvoirtxt_->setText(toQt(t.Trad("Main", "Document", "cmdvoirtxt")));
    cmdvoirobjet_->setText(toQt(t.Trad("Main", "Objet", "cmdvoirobjet")));
    cmdvoirtxt_->setToolTip(
        plainTip(toQt(t.Trad("Main", "Afficher tout le document", "cmdvoirtxtTip"))));
    cmdvoirobjet_->setToolTip(plainTip(
        toQt(t.Trad("Main", "Afficher seulement l'objet sélectionné", "cmdvoirobjetTip"))));
    cmdAppliquerModif_->setText(
        toQt(t.Trad("Main", "Cliquer ici pour appliquer les modifications", "cmdAppliquerModif")));
    cmdAppliquerModif_->setToolTip(kApply.toString(QKeySequence::NativeText));
    editor_->setAccessibleName(toQt(t.Trad("Main", "Texte du document", "BoxVisualisation")));
    bar_->setAccessibleName(toQt(t.Trad("Main", "Vue du texte", "fraVue")));
    for (QAbstractButton* button :
         std::initializer_list<QAbstractButton*>{cmdvoirtxt_, cmdvoirobjet_, cmdAppliquerModif_}) {
        button->setAccessibleName(button->text());
    }
}

void TextPanel::showState() {
    const Session& session = context_.session;
    const bool whole = session.textView().wholeDocument;
    const bool open = session.facts().hasDocument && !session.busy();
    cmdvoirtxt_->setChecked(whole);
    cmdvoirobjet_->setChecked(!whole);
    cmdvoirtxt_->setEnabled(open);
    cmdvoirobjet_->setEnabled(open && (!whole || context_.current.kind() != ObjectKind::none));
    if (session.busy() && cmdAppliquerModif_->hasFocus()) {
        editor_->setFocus();  // rather than the next control, which would get what is typed
    }
    cmdAppliquerModif_->setEnabled(!session.busy());
    // What is typed while the text is being applied would be lost.
    editor_->setEditable(editable_ && !session.busy());
    if (cmdAppliquerModif_->hasFocus() && !editor_->isEdited()) {
        editor_->setFocus();
    }
    cmdAppliquerModif_->setVisible(editor_->isEdited());
    layout()
        ->itemAt(layout()->count() - 1)
        ->layout()
        ->setContentsMargins(editor_->isEdited() ? QMargins(6, 6, 6, 6) : QMargins());
}

void TextPanel::setEditMenu(QMenu* menu) {
    editor_->setEditMenu(menu);
}

void TextPanel::goToLine(int line) {
    revealRequested();
    editor_->goToLine(line - 1);
}

std::string TextPanel::text() const {
    return editor_->content();
}

bool TextPanel::isEdited() const {
    return editor_->isEdited();
}

bool TextPanel::isShown() const {
    return isVisibleTo(window());
}

// Another object begins at its top; the same one stays where it was, as does one that was typed.
void TextPanel::followSubject() {
    const TextView& view = context_.session.textView();
    const bool typed = editor_->isEdited();
    if (!typed &&
        (view.wholeDocument != wholeDocument_ || (!view.wholeDocument && view.shown != subject_))) {
        editor_->forgetPlace();
    }
    wholeDocument_ = view.wholeDocument;
    subject_ = view.shown;
}

void TextPanel::show(const std::string& text) {
    followSubject();
    editor_->setContent(text);
    markCurrent();
}

// The section of the selected object, wherever it stands by now; the text isn't scrolled.
void TextPanel::markCurrent() {
    if (context_.session.textView().stale) {
        return;  // another text is about to come
    }
    if (const TextSection* section =
            context_.session.textView().sectionOf(context_.current.object())) {
        editor_->markLines(section->firstLine, section->lastLine);
    } else {
        editor_->unmark();
    }
}

void TextPanel::rebase(const std::string& text) {
    editor_->rebase(text);
    markCurrent();
}

void TextPanel::unmark() {
    editor_->unmark();
}

void TextPanel::showLines(int firstLine, int lastLine) {
    editor_->showLines(firstLine, lastLine);
}

void TextPanel::setEditable(bool editable) {
    editable_ = editable;
    editor_->setEditable(editable && !context_.session.busy());
}

void TextPanel::bringIntoSight() {
    revealRequested();
    editor_->finishFilling();
}

std::u16string TextPanel::content() const {
    return editor_->rawContent().toStdU16String();
}

TextRange TextPanel::selection() const {
    return editor_->selectedRange();
}

void TextPanel::select(const TextRange& range) {
    editor_->finishFilling();
    editor_->selectRange(range);
}

bool TextPanel::isEditable() const {
    return !editor_->isReadOnly();
}

void TextPanel::replace(const std::vector<TextRange>& ranges, const std::u16string& by) {
    editor_->replaceRanges(ranges, QString::fromStdU16String(by));
}

void TextPanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        guarded("fraTexte_Show", kWindow, [this] {
            context_.session.refreshText();
            // Without another choice meanwhile, caret and selection stay where they were.
            if (context_.session.textView().wholeDocument &&
                context_.current.object() != hiddenWith_) {
                context_.session.selectInText(context_.current.object());
            }
        })();
    }
}

void TextPanel::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        hiddenWith_ = context_.current.object();
    }
}

}  // namespace quillmark
