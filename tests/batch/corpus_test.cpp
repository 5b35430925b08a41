// The command line over real files, when a corpus is there.
#include "batch_run.h"

namespace quillmark {
namespace {

using namespace testing;

class CorpusTest : public BatchTest {
  protected:
    // Files of a kind, each tried by `attempt` with its name and content.
    template <typename Attempt>
    static void withEach(const char* kind, Attempt attempt) {
        const auto files = corpusFiles(kind);
        if (files.empty()) {
            GTEST_SKIP() << "no corpus";
        }
        for (const auto& file : files) {
            SCOPED_TRACE(file);
            const Bytes bytes = readFile(file);
            attempt(file.string(), std::string(bytes.begin(), bytes.end()));
        }
    }
};

TEST_F(CorpusTest, TypFilesAreToldOfAndASecondSaveChangesNothing) {
    withEach("bin", [](const std::string& file, const std::string&) {
        const BatchRun check = runBatch({"check", file});
        EXPECT_LE(check.status, 2);
        EXPECT_EQ(check.status == 0, check.out.empty());
        EXPECT_EQ(runBatch({"info", file}).status == 2, check.status == 2);
        const BatchRun once = runBatch({"typ", file, "-"});
        EXPECT_EQ(once.status, check.status == 2 ? 2 : 0) << once.err;
        ASSERT_FALSE(once.out.empty()) << once.err;
        EXPECT_TRUE(runBatch({"typ", "-", "-"}, once.out).out == once.out);
    });
}

TEST_F(CorpusTest, TextsComeBackTheSameFromTheSecondWayOn) {
    withEach("txt", [](const std::string&, const std::string& text) {
        std::vector<std::string> compile{"typ", "-", "-"};
        const std::string info = runBatch({"info", "-"}, text).out;
        for (const auto& [label, option] :
             {std::pair{"FID", "--fid=1"}, {"product code", "--product=1"}}) {
            if (infoValue(info, label) == "none") {
                compile.emplace_back(option);
            }
        }
        const BatchRun first = runBatch(compile, text);
        ASSERT_FALSE(first.out.empty()) << first.err;
        const BatchRun secondText = runBatch({"text", "-", "-", "--no-header"}, first.out);
        const BatchRun second = runBatch({"typ", "-", "-"}, secondText.out);
        EXPECT_EQ(second.status, 0) << second.err;
        EXPECT_TRUE(first.out == second.out);
    });
}

}  // namespace
}  // namespace quillmark
