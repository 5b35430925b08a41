#include "views/language_choice.h"

#include <gtest/gtest.h>

#include "support/test_files.h"

namespace quillmark {
namespace {

struct LanguageChoiceTest : public ::testing::Test {
    LanguageChoiceTest() {
        std::filesystem::create_directories(folder.path() / "own" / "Langues");
        connection = changed.connect([this] { ++changes; });
    }
    void addFile(const std::string& name, const std::string& content) const {
        testing::writePlain(folder.path() / "own" / "Langues" / name, testing::bytesOf(content));
    }
    LanguageChoice choice() { return {folders, settings, traduction, changed}; }

    testing::TemporaryFolder folder;
    Folders folders{testing::dataFolder(), folder.path() / "own", folder.path()};
    MemorySettings store;
    Settings settings{store};
    Traduction traduction;
    Signal<> changed;
    Connection connection;
    int changes = 0;
};

TEST_F(LanguageChoiceTest, AnotherLanguageIsStoredReadAndTold) {
    addFile("Latin.lng", "[Langues]\nlblLangues=Linguae\n");
    const auto title = [this] {
        return traduction.Trad("Langues", "Langues disponibles", "lblLangues");
    };
    LanguageChoice shown = choice();
    EXPECT_EQ(shown.lstLang(),
              (std::vector<std::string>{"Français", "Deutsch", "English", "Español", "Italiano",
                                        "Latin", "Nederlands", "Polski"}));
    EXPECT_EQ(shown.currentRow(), 0);
    shown.cmdOK_Click(0);
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(settings.isStored(keys::kLangue));

    shown.cmdOK_Click(5);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(settings.text(keys::kLangue), "Latin");
    EXPECT_EQ(title(), "Linguae");
    EXPECT_EQ(choice().currentRow(), 5);

    choice().cmdOK_Click(0);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(settings.text(keys::kLangue), "Francais");
    EXPECT_EQ(title(), "Langues disponibles");
}

TEST_F(LanguageChoiceTest, AFileNamedFrancaisIsOneMoreRowForFrench) {
    addFile("Francais.lng", "[Langues]\nlblLangues=Langues\n");
    traduction = Traduction(folders.dataFolders(), "Francais");
    EXPECT_EQ(choice().lstLang().at(4), "Francais");
    EXPECT_EQ(choice().currentRow(), 0);
    choice().cmdOK_Click(4);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(traduction.Trad("Langues", "Langues disponibles", "lblLangues"), "Langues");
}

TEST_F(LanguageChoiceTest, TheFirstStartOffersALanguageTheUserReads) {
    const Folders nothing{folder.path(), folder.path() / "own", folder.path()};
    struct Case {
        std::vector<std::string> preferred;
        std::string offered;
    };
    for (const Case& c : std::vector<Case>{
             {{"de-CH", "fr-CH"}, "Deutsch"},
             {{"fr-CH", "de-CH"}, ""},
             {{"sv-SE", "EN_us.UTF-8"}, "English"},
             {{"es"}, "Español"},
             {{"fry"}, ""},
             {{"C"}, ""},
             {{}, ""},
         }) {
        const auto offer = languageOffer(c.preferred, folders);
        EXPECT_EQ(offer ? offer->Langue : "", c.offered);
        EXPECT_FALSE(languageOffer(c.preferred, nothing).has_value());
    }
    addFile("polski.lng", "[Langues]\nmsgProposerLangue=Po polsku\n");
    EXPECT_EQ(languageOffer({"pl"}, folders)->Langue, "polski");
    EXPECT_EQ(languageOffer({"pl"}, folders)->line, "Po polsku");
}

}  // namespace
}  // namespace quillmark
