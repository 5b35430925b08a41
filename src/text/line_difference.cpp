#include "text/line_difference.h"

#include <algorithm>

namespace quillmark {
namespace {

constexpr char16_t kEnd = u'\u2029';

int lineEnds(std::u16string_view text) {
    return static_cast<int>(std::count(text.begin(), text.end(), kEnd));
}

bool beginsLine(std::u16string_view text, std::size_t at) {
    return at == 0 || text[at - 1] == kEnd;
}

// The first `count` lines, and one more.
std::vector<std::u16string_view> splitLines(std::u16string_view text, int count) {
    std::vector<std::u16string_view> lines;
    lines.reserve(static_cast<std::size_t>(count) + 1);
    for (int i = 0; i <= count; ++i) {
        const std::size_t end = text.find(kEnd);
        lines.push_back(text.substr(0, end));
        if (end == std::u16string_view::npos) {
            break;
        }
        text.remove_prefix(end + 1);
    }
    return lines;
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

// How many of a line and its neighbours are the same.
int LineDifference::alike(const Lines& a, int lineOfA, const Lines& b, int lineOfB) {
    const auto at = [](const Lines& lines, int line) {
        return line >= 0 && line < static_cast<int>(lines.size())
                   ? &lines[static_cast<std::size_t>(line)]
                   : nullptr;
    };
    int same = 0;
    for (int i = -1; i <= 1; ++i) {
        const auto* const one = at(a, lineOfA + i);
        const auto* const other = at(b, lineOfB + i);
        same += one != nullptr && other != nullptr && *one == *other ? 1 : 0;
    }
    return same;
}

int LineDifference::follow(int line) {
    if (line < headLines_ || head_ == before_.size()) {
        return line;
    }
    if (tail_ > 0 && line >= headLines_ + linesBefore_) {
        return line + moved();
    }
    if (middleBefore_.empty()) {
        middleBefore_ = splitLines(before_.substr(head_), linesBefore_);
        middleAfter_ = splitLines(after_.substr(head_), linesAfter_);
    }
    // Within what differs much may be the same: a line keeps its distance to the one end or to
    // the other.
    const int number = line - headLines_;
    if (moved() != 0 && alike(middleBefore_, number, middleAfter_, number + moved()) >
                            alike(middleBefore_, number, middleAfter_, number)) {
        return line + moved();
    }
    return headLines_ + std::min(number, std::max(0, linesAfter_ - (tail_ > 0 ? 1 : 0)));
}

}  // namespace quillmark
