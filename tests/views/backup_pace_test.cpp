#include "views/backup_pace.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

using namespace std::chrono_literals;

TEST(BackupPace, WaitsForAPauseAndAMinute) {
    BackupPace pace;
    const BackupPace::Time start{};
    EXPECT_EQ(pace.wait(start), 10s);
    pace.kept(start);
    EXPECT_EQ(pace.wait(start + 5s), 55s);
    EXPECT_EQ(pace.wait(start + 55s), 10s);
    EXPECT_EQ(pace.wait(start + 200s), 10s);
}

}  // namespace
}  // namespace quillmark
