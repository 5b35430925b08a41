// The rows of one list on the screen, for mouse and keyboard.
#pragma once

#include <QElapsedTimer>
#include <QTreeView>
#include <array>
#include <functional>

#include "bitmap/colour.h"
#include "ui/object_list_model.h"

namespace quillmark {

class ObjectListView : public QTreeView {
  public:
    // Side of each of the two pictures of a row, in logical pixels, and what lies between them.
    static constexpr int kPictureSide = 20;
    static constexpr int kPictureGap = 3;

    explicit ObjectListView(ObjectListModel& model);

    // What Enter or a double click, Insert and Delete ask for.
    std::function<void()> editRequested;
    std::function<void()> newRequested;
    std::function<void()> deleteRequested;

    // Colours of the six activities.
    void setActivityColours(const std::array<Couleur, 6>& colours);
    // Gives the first column the width that the rows need.
    void fitColumns();
    // Said in the middle of a list that the filter left nothing of.
    void setNothingFound(const QString& text);

    // Where none is: the current one, or the last. True when the selection moved.
    bool selectSomeRow(bool last = false);

    void keyboardSearch(const QString& typed) override;
    [[nodiscard]] int typeAhead(const QString& typed, int from) const;
    // Up and down only: the pictures at the left stay in sight in a narrow list.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    ObjectListModel& rows_;
    QString nothingFound_;
    QString typed_;  // since the last pause
    QElapsedTimer sinceTyped_;
};

}  // namespace quillmark
