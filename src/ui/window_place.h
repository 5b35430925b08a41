// Size, place and state of the main window, from the settings and back to them.
#pragma once

#include <QObject>
#include <functional>

#include "core/settings_table.h"
#include "views/window_geometry.h"

class QWidget;

namespace quillmark {

// Puts the window in its place and keeps that up to date until `store`.
class WindowPlace : public QObject {
  public:
    WindowPlace(QWidget& window, Settings& settings);

    // Shows the window; `painted` is called from the event loop once it has been seen.
    void show(std::function<void()> painted);
    void store();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void wasPainted();

    QWidget& window_;
    Settings& settings_;
    WindowAtExit last_;
    bool closed_ = false;
    std::function<void()> painted_;
};

}  // namespace quillmark
