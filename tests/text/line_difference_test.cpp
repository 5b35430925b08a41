#include "text/line_difference.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillmark {
namespace {

std::u16string raw(std::u16string text) {
    std::replace(text.begin(), text.end(), u'/', u'\u2029');
    return text;
}

TEST(LineDifference, KeepsWholeLinesAtBothEnds) {
    const struct {
        std::u16string before, after;
        std::size_t head, tail;
    } cases[] = {
        {u"a/b/c", u"a/b/c", 5, 0}, {u"a/b/c", u"a/x/c", 2, 1}, {u"a/bb/c", u"a/bc/c", 2, 1},
        {u"", u"a/b", 0, 0},        {u"a/b", u"", 0, 0},        {u"a/b/", u"a/b/c/", 4, 0},
        {u"a/a/a", u"a/a", 2, 1},   {u"xa/b", u"a/b", 0, 1},    {u"a", u"aa", 0, 0},
        {u"a/b/c/d", u"a/d", 2, 1},
    };
    for (const auto& one : cases) {
        const std::u16string before = raw(one.before);
        const std::u16string after = raw(one.after);
        const LineDifference difference(before, after);
        EXPECT_EQ(difference.head(), one.head);
        EXPECT_EQ(difference.tail(), one.tail);
    }
}

TEST(LineDifference, FollowsLines) {
    const struct {
        std::u16string before, after;
        int line, expected;
    } cases[] = {
        {u"a/b/c/d/e", u"a/b/c/d/e", 4, 4},
        {u"a/b/c/d/e", u"a/c/d/e", 0, 0},
        {u"a/b/c/d/e", u"a/c/d/e", 3, 2},            // behind what is gone
        {u"a/b/c/d/e", u"a/e", 2, 1},                // gone itself
        {u"a/b/c/d/e/f", u"x/a/b/c!/d/e/f!", 2, 3},  // two places differ, this lies between
        {u"a/b/c/d/e/f", u"x/b/c/d/e/f!/g", 2, 2},
        {u"", u"a/b/c", 0, 0},  // the cursor of an empty text
        {u"a/b/c/d", u"x/y", 3, 1},
    };
    for (const auto& one : cases) {
        const std::u16string before = raw(one.before);
        const std::u16string after = raw(one.after);
        EXPECT_EQ(LineDifference(before, after).follow(one.line), one.expected) << one.line;
    }
}

}  // namespace
}  // namespace quillmark
