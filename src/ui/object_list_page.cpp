#include "ui/object_list_page.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QVBoxLayout>

#include "bitmap/system_colours.h"
#include "paint/qt_image.h"
#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/object_list_texts.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

QToolButton* commandButton(const char* drawing, const QString& name) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setIcon(icon(drawing));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

// From the filter the arrow keys lead into the rows.
class FilterEdit : public QLineEdit {
  public:
    std::function<void()> down;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Down && down) {
            down();
        } else if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
            clear();
        } else {
            QLineEdit::keyPressEvent(event);
        }
    }
};

}  // namespace

ObjectListPage::ObjectListPage(AppContext& context, ListKind kind)
    : context_(context),
      kind_(kind),
      model_(kind, {context.session.document(), context.traduction,
                    [&context]() -> const Profile& { return context.session.types(); }}),
      thumbnails_(context.session.document()),
      view_(new ObjectListView(model_)) {
    model_.picture = [this](int index) { return picture(index); };
    build();
    connectControls();
    readSettings();
}

void ObjectListPage::build() {
    const ListNames& names = listNames(kind_);
    auto* filter = new FilterEdit;
    filter->setAcceptDrops(false);  // files dropped there are the window's
    filter->down = [this] {
        view_->setFocus(Qt::TabFocusReason);
        view_->selectSomeRow();
    };
    filter_ = filter;
    filter_->setObjectName(QLatin1String("txtFiltre") + QLatin1String(names.kind));
    filter_->setClearButtonEnabled(true);
    filter_->addAction(icon("find"), QLineEdit::LeadingPosition);
    const QString kind = QLatin1String(names.kind);
    create_ = commandButton("add", QLatin1String("cmdNouveau") + kind);
    edit_ = commandButton(kind_ == ListKind::Draworder ? "order" : "edit",
                          kind_ == ListKind::Draworder ? QStringLiteral("cmdModifierDraworder")
                                                       : QLatin1String("cmdModifier") + kind);
    remove_ = commandButton("delete", QLatin1String("cmdSupprimer") + kind);
    view_->setObjectName(QLatin1String(names.list));

    auto* head = new QHBoxLayout;
    head->setSpacing(2);
    head->addWidget(filter_, 1);
    head->addSpacing(4);
    head->addWidget(create_);
    head->addWidget(edit_);
    head->addWidget(remove_);
    if (kind_ == ListKind::Draworder) {
        create_->hide();
        remove_->hide();
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(head);
    column->addWidget(view_, 1);
}

void ObjectListPage::connectControls() {
    connect(filter_, &QLineEdit::textChanged, this,
            guarded("txtFiltre_Change", "frmMain", [this](const QString& text) {
                {
                    const QScopedValueRollback following(following_, true);
                    model_.setFilter(text);
                }
                showCurrent();
                if (!view_->currentIndex().isValid()) {
                    view_->scrollToTop();
                }
            }));
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            guarded("ListClick", "frmMain", [this] { selectionMoved(); }));
    const auto clicked = [this](QToolButton* button, auto handler) {
        connect(button, &QToolButton::clicked, this, handler);
    };
    const auto onClick = [](const QToolButton& button, auto handler) {
        return guarded(fromQt(button.objectName()) + "_Click", "frmMain", handler);
    };
    const auto edit = onClick(*edit_, [this] { cmdModifier_Click(); });
    const auto create = onClick(*create_, [this] { cmdNouveau_Click(); });
    const auto remove = onClick(*remove_, [this] { cmdSupprimer_Click(); });
    clicked(edit_, edit);
    clicked(create_, create);
    clicked(remove_, remove);
    view_->editRequested = edit;
    view_->newRequested = create;
    view_->deleteRequested = remove;
}

QPixmap ObjectListPage::picture(int index) {
    // The window may have gone to a screen of another scale.
    ThumbnailShape shape = thumbnails_.shape();
    if (std::exchange(shape.ratio, devicePixelRatioF()) != devicePixelRatioF()) {
        thumbnails_.setShape(shape);
    }
    const auto thumbnail = thumbnails_.of({objectKind(kind_), index, 0});
    const double ratio = thumbnails_.shape().ratio;
    const int side = ObjectListView::kPictureSide;
    const int step = side + ObjectListView::kPictureGap;
    QPixmap both(QSizeF((step + side) * ratio, side * ratio).toSize());
    both.setDevicePixelRatio(ratio);
    both.fill(Qt::transparent);
    QPainter painter(&both);
    for (const bool night : {false, true}) {
        QImage one = toQImage(night ? thumbnail->night : thumbnail->day);
        one.setDevicePixelRatio(ratio);
        painter.drawImage(QPointF(night ? step : 0, 0), one);
    }
    return both;
}

void ObjectListPage::setEditors(const ObjectEditors& editors) {
    editors_ = editors;
    boutons_edition();
}

void ObjectListPage::readSettings() {
    std::array<Couleur, 6> colours{};
    for (std::size_t k = 0; k < colours.size(); ++k) {
        colours[k] = ResoudreCouleur(context_.settings.number(keys::kActiveRoutingColor[k]));
    }
    view_->setActivityColours(colours);
    thumbnails_.setShape({ObjectListView::kPictureSide, devicePixelRatioF(),
                          static_cast<Ground>(context_.settings.number(keys::kFond)),
                          context_.settings.boolean(keys::kTransparence)});
    refresh({});
}

void ObjectListPage::retranslate() {
    filter_->setPlaceholderText(toQt(filterHint(context_.traduction)));
    filter_->setToolTip(toQt(filterTip(context_.traduction)));
    filter_->setAccessibleName(filter_->toolTip());
    view_->setNothingFound(toQt(nothingFoundText(context_.traduction)));
    refresh({});
}

void ObjectListPage::refresh(const Change& change) {
    const bool order = kind_ == ListKind::Draworder;
    const bool modified = change.what == Change::What::modified;
    const bool elsewhere = order ? modified && change.object.kind != ObjectKind::Polygone
                                 : (modified && change.object.kind != objectKind(kind_)) ||
                                       change.what == Change::What::drawOrder;
    if (elsewhere) {
        return;
    }
    {
        const QScopedValueRollback following(following_, true);
        if (change.what == Change::What::replaced) {
            filter_->clear();
            view_->scrollToTop();
        }
        if (modified && !order) {
            model_.refreshEntry(change.object.index);
        } else {
            model_.refresh(context_.settings.number(keys::kLangueLabels));
        }
        view_->fitColumns();
    }
    showCurrent();
}

void ObjectListPage::showCurrent() {
    const ObjectRef& object = context_.current.object();
    const bool own = object.kind != ObjectKind::none && object.kind == objectKind(kind_);
    const int row = own ? model_.list().rowOf(object.index) : -1;
    {
        const QScopedValueRollback following(following_, true);
        if (row >= 0 && row < model_.rowCount()) {
            const QModelIndex index = model_.index(row, 0);
            const bool moved = view_->currentIndex().row() != row;
            view_->selectionModel()->setCurrentIndex(
                index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            if (moved) {
                view_->scrollTo(index);
            }
        } else if (kind_ != ListKind::Draworder) {
            view_->selectionModel()->clear();
        }
    }
    boutons_edition();
}

void ObjectListPage::selectionMoved() {
    if (following_) {
        return;
    }
    const QModelIndexList selected = view_->selectionModel()->selectedRows();
    const int index = selected.isEmpty() ? -1 : model_.list().indexAt(selected.first().row());
    if (index < 0) {
        // A click doesn't unselect an object: what is shown beside the list is still this one.
        showCurrent();
        return;
    }
    context_.current.choose({objectKind(kind_), index, 0});
}

void ObjectListPage::boutons_edition() {
    const bool free = context_.session.facts().hasDocument && !context_.session.busy();
    // Commands never mean an object that the filter hides.
    const bool own = kind_ != ListKind::Draworder && context_.current.kind() == objectKind(kind_) &&
                     model_.list().rowOf(context_.current.object().index) >= 0;
    const bool hasEditor = kind_ == ListKind::Draworder ? static_cast<bool>(editors_.drawOrder)
                                                        : static_cast<bool>(editors_.edit);
    create_->setEnabled(free && editors_.create && kind_ != ListKind::Draworder);
    edit_->setEnabled(free && hasEditor && (own || kind_ == ListKind::Draworder));
    remove_->setEnabled(free && own);
    const ListTips tips = listTips(kind_, context_.traduction);
    showTip(*create_, tips.create, static_cast<bool>(editors_.create));
    showTip(*edit_, tips.edit, hasEditor);
    showTip(*remove_, tips.remove, true);
}

void ObjectListPage::showTip(QToolButton& button, const std::string& text, bool available) const {
    button.setAccessibleName(toQt(text));
    button.setToolTip(
        plainTip(toQt(available ? text : text + "\n" + laterText(context_.traduction))));
}

void ObjectListPage::cmdModifier_Click() {
    if (!edit_->isEnabled()) {
        return;
    }
    if (kind_ == ListKind::Draworder) {
        editors_.drawOrder();
    } else {
        editors_.edit(context_.current.object());
    }
}

void ObjectListPage::cmdNouveau_Click() {
    if (create_->isEnabled()) {
        editors_.create(objectKind(kind_));
    }
}

void ObjectListPage::cmdSupprimer_Click() {
    if (remove_->isEnabled()) {
        context_.session.deleteObject(context_.current.object());
    }
}

}  // namespace quillmark
