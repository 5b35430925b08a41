// A line of text that gives way: what doesn't fit is left out in the middle and told by the tip.
#pragma once

#include <QLabel>

namespace quillmark {

class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(const QString& objectName);

    // Text from files, never read as markup. The tip is the text itself unless another is given.
    void show(const QString& text, const QString& tip = {});
    // Quieter than the text around it.
    void setSecondary(bool secondary) { secondary_ = secondary; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool secondary_ = false;
};

}  // namespace quillmark
