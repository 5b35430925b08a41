// One of the five lists as a table: the row's text and its name.
#pragma once

#include <QAbstractTableModel>
#include <QPixmap>
#include <functional>

#include "views/object_list.h"

namespace quillmark {

class ObjectListModel : public QAbstractTableModel {
  public:
    // The index of an Active Routing line's colour, invalid without one.
    static constexpr int kActivityRole = Qt::UserRole;
    // Columns: the row's text, its name, the object by day and night.
    static constexpr int kPictureColumn = 2;

    // Makes the picture of an object, asked for when its row is first seen.
    std::function<QPixmap(int index)> picture;

    ObjectListModel(ListKind kind, RowSources sources) : list_(kind, std::move(sources)) {}

    [[nodiscard]] const ObjectList& list() const { return list_; }
    // Rows are changed in place, so that views keep their scroll position.
    void refresh(int LangueLabels);
    void refreshEntry(int index);
    void setFilter(const QString& text);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    void showRows();

    ObjectList list_;
    int shownRows_ = 0;  // what views were told
};

}  // namespace quillmark
