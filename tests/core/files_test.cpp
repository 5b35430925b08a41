#include "core/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>

#include "support/test_files.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using testing::bytesOf;
using testing::FullDevice;
using testing::TemporaryFolder;
using testing::writePlain;

int numberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return static_cast<int>(failure.number());
    }
    return 0;
}

int writeNumber(const fs::path& target, const Bytes& content = bytesOf("new")) {
    return numberOf([&] { replaceFile(target, content); });
}

class Files : public ::testing::Test {
  protected:
    std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
    }
    TemporaryFolder folder;
    fs::path file = folder.path() / "été.typ";
};

TEST_F(Files, ContentReplacesTheOldOneAndPermissionsStay) {
    Bytes content(300000);
    for (std::size_t i = 0; i < content.size(); ++i) {
        content[i] = static_cast<std::uint8_t>(i * 7);
    }
    replaceFile(file, content);
    EXPECT_EQ(readFile(file), content);
    struct stat facts {};
    ::stat(file.c_str(), &facts);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(facts.st_mode & 0777, 0666 & ~mask);

    ::chmod(file.c_str(), 0640);
    replaceFile(file, {});
    EXPECT_TRUE(readFile(file).empty());
    ::stat(file.c_str(), &facts);
    EXPECT_EQ(facts.st_mode & 07777, 0640U);
    EXPECT_EQ(count(), 1U);
}

TEST_F(Files, LinksAreFollowedAlsoToFilesThatAreNotThereYet) {
    fs::create_directory(folder.path() / "real");
    fs::create_symlink("real/a.typ", folder.path() / "link.typ");
    fs::create_symlink("link.typ", folder.path() / "second.typ");
    fs::create_symlink("loop.typ", folder.path() / "loop.typ");
    for (const char* text : {"first", "again"}) {
        replaceFile(folder.path() / "second.typ", bytesOf(text));
        EXPECT_EQ(readFile(folder.path() / "real/a.typ"), bytesOf(text));
    }
    EXPECT_TRUE(fs::is_symlink(folder.path() / "second.typ"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.typ"));
    EXPECT_EQ(writeNumber(folder.path() / "loop.typ"), 76);
    EXPECT_FALSE(isWritable(folder.path() / "loop.typ"));
}

TEST_F(Files, AFailedWriteLeavesTheOldFileAndNothingElse) {
    writePlain(file, bytesOf("old"));
    {
        const FullDevice device(1000);
        EXPECT_EQ(writeNumber(file, Bytes(5000)), 61);
        EXPECT_EQ(writeNumber(folder.path() / "other.typ", Bytes(5000)), 61);
    }
    EXPECT_EQ(readFile(file), bytesOf("old"));
    EXPECT_EQ(count(), 1U);

    fs::permissions(file, fs::perms::owner_read);
    EXPECT_FALSE(isWritable(file));
    EXPECT_EQ(writeNumber(file), 70);
    EXPECT_EQ(readFile(file), bytesOf("old"));
}

TEST_F(Files, EachObstacleHasItsNumber) {
    writePlain(file, bytesOf("old"));
    EXPECT_EQ(numberOf([&] { (void)readFile(folder.path() / "none.typ"); }), 53);
    EXPECT_EQ(numberOf([&] { (void)readFile(folder.path()); }), 70);
    EXPECT_EQ(writeNumber(folder.path()), 76);
    EXPECT_EQ(writeNumber(folder.path() / "none" / "a.typ"), 76);
    EXPECT_EQ(writeNumber(file / "a.typ"), 76);
    EXPECT_EQ(writeNumber(folder.path() / std::string(300, 'n')), 76);
    EXPECT_TRUE(isWritable(file));
    EXPECT_TRUE(isWritable(folder.path() / "new.typ"));
    for (const fs::path& never :
         {folder.path(), folder.path() / "none" / "a.typ", file / "a.typ"}) {
        EXPECT_FALSE(isWritable(never)) << never;
    }
}

TEST_F(Files, APipeIsWrittenToAndStaysAPipe) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    const int reader = ::open(file.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(writeNumber(file), 0);
    std::array<char, 8> content{};
    EXPECT_EQ(::read(reader, content.data(), content.size()), 3);
    EXPECT_STREQ(content.data(), "new");
    EXPECT_TRUE(fs::is_fifo(file));
    ::close(reader);
}

// Root may write everywhere, so root takes the place of nobody for a while.
class Nobody {
  public:
    explicit Nobody(const std::vector<fs::path>& owned) {
        for (const fs::path& file : owned) {
            able_ = able_ && (!root_ || ::chown(file.c_str(), 65534, 65534) == 0);
        }
        able_ = able_ && (!root_ || ::seteuid(65534) == 0);
    }
    ~Nobody() { EXPECT_TRUE(!root_ || ::seteuid(0) == 0); }
    Nobody(const Nobody&) = delete;
    Nobody& operator=(const Nobody&) = delete;
    [[nodiscard]] bool able() const { return able_; }

  private:
    bool root_ = ::geteuid() == 0;
    bool able_ = true;
};

TEST_F(Files, AFolderThatTakesNoFilesHasItsOwnWrittenOver) {
    const fs::path sealed = folder.path() / "sealed";
    fs::create_directory(sealed);
    const fs::path inside = sealed / folder.path().filename();  // unlike those of other tests
    const fs::path copy = fs::temp_directory_path() / (inside.filename().string() + "~");
    writePlain(inside, bytesOf("an old content"));
    fs::permissions(sealed, fs::perms::owner_read | fs::perms::owner_exec);
    {
        const Nobody nobody({sealed, inside});
        if (!nobody.able()) {
            GTEST_SKIP() << "no other user to be";
        }
        EXPECT_TRUE(isWritable(inside));
        EXPECT_FALSE(isWritable(sealed / "new.typ"));
        EXPECT_EQ(writeNumber(sealed / "new.typ"), 70);
        EXPECT_EQ(writeNumber(inside, bytesOf("short")), 0);
        EXPECT_EQ(readFile(inside), bytesOf("short"));
        EXPECT_EQ(writeNumber(inside, Bytes(5000)), 0);
        EXPECT_EQ(readFile(inside), Bytes(5000));
        const FullDevice device(6000);
        EXPECT_EQ(writeNumber(inside, Bytes(9000, 1)), 61);
        EXPECT_EQ(readFile(inside), Bytes(5000)) << "put back";
        EXPECT_FALSE(fs::exists(copy));
        fs::permissions(inside, fs::perms::owner_read);
        EXPECT_FALSE(isWritable(inside));
        EXPECT_EQ(writeNumber(inside), 70);
    }
    fs::permissions(sealed, fs::perms::owner_all);
    EXPECT_EQ(std::distance(fs::directory_iterator(sealed), {}), 1);
}

}  // namespace
}  // namespace quillmark
