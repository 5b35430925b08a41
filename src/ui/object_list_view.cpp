#include "ui/object_list_view.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "paint/qt_image.h"
#include "ui/colour_square.h"
#include "ui/guard.h"
#include "ui/qt_text.h"
#include "views/readable_colour.h"

namespace quillmark {
namespace {

// Draws rows of one height that has room for a small picture of the object.
class ObjectRowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    std::array<Couleur, 6> colours{};
    bool hasActivities = false;  // room for the squares is kept in all rows, so that texts align

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return {size.width(),
                std::max({size.height(), option.fontMetrics.height() * 3 / 2,
                          ObjectListView::kPictureSide + 2 * ObjectListView::kPictureGap})};
    }
    // Colours of pictures mean something, so a selected row doesn't tint them.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (index.column() == ObjectListModel::kPictureColumn) {
            const auto drawn = index.data(Qt::DecorationRole).value<QPixmap>();
            const QSize size = drawn.deviceIndependentSize().toSize();
            painter->drawPixmap(option.rect.x() + ObjectListView::kPictureGap,
                                option.rect.y() + (option.rect.height() - size.height()) / 2,
                                drawn);
        }
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        if (index.column() == ObjectListModel::kPictureColumn) {
            return;
        }
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideRight;
        if (!hasActivities) {
            return;
        }
        if (index.column() == 0) {
            const int side = option->fontMetrics.ascent();
            option->features |= QStyleOptionViewItem::HasDecoration;
            option->decorationSize = QSize(side, side);
        }
        const QVariant activity = index.data(ObjectListModel::kActivityRole);
        if (!activity.isValid()) {
            return;
        }
        const Couleur colour = colours.at(static_cast<std::size_t>(activity.toInt()));
        const Couleur ground = toCouleur(option->palette.color(QPalette::Base).rgb());
        option->palette.setColor(QPalette::Text,
                                 QColor::fromRgb(toQRgb(readableOn(colour, ground))));
        if (index.column() == 0) {
            option->icon = colourSquare(QColor::fromRgb(toQRgb(colour)), option->decorationSize,
                                        option->palette);
        }
    }
};

}  // namespace

ObjectListView::ObjectListView(ObjectListModel& model) : rows_(model) {
    setModel(&model);
    setItemDelegate(new ObjectRowDelegate(this));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setMinimumHeight(2 * fontMetrics().lineSpacing());  // so that a low window can hold it
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(model.list().kind() == ListKind::Draworder ? NoSelection : SingleSelection);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Fixed);
    header()->setSectionResizeMode(1, QHeaderView::Stretch);
    header()->setMinimumSectionSize(0);
    header()->setSectionResizeMode(ObjectListModel::kPictureColumn, QHeaderView::Fixed);
    header()->resizeSection(ObjectListModel::kPictureColumn, 2 * kPictureSide + 3 * kPictureGap);
    header()->moveSection(ObjectListModel::kPictureColumn, 0);
    setColumnHidden(ObjectListModel::kPictureColumn, model.list().kind() == ListKind::Draworder);
}

void ObjectListView::setActivityColours(const std::array<Couleur, 6>& colours) {
    static_cast<ObjectRowDelegate*>(itemDelegate())->colours = colours;
    viewport()->update();
}

void ObjectListView::fitColumns() {
    const ObjectList& list = rows_.list();
    auto* delegate = static_cast<ObjectRowDelegate*>(itemDelegate());
    delegate->hasActivities =
        list.kind() == ListKind::Polyline && list.sources().document.NbPolylinesAR() > 0;
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    const QString widest = toQt(widestRowText(list.sources(), list.kind()));
    const int square = delegate->hasActivities ? fontMetrics().ascent() + 2 * margin : 0;
    header()->resizeSection(
        0, fontMetrics().horizontalAdvance(widest) + square + fontMetrics().averageCharWidth() * 2);
}

void ObjectListView::setNothingFound(const QString& text) {
    nothingFound_ = text;
    viewport()->update();
}

void ObjectListView::keyboardSearch(const QString& typed) {
    const bool pause =
        !sinceTyped_.isValid() || sinceTyped_.hasExpired(QApplication::keyboardInputInterval());
    if (pause && typed.trimmed().isEmpty()) {
        return;  // a blank selects the current row, and begins no name
    }
    typed_ = pause ? typed : typed_ + typed;
    sinceTyped_.start();
    const int here = currentIndex().isValid() ? currentIndex().row() : -1;
    int row = typeAhead(typed_, pause ? here + 1 : here);
    // A character that is repeated goes on to the next row that begins with it.
    if (row < 0 && typed_.count(typed_[0]) == typed_.size()) {
        row = typeAhead(typed_.left(1), here + 1);
    }
    if (row >= 0) {
        setCurrentIndex(rows_.index(row, 0));
    }
}

int ObjectListView::typeAhead(const QString& typed, int from) const {
    return rows_.list().typeAhead(fromQt(typed), from >= 0 && from < rows_.rowCount() ? from : 0);
}

void ObjectListView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QTreeView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(0);
}

bool ObjectListView::selectSomeRow(bool last) {
    if (selectionMode() == NoSelection || selectionModel()->hasSelection() ||
        rows_.rowCount() == 0) {
        return false;
    }
    // With the focus a row becomes the current one that isn't selected yet.
    const int current = std::max(0, currentIndex().row());
    const QModelIndex row = rows_.index(last ? rows_.rowCount() - 1 : current, 0);
    selectionModel()->setCurrentIndex(
        row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return true;
}

void ObjectListView::keyPressEvent(QKeyEvent* event) {
    constexpr std::array<int, 8> kIntoRows{Qt::Key_Down,   Qt::Key_Up,       Qt::Key_Home,
                                           Qt::Key_End,    Qt::Key_PageDown, Qt::Key_PageUp,
                                           Qt::Key_Return, Qt::Key_Enter};
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (std::find(kIntoRows.begin(), kIntoRows.end(), event->key()) != kIntoRows.end() &&
        selectSomeRow(event->key() == Qt::Key_End) && !enter) {
        return;
    }
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const std::function<void()>* asked = nullptr;
    if (plain && enter) {
        asked = &editRequested;
    } else if (plain && event->key() == Qt::Key_Insert) {
        asked = &newRequested;
    } else if (plain && event->key() == Qt::Key_Delete) {
        asked = &deleteRequested;
    }
    if (asked == nullptr) {
        QTreeView::keyPressEvent(event);
    } else if (*asked) {
        (*asked)();
    }
}

void ObjectListView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeView::mouseDoubleClickEvent(event);
    // The row isn't the current one when the user stayed with the object that was selected before.
    const QModelIndex clicked = indexAt(event->position().toPoint());
    const bool chosen = clicked.isValid() && clicked.row() == currentIndex().row();
    if (chosen && event->button() == Qt::LeftButton && editRequested) {
        editRequested();
    }
}

void ObjectListView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (rows_.rowCount() == 0 && rows_.list().isFiltered()) {
        QPainter painter(viewport());
        QColor ink = palette().color(QPalette::Text);
        ink.setAlphaF(0.7F);
        painter.setPen(ink);
        const int margin = fontMetrics().height();
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, nothingFound_);
    }
}

void ObjectListView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitColumns();
    }
}

}  // namespace quillmark
