#include "session/start.h"

#include "core/translation.h"
#include "support/test_files.h"
#include "text/backups.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

class StartTest : public ::testing::Test {
  protected:
    StartTest() {
        fs::create_directories(folders_.userData);
        fs::create_directories(folders_.program / "Langues");
        testing::writePlain(folders_.program / "Langues" / "English.lng", {});
    }

    testing::TemporaryFolder folder_;
    Folders folders_{folder_.path() / "program", folder_.path() / "own", folder_.path()};
    MemorySettings store_;
    Settings settings_{store_};
};

TEST_F(StartTest, FirstStartStoresWhatLaterOnesKeep) {
    StartFacts facts = prepareStart(settings_, folders_, true);
    EXPECT_TRUE(facts.firstStart);
    EXPECT_EQ(facts.Langue, kFrancais);
    EXPECT_EQ(store_.read("Paramètres", "Langue"), "Francais");
    EXPECT_EQ(store_.read("Paramètres", "MajAuto"), "0");
    const std::vector<std::string> colours{"255",      "65280",    "16711680",
                                           "16776960", "16711935", "65535"};
    for (std::size_t i = 0; i < colours.size(); ++i) {
        EXPECT_EQ(store_.read("Paramètres", "ActiveRouting_color" + std::to_string(i)), colours[i]);
    }

    store_.write("Paramètres", "ActiveRouting_color0", "unreadable");
    store_.write("Paramètres", "Langue", "English");
    store_.write("Paramètres", "MajAuto", "1");
    facts = prepareStart(settings_, folders_, true);
    EXPECT_FALSE(facts.firstStart);
    EXPECT_EQ(facts.Langue, "English");
    EXPECT_EQ(store_.read("Paramètres", "MajAuto"), "1");
    EXPECT_EQ(store_.read("Paramètres", "ActiveRouting_color0"), "unreadable");

    store_.write("Paramètres", "Langue", "Gone");
    store_.write("Paramètres", "MajAuto", "at times");
    facts = prepareStart(settings_, folders_, true);
    EXPECT_EQ(facts.Langue, kFrancais);
    EXPECT_EQ(store_.read("Paramètres", "Langue"), "Francais");
    EXPECT_EQ(store_.read("Paramètres", "MajAuto"), "0");
}

TEST_F(StartTest, OnlyTheOwnerTouchesTheBackup) {
    const fs::path backup = folders_.backupFile();
    testing::writePlain(backup, testing::bytesOf("work"));
    prepareStart(settings_, folders_, false);
    EXPECT_TRUE(fs::exists(backup));
    EXPECT_FALSE(fs::exists(earlierBackup(backup)));
    prepareStart(settings_, folders_, true);
    EXPECT_FALSE(fs::exists(backup));
    EXPECT_TRUE(fs::exists(earlierBackup(backup)));
}

TEST_F(StartTest, ExitStoresTheBackupsSwitchAndTidiesUp) {
    const fs::path installer = folder_.path() / "Quillmark1.2.3.EXe";
    testing::writePlain(installer, {});
    store_.write("Paramètres", "Sauvegarde automatique", "Faux");
    cleanUpAtExit(settings_, folders_, "v1.2.3");
    EXPECT_EQ(store_.read("Paramètres", "Sauvegarde automatique"), "0");
    EXPECT_FALSE(fs::exists(installer));
}

}  // namespace
}  // namespace quillmark
