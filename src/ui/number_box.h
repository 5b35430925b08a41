// A spin box for a field of the colour chooser: it takes digits and leaves all other judgement of
// what is typed to whoever it tells.
#pragma once

#include <QAbstractSpinBox>
#include <functional>
#include <string>

namespace quillmark {

class NumberBox : public QAbstractSpinBox {
  public:
    NumberBox(const char* objectName, int maximum);

    // Leaves the cursor alone when the text stands there already.
    void show(const std::string& text);

    std::function<void(const std::string&)> typed;  // by hand or by a step
    std::function<void()> left;

    void stepBy(int steps) override;

  protected:
    [[nodiscard]] QValidator::State validate(QString& text, int& position) const override;
    [[nodiscard]] StepEnabled stepEnabled() const override;
    void focusOutEvent(QFocusEvent* event) override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  private:
    int maximum_;
};

}  // namespace quillmark
