// Where the cells of the icon sheet lie. Logical pixels; heights of long sheets need 64 bits.
#pragma once

#include <cstdint>

namespace quillmark {

inline constexpr int kScrollStep = 10;  // pixels to a value of the scroll bar

struct SheetRectangle {
    std::int64_t x = 0;
    std::int64_t y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const SheetRectangle&) const = default;
};

enum class SheetMove : std::uint8_t { left, right, up, down, pageUp, pageDown, home, end };

class SheetLayout {
  public:
    SheetLayout() = default;
    // Cells of at least 1 by 1. There is at least one column, in however narrow a window.
    SheetLayout(int count, std::int64_t width, int cellWidth, int cellHeight);

    [[nodiscard]] int count() const { return count_; }
    [[nodiscard]] int columns() const { return columns_; }
    [[nodiscard]] int rows() const;
    [[nodiscard]] int cellWidth() const { return cellWidth_; }
    [[nodiscard]] int cellHeight() const { return cellHeight_; }
    [[nodiscard]] std::int64_t width() const { return std::int64_t{columns_} * cellWidth_; }
    [[nodiscard]] std::int64_t height() const { return std::int64_t{rows()} * cellHeight_; }

    [[nodiscard]] SheetRectangle cell(int index) const;
    // The cell at a place of the sheet; -1 where there is none.
    [[nodiscard]] int hit(std::int64_t x, std::int64_t y) const;
    // Cells that a stretch of the sheet touches: from the first on, up to but without the second.
    struct Range {
        int first = 0;
        int last = 0;
    };
    [[nodiscard]] Range between(std::int64_t top, std::int64_t height) const;

    // --- Scrolling ---
    // Where the sheet's top lies for a value of the scroll bar.
    [[nodiscard]] static std::int64_t top(std::int64_t value) { return -value * kScrollStep; }
    [[nodiscard]] std::int64_t largestValue(std::int64_t viewHeight) const;
    // Whole rows that a page moves by, and values of the scroll bar to a number of rows.
    [[nodiscard]] int pageRows(std::int64_t viewHeight) const;
    [[nodiscard]] std::int64_t valuesOf(int rows) const;
    // The value nearest to `value` that shows the whole cell, or its top.
    [[nodiscard]] std::int64_t valueShowing(int index, std::int64_t value,
                                            std::int64_t viewHeight) const;

    // Where a key leads from a cell; from none (-1) to the first one. -1 on an empty sheet.
    [[nodiscard]] int moved(int index, SheetMove move, std::int64_t viewHeight) const;

  private:
    int count_ = 0;
    int columns_ = 1;
    int cellWidth_ = 1;
    int cellHeight_ = 1;
};

}  // namespace quillmark
