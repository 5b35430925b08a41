// The command line over real files, when a corpus is there.
#include "batch_run.h"

namespace quillmark {
namespace {

using testing::BatchRun;
using testing::corpusFiles;
using testing::runBatch;

std::string contentOf(const std::filesystem::path& file) {
    const Bytes bytes = readFile(file);
    return {bytes.begin(), bytes.end()};
}

class CorpusTest : public testing::BatchTest {};

TEST_F(CorpusTest, TypFilesAreToldOfAndASecondSaveChangesNothing) {
    const auto files = corpusFiles("bin");
    if (files.empty()) {
        GTEST_SKIP() << "no corpus";
    }
    for (const auto& file : files) {
        SCOPED_TRACE(file);
        const BatchRun check = runBatch({"check", file.string()});
        EXPECT_LE(check.status, 2);
        EXPECT_EQ(check.status == 0, check.out.empty());
        EXPECT_EQ(runBatch({"info", file.string()}).status == 2, check.status == 2);

        const BatchRun once = runBatch({"typ", file.string(), "-"});
        EXPECT_EQ(once.status, check.status == 2 ? 2 : 0) << once.err;
        ASSERT_FALSE(once.out.empty()) << once.err;
        EXPECT_TRUE(runBatch({"typ", "-", "-"}, once.out).out == once.out);
    }
}

TEST_F(CorpusTest, TextsComeBackTheSameFromTheSecondWayOn) {
    const auto files = corpusFiles("txt");
    if (files.empty()) {
        GTEST_SKIP() << "no corpus";
    }
    for (const auto& file : files) {
        SCOPED_TRACE(file);
        const std::string text = contentOf(file);
        std::vector<std::string> compile{"typ", "-", "-"};
        const BatchRun info = runBatch({"info", "-"}, text);
        if (testing::infoValue(info.out, "FID") == "none") {
            compile.insert(compile.end(), {"--fid", "1"});
        }
        if (testing::infoValue(info.out, "product code") == "none") {
            compile.insert(compile.end(), {"--product", "1"});
        }
        const BatchRun first = runBatch(compile, text);
        ASSERT_FALSE(first.out.empty()) << first.err;
        const BatchRun secondText = runBatch({"text", "-", "-", "--no-header"}, first.out);
        const BatchRun second = runBatch({"typ", "-", "-"}, secondText.out);
        EXPECT_EQ(second.status, 0) << second.err;
        const BatchRun thirdText = runBatch({"text", "-", "-", "--no-header"}, second.out);
        EXPECT_TRUE(first.out == second.out);
        EXPECT_TRUE(secondText.out == thirdText.out);
    }
}

}  // namespace
}  // namespace quillmark
