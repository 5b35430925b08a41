// Squares of colours in rows, of which one is pointed at.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "editors/colour_chooser_state.h"

namespace quillmark {

class SwatchGrid : public QWidget {
  public:
    struct Shape {
        int columns = 1;
        QSize cell;  // logical pixels
        int gap = 0;
    };
    // Frames and the mark of the focus go beyond their swatches.
    static constexpr int kMargin = 3;

    SwatchGrid(const char* objectName, Shape shape);

    void setSwatches(std::vector<ChooserSwatch> swatches);
    // Puts a frame around one, -1 for none; swatches with a border have one anyway.
    void setFramed(int index);
    void setColumns(int columns);
    // Swatches in front of this one only show.
    void setFirstChoice(int index);

    // Without it the swatches only show.
    std::function<void(int index)> chosen;
    // Arrow keys, when somebody else knows what they do. Otherwise they walk, and Space chooses.
    std::function<void(int columns, int rows)> moved;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    [[nodiscard]] int count() const { return static_cast<int>(swatches_.size()); }
    [[nodiscard]] QRect cellAt(int index) const;
    [[nodiscard]] int indexAt(QPoint point) const;  // -1: none
    void walk(int columns, int rows);
    void describe();

    Shape shape_;
    std::vector<ChooserSwatch> swatches_;
    int framed_ = -1;
    int hovered_ = -1;
    int firstChoice_ = 0;
    int current_ = 0;  // of the keyboard
};

// Around colours, so that those of the window's ground have an end.
[[nodiscard]] QColor swatchEdge(const QPalette& palette);
// The way that an arrow key points, one step; nothing for other keys.
[[nodiscard]] std::optional<QPoint> arrowOf(const QKeyEvent& event);

// Two rings that show on every colour: white on the edge of `cell`, black just around it.
void drawFrame(QPainter& painter, const QRect& cell);

}  // namespace quillmark
