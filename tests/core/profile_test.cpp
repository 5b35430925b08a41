#include "core/profile.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/translation.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using testing::bytesOf;
using testing::TemporaryFolder;
using testing::writePlain;
using namespace std::string_literals;

TEST(Profile, ReadsTheClassicForm) {
    const Profile profile = Profile::parse(
        "\xEF\xBB\xBFlost=before any section\n"
        "[Main]\r\n"
        "; mnuCommented=no\r\n"
        "  mnuFichier \t=  &Fichier  \r\n"
        "MNUFICHIER=second\r"
        "no equals sign\n"
        "empty=\n"
        "quoted=\"  kept  \"\n"
        "single='one'\n"
        "half=\"open\n"
        "equals=a=b\n"
        "accent=Été à l'œuvre\n"
        "[ Editer ]\n"
        "Type=Art\n"
        "[main]\n"
        "late=repeated section");
    const std::vector<std::pair<const char*, const char*>> expected{
        {"mnuFichier", "&Fichier"}, {"MnuFichier", "&Fichier"},  {"empty", ""},
        {"quoted", "  kept  "},     {"single", "one"},           {"half", "\"open"},
        {"equals", "a=b"},          {"accent", "Été à l'œuvre"},
    };
    for (const auto& [key, value] : expected) {
        EXPECT_EQ(profile.find("MAIN", key), value) << key;
    }
    for (const char* absent :
         {"lost", "; mnuCommented", "mnuCommented", "late", "no equals sign"}) {
        EXPECT_EQ(profile.find("Main", absent), std::nullopt) << absent;
    }
    EXPECT_EQ(profile.find("Editer", "type"), "Art");
    EXPECT_EQ(profile.keys("main"),
              (std::vector<std::string>{"mnuFichier", "empty", "quoted", "single", "half", "equals",
                                        "accent"}));
    EXPECT_TRUE(profile.keys("none").empty());
}

TEST(Profile, ValuesEndAtTheBufferOrTheFirstZeroAndNeverWithinACharacter) {
    std::string accents;
    for (int i = 0; i < 1100; ++i) {
        accents += "é";
    }
    const Profile profile = Profile::parse("[s]\nplain=" + std::string(2000, 'x') +
                                           "\naccents=" + accents + "\nzero=before\0after\n"s);
    EXPECT_EQ(profile.find("s", "plain"), std::string(1023, 'x'));
    EXPECT_EQ(profile.find("s", "accents"), accents.substr(0, 2 * 1023));
    EXPECT_EQ(profile.find("s", "zero"), "before");
}

TEST(Profile, TextThatIsNotUtf8IsWindows1252) {
    struct Case {
        std::string bytes;
        std::string text;
    };
    for (const Case& c : std::vector<Case>{
             {"\xC9t\xE9 \x80 \x9C \x81", "Été € œ \xC2\x81"},
             {"\xC0\xAF", "À¯"},              // overlong
             {"\xED\xA0\x80", "í\xC2\xA0€"},  // a surrogate
             {"\xC3", "Ã"},                   // cut short
             {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
         }) {
        EXPECT_EQ(Profile::parse("[s]\nk=" + c.bytes).find("s", "k"), c.text);
    }
}

TEST(Translation, LanguageFilesAreFoundByNameAndFallBackToTheDefault) {
    const TemporaryFolder folder;
    const auto languages = folder.path() / "Langues";
    EXPECT_TRUE(ListeLangues(folder.path()).empty());
    EXPECT_FALSE(LangueExiste(folder.path(), "English"));
    std::filesystem::create_directories(languages / "folder.lng");
    writePlain(languages / "English.lng", bytesOf("[Main]\nmnuNouveau=&New\nempty=\n"));
    writePlain(languages / "Deutsch.LNG", bytesOf("[Main]\nmnuNouveau=Gr\xFC\xDF\n"));
    writePlain(languages / "notes.txt", bytesOf("[Main]\n"));
    writePlain(folder.path() / "outside.lng", bytesOf("[Main]\nmnuNouveau=outside\n"));

    auto names = ListeLangues(folder.path());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Deutsch", "English"}));

    const auto word = [&](const char* langue) {
        return Traduction(folder.path(), langue).Trad("Main", "&Nouveau", "mnuNouveau");
    };
    EXPECT_EQ(word("English"), "&New");
    EXPECT_EQ(word("english"), "&New");
    EXPECT_EQ(word("Deutsch"), "Grüß");
    for (const char* absent : {"Francais", "", "../outside", "notes"}) {
        EXPECT_FALSE(LangueExiste(folder.path(), absent)) << absent;
        EXPECT_EQ(word(absent), "&Nouveau") << absent;
    }
    const Traduction english(folder.path(), "English");
    EXPECT_EQ(english.Trad("Main", "défaut", "empty"), "");
    EXPECT_EQ(english.Trad("Editer", "défaut", "mnuNouveau"), "défaut");
    EXPECT_EQ(Traduction().Trad("Main", "défaut", "mnuNouveau"), "défaut");
    EXPECT_EQ(LireProfil("Main", "mnuNouveau", "//", languages / "English.lng"), "&New");
    EXPECT_EQ(LireProfil("Main", "mnuNouveau", "//", languages / "none.lng"), "//");
}

}  // namespace
}  // namespace quillmark
