// The five lists of the document: all captions in sight, one list open below them.
#pragma once

#include <QWidget>
#include <array>

#include "ui/object_list_page.h"

class QButtonGroup;
class QStackedWidget;
class QToolButton;

namespace quillmark {

class ObjectListsPanel : public QWidget {
  public:
    explicit ObjectListsPanel(AppContext& context, QWidget* parent = nullptr);

    void setEditors(const ObjectEditors& editors);
    // The preferences changed.
    void readSettings();
    void openList(ListKind kind);
    [[nodiscard]] ListKind openedList() const;
    void focusFilter();

  private:
    void build();
    void retranslate();
    void follow(const Change& change);
    void showCaptions();
    void showCurrent();

    AppContext& context_;
    QButtonGroup* sections_;
    QStackedWidget* stack_;
    std::array<ObjectListPage*, kLists.size()> pages_{};
    ObjectRef shown_;
    int shownCodePage_ = 0;
    std::vector<Connection> connections_;
};

}  // namespace quillmark
