#include <sys/resource.h>

#include <csignal>

#include "batch_run.h"

namespace quillmark {
namespace {

using testing::BatchTest;
using testing::infoValue;
using testing::runBatch;
using testing::smallStyle;

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class ConvertTest : public BatchTest {
  protected:
    // The text of a file without the comments that tell where it is from.
    static std::string textOf(const std::string& file) {
        return runBatch({"text", file, "-", "--no-header"}).out;
    }
};

TEST_F(ConvertTest, AStyleGoesThereAndBackThroughFilesAndStreams) {
    const std::string typ = compile("a.typ", smallStyle());
    ASSERT_EQ(runBatch({"text", typ, path("b.txt"), "--no-header"}).status, 0);
    ASSERT_EQ(runBatch({"typ", path("b.txt"), path("b.typ")}).status, 0);
    EXPECT_EQ(read("a.typ"), read("b.typ"));
    EXPECT_EQ(read("a.typ").substr(14, 4), "\xD1\x07\x09\x09");  // the date of SOURCE_DATE_EPOCH

    // What comes in on standard input is told by its content.
    EXPECT_EQ(runBatch({"text", "-", "-", "--no-header"}, read("a.typ")).out, read("b.txt"));
    EXPECT_EQ(runBatch({"typ", "-", "-"}, read("b.txt")).out, read("a.typ"));
    EXPECT_EQ(runBatch({"typ", "-", "-"}, read("a.typ")).out, read("a.typ"));
    // The text of a text is its normal form.
    EXPECT_EQ(runBatch({"text", path("a.typ.txt"), "-"}).out, read("b.txt"));
}

TEST_F(ConvertTest, OptionsOfTextChangeWhatTheySay) {
    const std::string typ = compile("a.typ", smallStyle());
    const std::string plain = textOf(typ);
    EXPECT_TRUE(holds(plain, "String1=0x01,For\xEAt"));
    EXPECT_TRUE(holds(plain, "Type=0x02f\r\nSubType=0x06\r\n"));
    EXPECT_FALSE(holds(plain, "; "));
    // Names of types come from the data folder.
    EXPECT_FALSE(holds(plain, ";GRMN_TYPE: //"));

    EXPECT_TRUE(holds(runBatch({"text", typ, "-", "--utf8"}).out, "0x01,For\xC3\xAAt"));
    EXPECT_TRUE(holds(runBatch({"text", typ, "-", "--poi-code", "short"}).out, "Type=0x02f06\r\n"));
    const std::string commented = runBatch({"text", typ, "-"}).out;
    EXPECT_TRUE(holds(commented, "; " + path("").substr(0, path("").size() - 1)));
    EXPECT_TRUE(holds(commented, "09/09/2001"));

    const std::string trueColours =
        smallStyle() +
        "[_point]\nType=0x3000\nDayXpm=\"1 1 0 1\" Colormode=0\n\"#102030\"\n"
        "[end]\n";
    const std::string withPixels = compile("b.typ", trueColours);
    EXPECT_TRUE(holds(textOf(withPixels), "#102030"));
    EXPECT_FALSE(holds(runBatch({"text", withPixels, "-", "--no-true-colours"}).out, "#102030"));
}

TEST_F(ConvertTest, CharactersThatTextCannotHoldAreCounted) {
    const std::string text = write("a.txt", smallStyle() + "[_comments]\nкарта\n[end]\n");
    const auto run = runBatch({"text", text, "-"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(holds(run.out, "?????"));
    EXPECT_TRUE(holds(run.err, "warning: 5 characters")) << run.err;
    EXPECT_EQ(runBatch({"text", text, "-", "--utf8"}).err, "");
}

TEST_F(ConvertTest, IdentityComesFromTheOptionsOrIsAskedForInVain) {
    const std::string nameless = "[_polygon]\nType=0x50\nXpm=\"0 0 1 0\"\n\"1 c #107020\"\n[end]\n";
    write("old.typ", "old");
    const auto refused = runBatch({"typ", write("a.txt", nameless), path("old.typ")});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(holds(refused.err, "old.typ: error: Il faut indiquer le FID.")) << refused.err;
    EXPECT_EQ(read("old.typ"), "old");
    EXPECT_EQ(runBatch({"typ", path("a.txt"), "-"}).out, "");

    compile("b.typ", nameless, {"--fid", "4711", "--product", "12"});
    const auto info = runBatch({"info", path("b.typ")});
    EXPECT_EQ(infoValue(info.out, "FID"), "4711");
    EXPECT_EQ(infoValue(info.out, "product code"), "12");
    ASSERT_EQ(runBatch({"typ", path("b.typ"), path("b.typ"), "--fid=9"}).status, 0);
    EXPECT_EQ(infoValue(runBatch({"info", path("b.typ")}).out, "FID"), "9");
}

TEST_F(ConvertTest, TheHeaderIsKeptOrAsSmallAsItMayBe) {
    const std::string routing = smallStyle() +
                                "[_line]\nType=0x06\nActivity=Walking\nLineWidth=3\n"
                                "Xpm=\"0 0 1 0\"\n\"1 c #FF8000\"\n[end]\n";
    const auto headerOf = [](const std::string& file) {
        return infoValue(runBatch({"info", file}).out, "header size");
    };
    EXPECT_EQ(headerOf(compile("small.typ", smallStyle())), "91");
    EXPECT_EQ(headerOf(compile("wide.typ", smallStyle(), {"--header", "164"})), "164");
    EXPECT_EQ(headerOf(compile("routing.typ", routing)), "174");
    ASSERT_EQ(runBatch({"typ", path("wide.typ"), path("again.typ")}).status, 0);
    EXPECT_EQ(headerOf(path("again.typ")), "164");

    // A size that nobody knows is kept too: 120 bytes, all sections moved behind them.
    std::string odd = read("small.typ");
    odd[0] = 120;
    odd.insert(91, 29, '\0');
    for (const std::size_t field : {23U, 31U, 39U, 51U, 61U, 71U, 81U}) {
        odd[field] = static_cast<char>(odd[field] + 29);
    }
    write("odd.typ", odd);
    EXPECT_EQ(runBatch({"typ", path("odd.typ"), path("again.typ")}).err, "");
    EXPECT_EQ(headerOf(path("again.typ")), "120");
    odd[115] = 1;  // a field that nobody knows
    const auto unknown = runBatch({"typ", "-", "-", "--header", "110"}, odd);
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.out, "");

    // Nobody is there to agree to a loss.
    write("kept.typ", "old");
    const auto refused = runBatch({"typ", path("routing.typ"), path("kept.typ"), "--header=164"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(holds(refused.err, "Active Routing")) << refused.err;
    EXPECT_EQ(read("kept.typ"), "old");
}

TEST_F(ConvertTest, AHeaderTooSmallForLabelsOrTheRawBlockIsRefused) {
    // A header of 164 bytes, labels of 4 bytes and a raw block of 2 behind everything else.
    std::string typ =
        read(compile("a.typ", smallStyle(), {"--header", "164"}).substr(path("").size()));
    const auto place = [&](std::size_t field, std::size_t size) {
        for (const auto& [at, value] : {std::pair{field, typ.size()}, std::pair{field + 4, size}}) {
            typ[at] = static_cast<char>(value & 0xFF);
            typ[at + 1] = static_cast<char>(value >> 8);
        }
        typ.append(size, 'x');
    };
    place(112, 4);
    typ.back() = '\0';
    place(156, 2);
    write("a.typ", typ);
    for (const auto& [size, loss] :
         {std::pair{"91", "special labels"}, {"110", "special labels"}, {"156", "raw block"}}) {
        const auto run = runBatch({"typ", path("a.typ"), path("b.typ"), "--header", size});
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(holds(run.err, loss)) << run.err;
        EXPECT_FALSE(std::filesystem::exists(path("b.typ")));
    }
    ASSERT_EQ(runBatch({"typ", path("a.typ"), path("b.typ"), "--header", "174"}).status, 0);
    EXPECT_EQ(infoValue(runBatch({"info", path("b.typ")}).out, "bytes of special labels"), "4");
    // Text has no place for either, and says so.
    EXPECT_TRUE(holds(runBatch({"text", path("a.typ"), "-"}).err, "special labels, the raw block"));
}

TEST_F(ConvertTest, TheCodePageOptionConvertsLabels) {
    const std::string typ = compile("a.typ", smallStyle());
    ASSERT_EQ(runBatch({"typ", typ, path("b.typ"), "--codepage", "65001"}).err, "");
    EXPECT_TRUE(holds(read("b.typ"), "For\xC3\xAAt"));
    ASSERT_EQ(runBatch({"typ", path("b.typ"), path("c.typ"), "--codepage", "1252"}).err, "");
    EXPECT_EQ(read("c.typ"), read("a.typ"));

    const auto lossy = runBatch({"typ", typ, path("d.typ"), "--codepage", "1251"});
    EXPECT_EQ(lossy.status, 0);
    EXPECT_TRUE(holds(lossy.err, "a.typ: warning: polygon 0x050/00: 1 ")) << lossy.err;
    EXPECT_TRUE(holds(read("d.typ"), "For?t"));

    // A text's labels are encoded by the option whatever the text names.
    const std::string cyrillic = smallStyle("1252", "Лес");
    const std::string compiled =
        read(compile("e.typ", cyrillic, {"--codepage=1251"}).substr(path("").size()));
    EXPECT_TRUE(holds(compiled, "\x01\xCB\xE5\xF1"));
    EXPECT_EQ(compiled.substr(21, 2), "\xE3\x04");
}

TEST_F(ConvertTest, AFileWithErrorsIsConvertedAsFarAsItWasRead) {
    const std::string typ = read(compile("a.typ", smallStyle()).substr(path("").size()));
    write("cut.typ", typ.substr(0, typ.size() - 6));  // the draw order is incomplete
    const auto run = runBatch({"text", path("cut.typ"), path("cut.txt")});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(holds(run.err, "cut.typ: error: ")) << run.err;
    EXPECT_TRUE(holds(read("cut.txt"), "For\xEAt"));
    EXPECT_EQ(runBatch({"typ", path("cut.typ"), path("mended.typ")}).status, 2);
    EXPECT_EQ(infoValue(runBatch({"info", path("mended.typ")}).out, "polygons").substr(0, 2), "1 ");
}

TEST_F(ConvertTest, AFailedWriteLeavesTheOldFile) {
    const std::string typ = compile("a.typ", smallStyle());
    EXPECT_EQ(runBatch({"text", path("none.typ"), path("b.txt")}).status, 2);
    EXPECT_EQ(runBatch({"text", typ, path("none/b.txt")}).status, 2);
    EXPECT_EQ(runBatch({"typ", typ, path("none/b.typ")}).status, 2);

    // A disk that takes a hundred bytes and no more.
    write("old", "old");
    rlimit unlimited{};
    ::getrlimit(RLIMIT_FSIZE, &unlimited);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{100, unlimited.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    const auto text = runBatch({"text", typ, path("old")});
    const auto again = runBatch({"typ", typ, path("old")});
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, handler);
    for (const auto& run : {text, again}) {
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err, "");
    }
    EXPECT_EQ(read("old"), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("")),
                            std::filesystem::directory_iterator()),
              3);  // nothing half written stays behind
}

}  // namespace
}  // namespace quillmark
