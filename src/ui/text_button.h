// A button that looks like the text around it: underlined, with or without an icon, its text
// wrapped to the width.
#pragma once

#include <QAbstractButton>

namespace quillmark {

class TextButton : public QAbstractButton {
  public:
    explicit TextButton(const QString& objectName);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] int iconRoom() const;
};

}  // namespace quillmark
