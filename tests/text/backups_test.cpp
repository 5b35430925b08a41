#include "text/backups.h"

#include <algorithm>
#include <random>

#include "core/files.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

std::string contentOf(const fs::path& file) {
    const Bytes bytes = readFile(file);
    return {bytes.begin(), bytes.end()};
}

std::vector<std::size_t> runsOfStars(const std::string& text) {
    std::vector<std::size_t> runs;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end = std::min(text.find_first_not_of('*', i), text.size());
        if (end > i) {
            runs.push_back(end - i);
        }
        i = end + 1;
    }
    return runs;
}

std::string noise(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string text(size, '\0');
    for (char& c : text) {
        c = static_cast<char>(random() & 0xFFU);
    }
    return text;
}

TEST(Backups, BlocksShareOneStar) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "new" / "Quillmark.save";
    const std::vector<std::pair<std::string, std::size_t>> blocks{
        {"abc", 193}, {"abc", 385}, {"", 574}, {"é\r\n", 767}};
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        appendBackup(file, backupBlock("a.typ", "Sauvegarde n°", i, blocks[i].first));
        EXPECT_EQ(fs::file_size(file), blocks[i].second) << i;
    }
    const std::string content = contentOf(file);
    EXPECT_EQ(runsOfStars(content), (std::vector<std::size_t>{80, 80, 82, 80, 82, 80, 82, 80, 3}));
    EXPECT_EQ(content.substr(80, 25), "\r\na.typ Sauvegarde n°0\r\n");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(Backups, FullFileIsKeptAsTheEarlierOne) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "Quillmark.save";
    appendBackup(file, "first***", 20);
    appendBackup(file, "second***", 20);
    EXPECT_EQ(contentOf(file), "first**second***");
    appendBackup(file, "third***", 20);
    EXPECT_EQ(contentOf(file), "third***");
    EXPECT_EQ(contentOf(earlierBackup(file)), "first**second***");
    // A block beyond the limit is still worth keeping.
    appendBackup(file, std::string(30, 'x'), 20);
    EXPECT_EQ(fs::file_size(file), 30U);
}

TEST(Backups, BlockThatDoesNotFitLeavesTheFileAsItWas) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "Quillmark.save";
    appendBackup(file, "first***");
    {
        const testing::FullDevice full(16);
        EXPECT_THROW(appendBackup(file, std::string(40, '*')), Failure);
    }
    EXPECT_EQ(contentOf(file), "first***");
    EXPECT_THROW(appendBackup(file / "below a file", "x"), Failure);
}

TEST(Backups, CrashedRunIsSetAside) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "Quillmark.save";
    setAsideBackup(file);
    EXPECT_FALSE(fs::exists(earlierBackup(file)));
    testing::writePlain(file, testing::bytesOf("work"));
    testing::writePlain(earlierBackup(file), testing::bytesOf("older"));
    setAsideBackup(file);
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(contentOf(earlierBackup(file)), "work");
    // A run that kept nothing doesn't cost what the one before kept.
    testing::writePlain(file, {});
    setAsideBackup(file);
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(contentOf(earlierBackup(file)), "work");
}

TEST(Backups, ListGivesTextsBackAndKnowsTheNewest) {
    TextBackups backups;
    const std::vector<std::string> texts{"", std::string(1000, 'a'), noise(5000, 1), "é\r\n"};
    for (const std::string& text : texts) {
        const auto prepared = TextBackups::prepare(text);
        EXPECT_FALSE(backups.isNewest(prepared));
        backups.add(prepared);
        EXPECT_TRUE(backups.isNewest(prepared));
    }
    ASSERT_EQ(backups.count(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(backups.text(i), texts[i]);
        EXPECT_EQ(backups.number(i), i);
    }
    EXPECT_FALSE(backups.isNewest(TextBackups::prepare("é\n")));
}

TEST(Backups, OldestGoAndNumbersGoOn) {
    TextBackups backups(10000);
    for (unsigned i = 0; i < 5; ++i) {
        EXPECT_EQ(backups.add(TextBackups::prepare(noise(4000, i))), i);
    }
    ASSERT_EQ(backups.count(), 2U);
    EXPECT_EQ(backups.number(0), 3U);
    EXPECT_EQ(backups.text(1), noise(4000, 4));
    // One that is too large alone takes the list with it, but not the count.
    EXPECT_EQ(backups.add(TextBackups::prepare(noise(20000, 9))), 5U);
    EXPECT_EQ(backups.count(), 0U);
    EXPECT_EQ(backups.add(TextBackups::prepare("x")), 6U);
    EXPECT_EQ(backups.number(0), 6U);
}

}  // namespace
}  // namespace quillmark
