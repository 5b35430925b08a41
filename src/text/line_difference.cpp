#include "text/line_difference.h"

#include <algorithm>
#include <array>

namespace quillmark {
namespace {

constexpr char16_t kEnd = u'\u2029';

int lineEnds(std::u16string_view text) {
    return static_cast<int>(std::count(text.begin(), text.end(), kEnd));
}

bool beginsLine(std::u16string_view text, std::size_t at) {
    return at == 0 || text[at - 1] == kEnd;
}

// A line and its neighbours; empty where there are none.
std::array<std::u16string_view, 3> around(std::u16string_view text, int line) {
    std::array<std::u16string_view, 3> lines;
    for (int i = 0; i <= line + 1; ++i) {
        const std::size_t end = text.find(kEnd);
        if (i >= line - 1) {
            lines[static_cast<std::size_t>(i - line + 1)] = text.substr(0, end);
        }
        if (end == std::u16string_view::npos) {
            break;
        }
        text.remove_prefix(end + 1);
    }
    return lines;
}

int alike(std::u16string_view a, int lineOfA, std::u16string_view b, int lineOfB) {
    const auto linesOfA = around(a, lineOfA);
    const auto linesOfB = around(b, lineOfB);
    int same = 0;
    for (std::size_t i = 0; i < linesOfA.size(); ++i) {
        same += linesOfA[i] == linesOfB[i] ? 1 : 0;
    }
    return same;
}

}  // namespace

LineDifference::LineDifference(std::u16string_view before, std::u16string_view after)
    : before_(before), after_(after) {
    const std::size_t shorter = std::min(before.size(), after.size());
    head_ = static_cast<std::size_t>(
        std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(shorter),
                      after.begin())
            .first -
        before.begin());
    if (before.size() == after.size() && head_ == shorter) {
        headLines_ = lineEnds(before);
        return;
    }
    while (!beginsLine(before, head_)) {
        --head_;
    }
    const std::size_t most = shorter - head_;
    while (tail_ < most && before[before.size() - 1 - tail_] == after[after.size() - 1 - tail_]) {
        ++tail_;
    }
    while (tail_ > 0 && !(beginsLine(before, before.size() - tail_) &&
                          beginsLine(after, after.size() - tail_))) {
        --tail_;
    }
    headLines_ = lineEnds(before.substr(0, head_));
    linesBefore_ = lineEnds(before.substr(head_, before.size() - tail_ - head_));
    linesAfter_ = lineEnds(after.substr(head_, after.size() - tail_ - head_));
}

int LineDifference::follow(int line) const {
    if (line < headLines_ || head_ == before_.size()) {
        return line;
    }
    if (tail_ > 0 && line >= headLines_ + linesBefore_) {
        return line + moved();
    }
    // Within what differs much may be the same: a line keeps its distance to the one end or to
    // the other.
    const int number = line - headLines_;
    const std::u16string_view before = before_.substr(head_);
    const std::u16string_view after = after_.substr(head_);
    if (number + moved() >= 0 &&
        alike(before, number, after, number + moved()) > alike(before, number, after, number)) {
        return line + moved();
    }
    return headLines_ + std::min(number, std::max(0, linesAfter_ - (tail_ > 0 ? 1 : 0)));
}

}  // namespace quillmark
