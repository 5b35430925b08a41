// What stands in the middle while no document does: how to begin.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/translation.h"

class QLabel;
class QAction;
class QToolButton;
class QVBoxLayout;

namespace quillmark {

class WelcomePage : public QWidget {
  public:
    // The buttons are these commands.
    WelcomePage(QAction& create, QAction& open);

    std::function<void(const std::string&)> openRecent;

    void retranslate(const Traduction& traduction);
    void setRecentFiles(const std::vector<std::string>& paths);
    void setCanOpen(bool can);

  private:
    QLabel* hint_;
    QLabel* recentCaption_;
    QVBoxLayout* recent_;
    std::vector<QToolButton*> entries_;
};

}  // namespace quillmark
