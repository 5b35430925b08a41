#include "text/search.h"

#include <gtest/gtest.h>

#include "text/utf8.h"

namespace quillmark {
namespace {

constexpr SearchOptions kPlain{};
constexpr SearchOptions kWord{true, false};
constexpr SearchOptions kCase{false, true};

// All places where a search that goes on one behind each match stops.
std::vector<std::size_t> places(std::u16string_view text, std::u16string_view searched,
                                const SearchOptions& options) {
    std::vector<std::size_t> found;
    for (auto match = recherche(text, searched, 0, options); match;
         match = recherche(text, searched, match->start + 1, options)) {
        EXPECT_TRUE(isMatch(text, *match, searched, options));
        found.push_back(match->start);
    }
    return found;
}

TEST(Search, FindsByItsOptions) {
    using Places = std::vector<std::size_t>;
    const struct {
        std::u16string_view text, searched;
        SearchOptions options;
        Places expected;
    } cases[] = {
        {u"aaa", u"aa", kPlain, {0, 1}},
        {u"abababac", u"ababac", kPlain, {2}},
        {u"typ.typ _typ typé", u"typ", kWord, {0, 4}},
        {u"typ.typ _typ typé", u"typ", kPlain, {0, 4, 9, 13}},
        {u"7typ typ7 тtyp \"typ\"", u"typ", kWord, {16}},
        {u"𐐀typ", u"typ", kWord, {}},  // a letter outside the first plane
        {u"🙂typ", u"typ", kWord, {2}},
        {u"ab ab ab", u"ab ab", kWord, {0, 3}},
        {u"Été ÉTÉ été", u"été", kPlain, {0, 4, 8}},
        {u"Été ÉTÉ été", u"été", kCase, {8}},
        {u"𐐨 𐐀", u"𐐀", kPlain, {0, 3}},
        {u"ὈΔΥΣΣΕΎΣ", u"ὀδυσσεύς", kPlain, {0}},
        {u"strasse straße", u"STRASSE", kPlain, {0}},  // one character for one
        {u"a\u00A0b a b a\u2028b", u"a\u00A0b", kPlain, {0}},
        {u"🙂", u"\xDE42", kPlain, {}},  // half of a character
        {u"abc", u"", kPlain, {}},
        {u"", u"a", kPlain, {}},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(places(one.text, one.searched, one.options), one.expected)
            << utf16ToUtf8(one.searched) << " in " << utf16ToUtf8(one.text);
    }
    EXPECT_FALSE(recherche(u"abc", u"a", 99, kPlain));
    EXPECT_FALSE(isMatch(u"typé", {0, 3}, u"typ", kWord));
    EXPECT_FALSE(isMatch(u"typ", {0, 2}, u"typ", kPlain));
}

TEST(Search, AllMatchesDontOverlap) {
    EXPECT_EQ(rechercheTout(u"aaa", u"aa", kPlain), (std::vector<TextRange>{{0, 2}}));
    EXPECT_EQ(rechercheTout(u"aAaa", u"a", kCase),
              (std::vector<TextRange>{{0, 1}, {2, 1}, {3, 1}}));
    EXPECT_TRUE(rechercheTout(u"aaaa", u"", kPlain).empty());
}

TEST(Search, TakesTimeByTheLengthOfTheText) {
    // A million times a thousand characters, if each place were tried anew.
    const std::u16string text(1'000'000, u'é');
    const std::u16string searched = std::u16string(1'000, u'É') + u"b";
    EXPECT_FALSE(recherche(text, searched, 0, kPlain));
}

}  // namespace
}  // namespace quillmark
