#include <sys/wait.h>
#include <unistd.h>

#include <set>

#include "core/folders.h"
#include "core/lock_file.h"
#include "core/start_arguments.h"
#include "core/version.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using Wish = StartArguments::Wish;

struct ArgumentsCase {
    std::vector<std::string> arguments;
    std::string file;
    Wish wish = Wish::start;
};

TEST(StartArguments, FirstArgumentIsTheFile) {
    const std::set<std::string> there{"/d/my map.typ", "/d/two  blanks.typ", "/d/-x", "/d/a.typ"};
    const std::vector<ArgumentsCase> cases{
        {{}, ""},
        {{""}, ""},
        {{"\""}, ""},
        {{"a.typ"}, "/d/a.typ"},
        {{"./a.typ"}, "/d/a.typ"},
        {{"../a.typ"}, "/d/../a.typ"},
        {{"/e/a.typ"}, "/e/a.typ"},
        {{"gone.typ"}, "/d/gone.typ"},
        {{"\"a.typ\""}, "/d/a.typ"},
        {{"\"a.typ"}, "/d/a.typ"},
        {{"a.typ\""}, "/d/a.typ"},
        {{"\"\"a.typ\"\""}, "/d/\"a.typ\""},
        {{"my", "map.typ"}, "/d/my map.typ"},
        {{"\"my", "map.typ\""}, "/d/my map.typ"},
        {{"two", "", "blanks.typ"}, "/d/two  blanks.typ"},
        {{"a.typ", "map.typ"}, "/d/a.typ"},
        {{"gone", "map.typ"}, "/d/gone"},
        {{"file:///e/%C3%A9t%C3%A9 1%2b.typ"}, "/e/été 1+.typ"},
        {{"FILE://localhost/e/a.typ"}, "/e/a.typ"},
        {{"file:/e/100%.typ"}, "/e/100%.typ"},
        {{"file:///e/%00%2"}, "/e/%00%2"},
        {{"file:a.typ"}, "/d/a.typ"},
        {{"-x"}, "/d/-x"},
        {{"--unknown"}, "/d/--unknown"},
        {{"--help"}, "", Wish::help},
        {{"--version", "a.typ"}, "", Wish::version},
        {{"a.typ", "--help"}, "/d/a.typ"},
        {{"--"}, ""},
        {{"--", "--help"}, "/d/--help"},
        {{"--", "my", "map.typ"}, "/d/my map.typ"},
    };
    for (const ArgumentsCase& each : cases) {
        const StartArguments read = readArguments(
            each.arguments, "/d", [&](const fs::path& file) { return there.count(file) > 0; });
        EXPECT_EQ(read.file.string(), each.file) << ::testing::PrintToString(each.arguments);
        EXPECT_EQ(read.wish, each.wish) << ::testing::PrintToString(each.arguments);
    }
    const auto all = [](const fs::path& /*file*/) { return true; };
    EXPECT_EQ(readArguments({"--help"}, "/d", all).file, "/d/--help");
    EXPECT_EQ(readArguments({"--", "a"}, "/d", all).file, "/d/--");
}

TEST(Folders, DifferencesOfCaseAndEndAreNone) {
    EXPECT_EQ(differingFolders({{"C:\\Users\\A\\", "c:\\users\\a"}, {"C:/L", "C:/L//"}}), "");
    EXPECT_EQ(differingFolders({{"C:\\A", "c:\\a"}, {"C:\\L", ""}}), "C:\\A - c:\\a\nC:\\L - \n");
}

TEST(Version, NotesAreReadStrictly) {
    const std::vector<std::pair<std::string, std::uint64_t>> good{
        {"0.1.0", 100},         {"0.2.0", 200},
        {"1.2.3", 10203},       {"v1.2.3", 10203},
        {" v1.2.3\r\n", 10203}, {"0.99.99", 9999},
        {"007.1.0", 70100},     {"4294967295.0.1", 42949672950001}};
    for (const auto& [note, sum] : good) {
        const auto version = readVersion(note);
        ASSERT_TRUE(version) << note;
        EXPECT_EQ(version->sum(), sum) << note;
    }
    EXPECT_EQ(readVersion(" 1.2.3")->text(), "v1.2.3");
    for (const std::string note :
         {"", "v", "1.2", "0.1.100", "0.100.1", "1.2.3.4", "1.2.3a", "1..3", "-1.2.3", "1.+2.3",
          "1 .2.3", "v 1.2.3", "99999999999.0.0", "<html>1.2.3"}) {
        EXPECT_FALSE(readVersion(note)) << note;
    }
}

TEST(LockFile, BelongsToOneAtATimeAndOutlivesNobody) {
    const testing::TemporaryFolder folder;
    const fs::path file = folder.path() / "new" / "Quillmark.save.lock";
    {
        const LockFile first(file);
        EXPECT_TRUE(first.isOwned());
        const LockFile second(file);
        EXPECT_FALSE(second.isOwned());
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const LockFile lock(file);
        ::_exit(lock.isOwned() ? 0 : 1);  // without letting go of it
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(LockFile(file).isOwned());
    EXPECT_FALSE(LockFile(file / "below a file").isOwned());
}

}  // namespace
}  // namespace quillmark
