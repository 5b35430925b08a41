#include "core/profile.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(profile.sections(), (std::vector<std::string>{"Main", "Editer"}));
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

TEST(Profile, FilesWithAByteOrderMarkAreRead) {
    const std::string text = "[s]\nk=Été \xF0\x9F\x98\x80 \xEF\xBF\xBD!";
    // The unit before "!" is half a surrogate pair, and a byte is left over at the end.
    const std::u16string units = u"[S]\r\nK=\"Été \U0001F600 \xD800!\"\r\n";
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char16_t unit : units) {
        const auto high = static_cast<char>(unit >> 8U);
        const auto low = static_cast<char>(unit);
        little += {low, high};
        big += {high, low};
    }
    const std::string expected = *Profile::parse(text).find("s", "k");
    for (const std::string& file : {little, big, little + "x", "\xEF\xBB\xBF" + text}) {
        EXPECT_EQ(Profile::parse(file).find("s", "k"), expected);
    }
}

TEST(Translation, LanguageFilesAreFoundByNameAndFallBackToTheDefault) {
    const TemporaryFolder folder;
    const std::vector<std::filesystem::path> both{folder.path() / "own", folder.path() / "program"};
    const auto own = both[0] / "Langues";
    const auto installed = both[1] / "Langues";
    EXPECT_TRUE(ListeLangues(both).empty());
    EXPECT_FALSE(LangueExiste(both, "English"));
    std::filesystem::create_directories(own);
    std::filesystem::create_directories(installed / "folder.lng");
    writePlain(installed / "English.lng", bytesOf("[Main]\nmnuNouveau=&New\nempty=\n"));
    writePlain(installed / "Deutsch.LNG", bytesOf("[Main]\nmnuNouveau=Gr\xFC\xDF\n"));
    writePlain(installed / "ESPAÑOL.lng", bytesOf("[Main]\nmnuNouveau=Nuevo\n"));
    writePlain(installed / "notes.txt", bytesOf("[Main]\n"));
    for (const char* odd : {"../outside.lng", "a..b.lng", "a\\b.lng", ".lng"}) {
        writePlain(installed / odd, bytesOf("[Main]\nmnuNouveau=outside\n"));
    }
    writePlain(own / "deutsch.lng", bytesOf("[Main]\nmnuNouveau=Eigenes\n"));

    EXPECT_EQ(ListeLangues(both), (std::vector<std::string>{"deutsch", "English", "ESPAÑOL"}));
    EXPECT_EQ(ListeLangues({both[1]}), (std::vector<std::string>{"Deutsch", "English", "ESPAÑOL"}));

    const auto word = [&](const char* langue) {
        return Traduction(both, langue).Trad("Main", "&Nouveau", "mnuNouveau");
    };
    EXPECT_EQ(word("English"), "&New");
    EXPECT_EQ(word("english"), "&New");
    EXPECT_EQ(word("español"), "Nuevo");
    EXPECT_EQ(word("Deutsch"), "Eigenes");
    EXPECT_EQ(Traduction({both[1]}, "deutsch").Trad("Main", "", "mnuNouveau"), "Grüß");
    for (const char* absent : {"Francais", "", "../outside", "outside", "a..b", "a\\b", "notes"}) {
        EXPECT_FALSE(LangueExiste(both, absent)) << absent;
        EXPECT_EQ(word(absent), "&Nouveau") << absent;
    }
    const Traduction english(both, "English");
    EXPECT_EQ(Traduction(both, "english").Langue(), "English");
    EXPECT_EQ(Traduction(both, "nowhere").Langue(), kFrancais);
    std::filesystem::remove(installed / "English.lng");
    EXPECT_EQ(english.Trad("Main", "défaut", "empty"), "");
    EXPECT_EQ(english.Trad("Editer", "défaut", "mnuNouveau"), "défaut");
    EXPECT_EQ(english.Trad("Main", " blanks ", "absent"), " blanks ");
    EXPECT_EQ(Traduction().Trad("Main", "défaut", "mnuNouveau"), "défaut");
    EXPECT_EQ(LireProfil("Main", "mnuNouveau", "//", own / "deutsch.lng"), "Eigenes");
    EXPECT_EQ(LireProfil("Main", "mnuNouveau", "//", own / "none.lng"), "//");
}

}  // namespace
}  // namespace quillmark
