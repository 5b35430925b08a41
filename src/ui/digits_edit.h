// A field for a small whole number.
#pragma once

#include <QLineEdit>
#include <functional>

namespace quillmark {

class DigitsEdit : public QLineEdit {
  public:
    explicit DigitsEdit(const QString& objectName);

    // The user is done with the field: Enter, Tab, or the focus goes to another control of the
    // window. Not when the window is left or a menu opens.
    std::function<void()> left;

    // Shows a text as it is, digits or not.
    void show(const QString& text);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    QString shown_;
};

}  // namespace quillmark
