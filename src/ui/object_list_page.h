// One section of the lists: filter, buttons and rows of one kind.
#pragma once

#include <QWidget>

#include "ui/app_context.h"
#include "ui/object_list_view.h"
#include "views/thumbnails.h"

class QLineEdit;
class QToolButton;

namespace quillmark {

// The windows that edit what the lists show. A command without its window is disabled.
struct ObjectEditors {
    std::function<void(const ObjectRef&)> edit;
    std::function<void(ObjectKind)> create;
    std::function<void()> drawOrder;
};

class ObjectListPage : public QWidget {
  public:
    ObjectListPage(AppContext& context, ListKind kind);

    void setEditors(const ObjectEditors& editors);
    void retranslate();
    // The document is as it is now; `change` says what may have become different.
    void refresh(const Change& change);
    // Colours and languages of the settings.
    void readSettings();
    // Selects the row of the current object, or none.
    void showCurrent();
    void boutons_edition();

    [[nodiscard]] QLineEdit& filter() { return *filter_; }
    [[nodiscard]] ObjectListView& view() { return *view_; }

  private:
    void build();
    void connectControls();
    [[nodiscard]] QPixmap picture(int index);
    void selectionMoved();
    void cmdModifier_Click();
    void cmdNouveau_Click();
    void cmdSupprimer_Click();
    void showTip(QToolButton& button, const std::string& text, bool available) const;

    AppContext& context_;
    ListKind kind_;
    ObjectEditors editors_;
    ObjectListModel model_;
    Thumbnails thumbnails_;
    QLineEdit* filter_;
    QToolButton* create_;
    QToolButton* edit_;
    QToolButton* remove_;
    ObjectListView* view_;
    bool following_ = false;  // rows or selection change, and not by the user's hand
};

}  // namespace quillmark
