#include "core/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "support/test_files.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using testing::bytesOf;
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

// A device that fails after so many bytes: larger files can't be written while this lives.
class FullDevice {
  public:
    explicit FullDevice(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit small{bytes, limit_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDevice() {
        ::setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, signal_);
    }
    FullDevice(const FullDevice&) = delete;
    FullDevice& operator=(const FullDevice&) = delete;

  private:
    rlimit limit_{};
    void (*signal_)(int);
};

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

TEST_F(Files, AFolderThatTakesNoFilesRefuses) {
    // Root may write everywhere, so root takes the place of nobody for a while.
    const bool root = ::geteuid() == 0;
    writePlain(file, bytesOf("old"));
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    if (root && (::chown(folder.path().c_str(), 65534, 65534) != 0 ||
                 ::chown(file.c_str(), 65534, 65534) != 0 || ::seteuid(65534) != 0)) {
        GTEST_SKIP() << "no other user to be";
    }
    EXPECT_FALSE(isWritable(file));
    EXPECT_EQ(writeNumber(file), 70);
    EXPECT_EQ(readFile(file), bytesOf("old"));
    ASSERT_TRUE(!root || ::seteuid(0) == 0);
    fs::permissions(folder.path(), fs::perms::owner_all);
}

}  // namespace
}  // namespace quillmark
