// Replaces a range of a text document, a large one in steps between which the window lives.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTextCursor>
#include <QTimer>
#include <functional>

namespace quillmark {

class TextFiller {
  public:
    // `done` is called when the text stands there, at once for a short one.
    TextFiller(QTextDocument& document, std::function<void()> done);

    // The characters from `start` to `end` become those of `text`, which is raw, from `start` to
    // `textEnd`. Ends older work where it is. Nothing else may change the document while this is
    // active.
    void replace(int start, int end, const QString& text, qsizetype textEnd);
    [[nodiscard]] bool isActive() const { return active_; }
    void stop();
    // Does the rest at once.
    void finish();

  private:
    void work(bool all);
    void step();
    [[nodiscard]] bool isDone() const { return remove_ == 0 && put_ == textEnd_; }

    std::function<void()> done_;
    QTimer timer_;
    QTextCursor cursor_;
    QString text_;
    qsizetype put_ = 0;  // where the rest of the text begins
    qsizetype textEnd_ = 0;
    int remove_ = 0;  // characters behind the cursor that are to go
    bool active_ = false;
};

}  // namespace quillmark
