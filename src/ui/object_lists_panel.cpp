#include "ui/object_lists_panel.h"

#include <QButtonGroup>
#include <QLineEdit>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/object_list_texts.h"
#include "ui/qt_text.h"

namespace quillmark {

ObjectListsPanel::ObjectListsPanel(AppContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      sections_(new QButtonGroup(this)),
      stack_(new QStackedWidget) {
    setObjectName(QStringLiteral("fraListes"));
    build();
    connect(sections_, &QButtonGroup::idClicked, this,
            guarded("fraListe_Click", "frmMain", [this](int section) {
                openList(kLists.at(static_cast<std::size_t>(section)));
            }));
    connections_.push_back(
        context.session.documentChanged.connect([this](const Change& change) { follow(change); }));
    connections_.push_back(context.session.factsChanged.connect([this] {
        for (ObjectListPage* page : pages_) {
            page->boutons_edition();
        }
    }));
    connections_.push_back(context.current.changed.connect([this] { showCurrent(); }));
    connections_.push_back(context.languageChanged.connect([this] { retranslate(); }));
    retranslate();
    openList(ListKind::Polygone);
}

void ObjectListsPanel::build() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* captions = new QVBoxLayout;
    captions->setSpacing(1);
    for (const ListKind kind : kLists) {
        const int section = static_cast<int>(kind);
        auto* caption = new QToolButton;
        caption->setObjectName(QLatin1String(listNames(kind).section));
        caption->setIcon(icon(listNames(kind).drawing));
        caption->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        caption->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        caption->setAutoRaise(true);
        caption->setCheckable(true);
        caption->setFocusPolicy(Qt::StrongFocus);
        sections_->addButton(caption, section);
        captions->addWidget(caption);
        auto* page = new ObjectListPage(context_, kind);
        pages_.at(static_cast<std::size_t>(section)) = page;
        stack_->addWidget(page);
    }
    column->addLayout(captions);
    column->addWidget(stack_, 1);
}

void ObjectListsPanel::setEditors(const ObjectEditors& editors) {
    for (ObjectListPage* page : pages_) {
        page->setEditors(editors);
    }
}

void ObjectListsPanel::readSettings() {
    for (ObjectListPage* page : pages_) {
        page->readSettings();
    }
}

void ObjectListsPanel::openList(ListKind kind) {
    const int section = static_cast<int>(kind);
    sections_->button(section)->setChecked(true);
    stack_->setCurrentIndex(section);
}

ListKind ObjectListsPanel::openedList() const {
    return kLists.at(static_cast<std::size_t>(stack_->currentIndex()));
}

void ObjectListsPanel::focusFilter() {
    QLineEdit& filter = pages_.at(static_cast<std::size_t>(openedList()))->filter();
    filter.setFocus(Qt::ShortcutFocusReason);
    filter.selectAll();
}

void ObjectListsPanel::retranslate() {
    setAccessibleName(toQt(context_.traduction.Trad("Main", "Listes des objets", "fraListes")));
    for (ObjectListPage* page : pages_) {
        page->retranslate();
    }
    showCaptions();
}

void ObjectListsPanel::showCaptions() {
    for (const ListKind kind : kLists) {
        const QString caption =
            toQt(listCaption(context_.session.document(), kind, context_.traduction));
        const auto section = static_cast<std::size_t>(kind);
        sections_->button(static_cast<int>(kind))->setText(withoutAccessKey(caption));
        pages_.at(section)->view().setAccessibleName(caption);
    }
}

void ObjectListsPanel::follow(const Change& change) {
    const int CodePage = context_.session.document().CodePage;
    // Of the header only the code page shows here: labels read differently.
    if (change.what == Change::What::header && CodePage == shownCodePage_) {
        return;
    }
    shownCodePage_ = CodePage;
    for (ObjectListPage* page : pages_) {
        page->refresh(change);
    }
    showCaptions();
    if (change.what == Change::What::replaced && change.select.kind == ObjectKind::none) {
        for (const ListKind kind :
             {ListKind::Polygone, ListKind::Polyline, ListKind::POI, ListKind::ExtraPOI}) {
            if (entryCount(context_.session.document(), kind) > 0) {
                openList(kind);
                break;
            }
        }
    }
}

void ObjectListsPanel::showCurrent() {
    for (ObjectListPage* page : pages_) {
        page->showCurrent();
    }
    // A list that was opened by hand stays open while another object isn't selected.
    const ObjectRef object = context_.current.object();
    if (std::exchange(shown_, object) != object && object.kind != ObjectKind::none) {
        openList(listOf(context_.current.kind()));
    }
}

}  // namespace quillmark
