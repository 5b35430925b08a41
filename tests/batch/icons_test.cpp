#include "batch_run.h"

namespace quillmark::testing {
namespace {

// Width and height of a PNG file.
std::pair<int, int> sizeOf(const std::string& png) {
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n");
    const auto number = [&](std::size_t at) {
        return static_cast<unsigned char>(png[at + 2]) * 256 +
               static_cast<unsigned char>(png[at + 3]);
    };
    return {number(16), number(20)};
}

TEST_F(BatchTest, IconsOfTheFirstKindThatThereIs) {
    const std::string file = compile("style.typ", smallStyle("65001"));
    EXPECT_EQ(runBatch({"icons", file, path("a.png")}).status, 0);
    EXPECT_EQ(sizeOf(read("a.png")), (std::pair{48, 48}));
    const BatchRun all = runBatch({"icons", file, "-", "--kind", "poi", "--night", "--zoom", "2",
                                   "--labels", "both", "--language", "4"});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(all.err, "");
    EXPECT_EQ(sizeOf(all.out).first, 96);
    EXPECT_GT(sizeOf(all.out).second, 96 + 16);
    EXPECT_EQ(runBatch({"icons", path("none.typ"), path("b.png")}).status, 2);
}

TEST_F(BatchTest, TheSheetOfEveryRealFileOfEveryKindIsPainted) {
    for (const char* folder : {"bin", "txt"}) {
        for (const auto& file : corpusFiles(folder)) {
            for (const char* kind : {"polygon", "polyline", "poi", "extrapoi"}) {
                const BatchRun run = runBatch(
                    {"icons", file.string(), "-", "--kind", kind, "--night", "--labels", "both"});
                EXPECT_GT(sizeOf(run.out).first, 0) << file << ' ' << kind;
            }
        }
    }
}

}  // namespace
}  // namespace quillmark::testing
