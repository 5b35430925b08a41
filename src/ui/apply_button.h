// A button as wide as the pane, tinted so that it is seen without shouting.
#pragma once

#include <QAbstractButton>

namespace quillmark {

class ApplyButton : public QAbstractButton {
  public:
    explicit ApplyButton(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillmark
