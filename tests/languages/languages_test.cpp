#include <gtest/gtest.h>

#include "languages/language_file.h"

namespace quillmark::languages {
namespace {

TEST(SourceTexts, AreFoundHoweverACallIsWritten) {
    const std::string code = R"~~(
// t.Trad("Main", "a comment", "no");
/* t.Trad("Main", "another", "no") */
std::string Trad(std::string_view section, std::string_view defaut,
                 std::string_view cle) const;
const int million = 1'000'000; char quote = '"';
t.Trad("Main", "plain", "k1");
t->Trad( "Main" ,
    "an \"escaped\" word, "  // in between
    "and (more)", "k2" );
f({Trad("Editer", "", "k3")}, g(translate(c, "Main", "by context", "k4")), ",");
painter.translate(3, 4); view->translate(dx, dy);
auto text = R"(t.Trad("Main", "in a text", "no"))";
)~~";
    SourceTexts found;
    collectTexts(code, "a.cpp", found);
    std::string seen;
    for (const SourceText& text : found.texts) {
        seen += text.section + "|" + text.defaut + "|" + text.cle + "|" + text.place + "\n";
    }
    EXPECT_EQ(seen,
              "Main|plain|k1|a.cpp:7\n"
              "Main|an \"escaped\" word, and (more)|k2|a.cpp:8\n"
              "Editer||k3|a.cpp:11\n"
              "Main|by context|k4|a.cpp:11\n");
    EXPECT_EQ(found.faults, std::vector<std::string>());
}

TEST(SourceTexts, ThatHideAreTold) {
    for (const char* code : {
             "t.Trad(section, \"a\", \"k\")",
             "t.Trad(\"Main\", night ? \"a\" : \"b\", \"k\")",
             "t.Trad(\"Main\", \"a\", \"k\" + number)",
             "t.Trad(\"Main\", \"a\")",
             "t.Trad(\"Main\", \"never closed\"",
             "t.Trad(\"Main\", u8\"a\", \"k\")",
             "translate(context, \"Main\", defaut, \"k\")",
             "t.Trad(section, defaut, cle)",
         }) {
        SourceTexts found;
        collectTexts(code, "views/a.cpp", found);
        EXPECT_EQ(found.faults.size(), 1U) << code;
        EXPECT_TRUE(found.texts.empty()) << code;
    }
    SourceTexts handedOn;
    collectTexts("traduction_.Trad(section, defaut, cle)", "typ/read_context.h", handedOn);
    EXPECT_TRUE(handedOn.faults.empty());
}

TEST(SourceTexts, ThatALanguageFileCantHoldAreTold) {
    EXPECT_EQ(faultsOf({{"Main", "a", "key", ""}, {"Main", "other words", "key", ""}}).size(), 0U);
    EXPECT_EQ(faultsOf({{"Main", "a", "key", ""}, {"Main", "b", "KEY", ""}}).size(), 1U);
    EXPECT_EQ(faultsOf({{"Main", "a\nb", "key", ""}}).size(), 1U);
}

TEST(LanguageFile, EachFaultIsTold) {
    const std::vector<SourceText> texts{
        {"Main", "&Ouvrir 2 fichiers...", "mnu", ""},
        {"Main", "Vers ", "msg", ""},
        {"Main", "", "empty", ""},
        {"Main", "Attention", "two", ""},
        {"Main", "Attention !", "two", ""},
    };
    const std::string good = "; a comment\n[Main]\nmnu=&Open 2 files...\nmsg=\"To \"\nempty=\n";
    struct Case {
        std::string content;
        std::size_t lacking;
        std::size_t faults;
    };
    for (const Case& c : std::vector<Case>{
             {good + "two=Warning\n", 0, 0},
             {good + "two=Warning!\n", 0, 0},
             {good, 1, 0},
             {good + "two=\n", 0, 1},
             {good + "two=Warning:\n", 0, 0},
             {good + "two=Warning?\n", 0, 1},
             {good + "two=\"Warning\"\n", 0, 1},  // quotes of no use
             {good + "two=Warning\nmore=x\n", 0, 1},
             {good + "two=Warning\nMSG=\"To \"\n", 0, 1},
             {good + "two=Warning\n[main]\n", 0, 1},
             {good + "two=Warning\nno equals sign\n", 0, 1},
             {good + "[Other]\ntwo=Warning\n", 1, 1},
             {"[Main]\nmnu=&Open 3 files...\nmsg=To\nempty=x\ntwo=Warning\n", 0, 3},
             {"[Main]\nmnu=Open 2 files...\nmsg=\" To\"\nempty=\ntwo=Warning\n", 0, 2},
             {"[Main]\nmnu=&Open && 2 files\nmsg=\"To \"\nempty=\ntwo=Warning\n", 0, 1},
         }) {
        EXPECT_EQ(lackingTexts(c.content, texts).size(), c.lacking) << c.content;
        EXPECT_EQ(faultsOf(c.content, texts).size(), c.faults) << c.content;
    }
}

}  // namespace
}  // namespace quillmark::languages
