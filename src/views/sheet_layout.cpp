#include "views/sheet_layout.h"

#include <algorithm>
#include <limits>

namespace quillmark {
namespace {

std::int64_t roundedUp(std::int64_t value, std::int64_t step) {
    return (value + step - 1) / step;
}

}  // namespace

SheetLayout::SheetLayout(int count, std::int64_t width, int cellWidth, int cellHeight)
    : count_(std::max(0, count)),
      cellWidth_(std::max(1, cellWidth)),
      cellHeight_(std::max(1, cellHeight)) {
    columns_ = static_cast<int>(
        std::clamp<std::int64_t>(width / cellWidth_, 1, std::numeric_limits<int>::max()));
}

int SheetLayout::rows() const {
    return static_cast<int>(roundedUp(count_, columns_));
}

SheetRectangle SheetLayout::cell(int index) const {
    return {std::int64_t{index % columns_} * cellWidth_,
            std::int64_t{index / columns_} * cellHeight_, cellWidth_, cellHeight_};
}

int SheetLayout::hit(std::int64_t x, std::int64_t y) const {
    if (x < 0 || y < 0 || x >= width() || y >= height()) {
        return -1;
    }
    const std::int64_t index = y / cellHeight_ * columns_ + x / cellWidth_;
    return index < count_ ? static_cast<int>(index) : -1;
}

SheetLayout::Range SheetLayout::between(std::int64_t top, std::int64_t height) const {
    const auto firstOfRow = [this](std::int64_t row) {
        const std::int64_t inside = std::clamp<std::int64_t>(row, 0, rows());
        return static_cast<int>(std::min<std::int64_t>(inside * columns_, count_));
    };
    if (height <= 0) {
        return {};
    }
    return {firstOfRow(std::max<std::int64_t>(0, top) / cellHeight_),
            firstOfRow(roundedUp(std::max<std::int64_t>(0, top + height), cellHeight_))};
}

std::int64_t SheetLayout::largestValue(std::int64_t viewHeight) const {
    return roundedUp(std::max<std::int64_t>(0, height() - viewHeight), kScrollStep);
}

int SheetLayout::pageRows(std::int64_t viewHeight) const {
    return static_cast<int>(
        std::clamp<std::int64_t>(viewHeight / cellHeight_, 1, std::max(1, rows())));
}

std::int64_t SheetLayout::valuesOf(int rows) const {
    return roundedUp(std::int64_t{rows} * cellHeight_, kScrollStep);
}

std::int64_t SheetLayout::valueShowing(int index, std::int64_t value,
                                       std::int64_t viewHeight) const {
    if (index < 0 || index >= count_) {
        return value;
    }
    const SheetRectangle place = cell(index);
    // The lowest value that shows the bottom, and the highest that shows the top.
    const std::int64_t bottom =
        roundedUp(std::max<std::int64_t>(0, place.y + place.height - viewHeight), kScrollStep);
    const std::int64_t highest = place.y / kScrollStep;
    return std::min(std::max(value, bottom), highest);
}

int SheetLayout::moved(int index, SheetMove move, std::int64_t viewHeight) const {
    if (count_ == 0) {
        return -1;
    }
    const int last = count_ - 1;
    if (move == SheetMove::home || (index < 0 && move != SheetMove::end)) {
        return 0;
    }
    // Up and down stay in the column; below its last cell they end on the last one of all.
    const auto byRows = [&](std::int64_t rowCount) {
        const int row = index / columns_;
        const auto target =
            static_cast<int>(std::clamp<std::int64_t>(row + rowCount, 0, rows() - 1));
        return static_cast<int>(
            std::min<std::int64_t>(index + std::int64_t{target - row} * columns_, last));
    };
    switch (move) {
        case SheetMove::left:
            return std::max(0, index - 1);
        case SheetMove::right:
            return std::min(last, index + 1);
        case SheetMove::up:
            return byRows(-1);
        case SheetMove::down:
            return byRows(1);
        case SheetMove::pageUp:
            return byRows(-pageRows(viewHeight));
        case SheetMove::pageDown:
            return byRows(pageRows(viewHeight));
        default:
            return last;
    }
}

}  // namespace quillmark
