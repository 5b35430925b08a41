// Tabs of the kinds of objects. Where their names don't find room, each shows its drawing instead.
#pragma once

#include <QIcon>
#include <QTabBar>
#include <vector>

namespace quillmark {

class KindTabs : public QTabBar {
  public:
    // At most one tab a drawing, in this order.
    explicit KindTabs(const std::vector<QIcon>& drawings);

    void setCaption(int tab, const QString& name, int count);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Kind {
        QIcon drawing;
        QString name;
        QString count;
    };
    // Names and counts, or drawings and counts.
    void arrange();
    void showNames(bool names);

    std::vector<Kind> tabs_;
};

}  // namespace quillmark
