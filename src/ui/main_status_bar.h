// The line at the foot of the window: what was told last, the document, its faults, running work.
#pragma once

#include <QStatusBar>
#include <QTimer>
#include <functional>
#include <string>

#include "core/translation.h"

class QLabel;
class QProgressBar;
class QToolButton;

namespace quillmark {

class MainStatusBar : public QStatusBar {
  public:
    MainStatusBar();

    std::function<void()> openJournal;
    std::function<void()> cancelWork;

    void retranslate(const Traduction& traduction);
    // One line that goes after a while; an offer stays, and a click on it does something.
    void tell(const std::string& line);
    void offer(const std::string& line, std::function<void()> accepted);
    void showDocument(const std::string& state);
    void showFaults(int errors, int warnings);

    void workStarted(const std::string& label, bool cancellable);
    void workProgressed(double fraction);
    void workEnded();

  private:
    QLabel* line_;
    QToolButton* offer_;
    QLabel* document_;
    QToolButton* faults_;
    QLabel* work_;
    QProgressBar* progress_;
    QToolButton* cancel_;
    QTimer fading_;
    // Work shorter than this isn't shown: a bar that flashes up only disturbs.
    QTimer appearing_;
    std::string errorWord_;
    std::string warningWord_;
    int errors_ = 0;
    int warnings_ = 0;
};

}  // namespace quillmark
