#include "views/text_search.h"

#include <gtest/gtest.h>

#include "support/scripted_dialogues.h"

namespace quillmark {
namespace {

struct FakeText : SearchedText {
    std::u16string text;
    TextRange selected;
    bool editable = true;
    int shown = 0;
    int steps = 0;

    void bringIntoSight() override { ++shown; }
    std::u16string content() const override { return text; }
    TextRange selection() const override { return selected; }
    void select(const TextRange& range) override { selected = range; }
    bool isEditable() const override { return editable; }
    void replace(const std::vector<TextRange>& ranges, const std::u16string& by) override {
        for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
            text.replace(range->start, range->length, by);
        }
        selected = {ranges.back().start + by.size(), 0};
        ++steps;
    }
};

struct TextSearchTest : ::testing::Test {
    FakeText text;
    testing::ScriptedDialogues dialogues;
    Traduction french;
    TextSearch search{text, dialogues, french};

    void next(const TextRange& expected) {
        search.cmdSuivant_Click();
        EXPECT_EQ(text.selected, expected);
    }
};

const std::string kQuestion =
    "Impossible de trouver  \"aa\"\n\nReprendre la recherche depuis le début du fichier?";

TEST_F(TextSearchTest, NextFindsOverlappingMatchesThenAsks) {
    text.text = u"aaa";
    text.selected = {2, 1};
    search.Text1_Change("aa");
    next({0, 2});
    next({1, 2});
    dialogues.answers = {Answer::no};
    next({1, 2});
    ASSERT_EQ(dialogues.shown.size(), 1U);
    EXPECT_EQ(dialogues.shown[0].message, kQuestion);
    EXPECT_EQ(buttonsOf(dialogues.shown[0].style), MessageStyle::yesNo);
    dialogues.answers = {Answer::yes};
    next({0, 2});
    // The same text goes on, another one begins at the top.
    search.Text1_Change("aa");
    next({1, 2});
    search.Text1_Change("a");
    next({0, 1});
    EXPECT_EQ(text.shown, 6) << "over the icon sheet the text is shown first";
}

TEST_F(TextSearchTest, TellsOnceWhenARestartFindsNothing) {
    text.text = u"abc";
    search.Text1_Change("aa");
    dialogues.answers = {Answer::yes};
    search.cmdSuivant_Click();
    ASSERT_EQ(dialogues.shown.size(), 2U);
    EXPECT_EQ(dialogues.shown[0].message, kQuestion);
    EXPECT_EQ(dialogues.shown[1].message, "Impossible de trouver  \"aa\"");
    EXPECT_EQ(buttonsOf(dialogues.shown[1].style), MessageStyle::ok);
}

TEST_F(TextSearchTest, ReplacesOnlyASelectionThatMatches) {
    text.text = u"Aaaa";
    search.state = {"", "b", true, false};
    search.Text1_Change("a");
    search.cmdRemplacer_Click();  // nothing is selected: finds
    EXPECT_EQ(text.text, u"Aaaa");
    EXPECT_EQ(text.selected, (TextRange{1, 1}));
    search.cmdRemplacer_Click();
    EXPECT_EQ(text.text, u"Abaa");
    EXPECT_EQ(text.selected, (TextRange{2, 0}));
    next({2, 1});  // the neighbour isn't skipped
    text.selected = {0, 1};
    search.cmdRemplacer_Click();  // "A" is none under these options
    EXPECT_EQ(text.text, u"Abaa");
    EXPECT_EQ(text.selected, (TextRange{2, 1}));
    text.editable = false;
    search.cmdRemplacer_Click();
    search.cmdRemplacerTout_Click();
    EXPECT_EQ(text.text, u"Abaa");
}

TEST_F(TextSearchTest, ReplacesAllInOneStep) {
    const struct {
        std::u16string before;
        std::string searched, by;
        std::u16string after;
        std::string message;
    } cases[] = {
        {u"aaaa", "a", "b", u"bbbb", "4 remplacements effectués"},
        {u"aaaa", "a", "aa", u"aaaaaaaa", "4 remplacements effectués"},
        {u"aaa", "aa", "b", u"ba", "1 remplacements effectués"},
        {u"aaa", "x", "y", u"aaa", "0 remplacements effectués"},
    };
    for (const auto& one : cases) {
        text.text = one.before;
        text.selected = {1, 1};  // it begins at the top wherever the cursor stands
        text.steps = 0;
        search.state = {one.searched, one.by, false, false};
        search.cmdRemplacerTout_Click();
        EXPECT_EQ(text.text, one.after);
        EXPECT_EQ(text.steps, one.before == one.after ? 0 : 1);
        EXPECT_EQ(dialogues.shown.back().message, one.message);
        EXPECT_EQ(dialogues.shown.back().titre, "Terminé");
    }
}

TEST_F(TextSearchTest, OpensWithASelectionOfOneLine) {
    text.text = u"typ\u2029typ";
    search.state.Text1 = "old";
    for (const TextRange range : {TextRange{0, 0}, TextRange{0, 5}}) {
        text.selected = range;
        search.open();
        EXPECT_EQ(search.state.Text1, "old");
    }
    text.selected = {0, 3};
    search.open();
    EXPECT_EQ(search.state.Text1, "typ");
    next({4, 3});
    search.Text1_Change("");
    search.cmdSuivant_Click();
    search.cmdRemplacer_Click();
    search.cmdRemplacerTout_Click();
    EXPECT_TRUE(dialogues.shown.empty());
}

}  // namespace
}  // namespace quillmark
