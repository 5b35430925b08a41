// Where two versions of a text differ, in whole lines, and where a line of the one is in the other.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillmark {

// Lines are parted by U+2029.
class LineDifference {
  public:
    // The texts have to outlive this.
    LineDifference(std::u16string_view before, std::u16string_view after);

    // Characters of the lines that both texts begin with, and of those that both end with.
    [[nodiscard]] std::size_t head() const { return head_; }
    [[nodiscard]] std::size_t tail() const { return tail_; }
    // Line ends of `after` less those of `before`.
    [[nodiscard]] int moved() const { return linesAfter_ - linesBefore_; }
    // The line of `after` (from 0) that stands for a line of `before`, as near as can be told.
    [[nodiscard]] int follow(int line);

  private:
    // The lines between head and tail and what follows them, found when first asked for.
    using Lines = std::vector<std::u16string_view>;
    [[nodiscard]] static int alike(const Lines& a, int lineOfA, const Lines& b, int lineOfB);

    std::u16string_view before_;
    std::u16string_view after_;
    std::size_t head_ = 0;
    std::size_t tail_ = 0;
    int headLines_ = 0;
    int linesBefore_ = 0;  // line ends between head and tail
    int linesAfter_ = 0;
    Lines middleBefore_;
    Lines middleAfter_;
};

}  // namespace quillmark
