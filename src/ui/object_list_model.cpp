#include "ui/object_list_model.h"

#include "ui/qt_text.h"

namespace quillmark {

void ObjectListModel::refresh(int LangueLabels) {
    list_.refresh(LangueLabels);
    showRows();
}

void ObjectListModel::refreshEntry(int index) {
    list_.refreshEntry(index);
    showRows();
}

void ObjectListModel::setFilter(const QString& text) {
    list_.setFilter(fromQt(text));
    showRows();
}

void ObjectListModel::showRows() {
    const int rows = list_.rowCount();
    if (rows < shownRows_) {
        beginRemoveRows({}, rows, shownRows_ - 1);
        shownRows_ = rows;
        endRemoveRows();
    } else if (rows > shownRows_) {
        beginInsertRows({}, shownRows_, rows - 1);
        shownRows_ = rows;
        endInsertRows();
    }
    if (rows > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, kPictureColumn));
    }
}

int ObjectListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows_;
}

int ObjectListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kPictureColumn + 1;
}

QVariant ObjectListModel::data(const QModelIndex& index, int role) const {
    const int entry = list_.indexAt(index.row());
    if (entry < 0) {
        return {};
    }
    if (index.column() == kPictureColumn && role != Qt::ToolTipRole) {
        return role == Qt::DecorationRole && picture ? QVariant(picture(entry)) : QVariant();
    }
    switch (role) {
        case Qt::DisplayRole:
            return toQt(index.column() == 0 ? list_.text(entry) : list_.name(entry));
        case Qt::ToolTipRole:
            return plainTip(toQt(list_.tip(entry)));
        case Qt::AccessibleDescriptionRole:
            return toQt(list_.tip(entry));
        case kActivityRole: {
            const int activity = list_.activity(entry);
            return activity < 0 ? QVariant() : QVariant(activity);
        }
        default:
            return {};
    }
}

}  // namespace quillmark
