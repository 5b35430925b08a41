// The preview of the selected object, day above night.
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <vector>

#include "core/signal.h"
#include "ui/app_context.h"
#include "views/preview_pane.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QScrollArea;
class QSlider;
class QToolButton;

namespace quillmark {

class PreviewPanel : public QWidget {
  public:
    explicit PreviewPanel(AppContext& context, QWidget* parent = nullptr);

    // Ground and transparency changed, which the other pictures of the window share.
    std::function<void()> picturesChanged;

  protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void build();
    void connectControls();
    void retranslate();
    // Only when it is seen.
    void refresh();
    void stepMember(int by);

    AppContext& context_;
    PreviewPane pane_;
    QButtonGroup* optApercu_;
    QScrollArea* scroll_;
    std::array<QLabel*, 2> captions_{};  // day, night
    std::array<QLabel*, 2> panes_{};
    QLabel* lblZoom_;
    QSlider* sldZoom_;
    QWidget* zoom_;
    QComboBox* cbbFond_;
    QLabel* lblFond_;
    QCheckBox* chkTransparence_;
    QWidget* members_;
    QToolButton* cmdPrecedent_;
    QToolButton* cmdSuivant_;
    QLabel* lblMembre_;
    std::vector<Connection> connections_;
};

}  // namespace quillmark
