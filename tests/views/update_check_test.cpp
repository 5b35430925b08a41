#include "views/update_check.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

TEST(UpdateCheck, OnlyAnAboveVersionIsNews) {
    const Version own{1, 2, 3};
    const Traduction french;
    struct Case {
        std::optional<std::string> note;
        std::string text;
        bool silentAtStart;
    };
    const std::string current = "Cette version est la plus récente.";
    const std::string failure = "La recherche d'une nouvelle version n'a pas abouti.";
    const std::vector<Case> cases{
        {"v1.2.4\n", "Une nouvelle version est disponible : v1.2.4", false},
        {"2.0.0", "Une nouvelle version est disponible : v2.0.0", false},
        {"1.2.3", current, true},
        {"0.99.99", current, true},
        {"404 not found", failure, false},
        {std::nullopt, failure, false},
    };
    for (const Case& each : cases) {
        const UpdateCheck check = judgeVersionNote(each.note, own);
        EXPECT_EQ(updateText(check, french), each.text);
        EXPECT_EQ(updateLine(check, french), each.silentAtStart ? "" : each.text);
    }
}

TEST(UpdateCheck, PageIsWhereTheNoteLies) {
    EXPECT_EQ(downloadPage("https://a.example/q/version.txt?x=/y"), "https://a.example/q/");
    EXPECT_EQ(downloadPage("https://a.example/q/"), "https://a.example/q/");
    EXPECT_EQ(downloadPage("https://a.example"), "https://a.example");
}

}  // namespace
}  // namespace quillmark
