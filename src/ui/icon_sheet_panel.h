// The icon sheet with its tabs and its zoom.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "core/signal.h"
#include "ui/app_context.h"

class QLabel;
class QMenu;
class QSlider;

namespace quillmark {

class IconSheetView;
class KindTabs;

class IconSheetPanel : public QWidget {
  public:
    explicit IconSheetPanel(AppContext& context, QWidget* parent = nullptr);

    // What a right click on an object opens.
    void setObjectMenu(QMenu* menu);
    std::function<void(const ObjectRef&)> editRequested;
    // The preferences, or the ground of pictures, changed.
    void readSettings();
    void focusSheet();

  private:
    void build();
    void connectControls();
    void retranslate();
    void refresh();
    void tabIcones_Click(ObjectKind kind);
    void showKind(ObjectKind kind);
    void showTab();
    void followCurrent();

    AppContext& context_;
    KindTabs* kinds_;
    QLabel* lblZoom_;
    QSlider* sldZoomIcons_;
    IconSheetView* picAfficheTout_;
    QMenu* menu_ = nullptr;
    ObjectKind kind_ = ObjectKind::Polygone;
    std::vector<Connection> connections_;
};

}  // namespace quillmark
