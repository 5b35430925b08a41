#include "views/backup_browser.h"

#include "core/files.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

std::string stars(std::size_t count) {
    return std::string(count, '*');
}

TEST(BackupBrowser, WalksFromTheNewestAndStopsAtTheEnds) {
    TextBackups backups;
    const Traduction french;
    BackupBrowser none(backups);
    EXPECT_EQ(none.caption(french), "Aucune sauvegarde");
    EXPECT_FALSE(none.hasPrevious());
    EXPECT_FALSE(none.hasNext());
    EXPECT_EQ(none.text(), "");

    for (const std::string text : {"one", "two", "three"}) {
        backups.add(TextBackups::prepare(text));
    }
    BackupBrowser browser(backups);
    EXPECT_EQ(browser.caption(french), "Dernière sauvegarde au format texte  ( 3/3 )");
    EXPECT_EQ(browser.text(), "three");
    browser.cmdSuivant_Click();
    EXPECT_EQ(browser.text(), "three");
    browser.cmdPrecedent_Click();
    EXPECT_EQ(browser.caption(french), "Sauvegarde au format texte  ( 2/3 )");
    EXPECT_EQ(browser.text(), "two");
    browser.cmdPrecedent_Click();
    EXPECT_FALSE(browser.hasPrevious());
    browser.cmdPrecedent_Click();
    EXPECT_EQ(browser.text(), "one");

    // Texts kept while it is looked at.
    browser.cmdSuivant_Click();
    backups.add(TextBackups::prepare("four"));
    browser.refresh();
    EXPECT_EQ(browser.caption(french), "Sauvegarde au format texte  ( 2/4 )");
    EXPECT_EQ(browser.text(), "two");
    none.refresh();
    EXPECT_EQ(none.text(), "four");
}

TEST(BackupBrowser, ShowsTheFileOfTheEarlierRun) {
    const testing::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "Quillmark.save";
    // Bodies that look like marks and headers, and some that don't fit into one step of reading.
    const std::vector<std::string> bodies{
        "abc",
        "",
        "é\r\n",
        "*",
        stars(80) + "\r\nno header\r\n" + stars(79) + "\r\n",
        std::string((1U << 16U) - 300, 'x') + "\r\n",
        std::string((1U << 17U) + 17, 'y'),
        "\r\n" + stars(81) + "\r\n",
        "end",
    };
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        appendBackup(file, backupBlock("a.typ", "Sauvegarde n°", i, bodies[i]));
    }
    const auto places = listBackups(file);
    ASSERT_EQ(places.size(), bodies.size());
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        EXPECT_EQ(places[i].title, "a.typ Sauvegarde n°" + std::to_string(i));
        EXPECT_TRUE(readBackup(file, places[i]) == bodies[i]) << i;
    }

    TextBackups backups;
    backups.add(TextBackups::prepare("now"));
    BackupBrowser browser(backups);
    browser.showEarlierRun(file, places);
    EXPECT_EQ(browser.caption(Traduction()), "Dernière sauvegarde au format texte  ( 9/9 )");
    EXPECT_EQ(browser.title(), "a.typ Sauvegarde n°8");
    EXPECT_EQ(browser.text(), "end");
    browser.showThisRun();
    EXPECT_EQ(browser.text(), "now");
    EXPECT_EQ(browser.title(), "");
}

TEST(BackupBrowser, CutFilesGiveWhatIsThere) {
    const testing::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "Quillmark.save~";
    const std::string whole =
        backupBlock("a", "n", 0, "first") + backupBlock("a", "n", 1, "second").substr(1);
    const std::vector<std::pair<std::size_t, std::string>> cuts{{0, ""},
                                                                {80, ""},
                                                                {169, ""},
                                                                {170, "|"},
                                                                {173, "fir|"},
                                                                {177, "first**|"},
                                                                {178, "first|"},
                                                                {347, "first||"},
                                                                {355, "first|second**|"},
                                                                {whole.size(), "first|second|"}};
    for (const auto& [length, bodies] : cuts) {
        testing::writePlain(file, testing::bytesOf(whole.substr(0, length)));
        std::string all;
        for (const BackupPlace& place : listBackups(file)) {
            all += readBackup(file, place) + '|';
        }
        EXPECT_EQ(all, bodies) << length;
    }
    EXPECT_EQ(readBackup(file, {"", 1000, 2000}), "");
    EXPECT_THROW((void)listBackups(folder.path() / "gone"), Failure);
}

}  // namespace
}  // namespace quillmark
