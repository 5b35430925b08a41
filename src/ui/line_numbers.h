// The column of line numbers beside the text.
#pragma once

#include <QWidget>

namespace quillmark {

class TextEditor;

class LineNumbers : public QWidget {
  public:
    explicit LineNumbers(TextEditor& editor);
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    TextEditor& editor_;
};

}  // namespace quillmark
