#include "batch_run.h"

namespace quillmark {
namespace {

using namespace testing;

class ConvertTest : public BatchTest {
  protected:
    const std::string routing = smallStyle() +
                                "[_line]\nType=0x06\nActivity=Walking\nLineWidth=3\n"
                                "Xpm=\"0 0 1 0\"\n\"1 c #FF8000\"\n[end]\n";
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
    const std::string typ =
        compile("a.typ", smallStyle() +
                             "[_point]\nType=0x3000\nDayXpm=\"1 1 0 1\" Colormode=0\n"
                             "\"#102030\"\n[end]\n");
    const auto text = [&](const std::string& option) {
        return runBatch({"text", typ, "-", option}).out;
    };
    const std::string plain = text("--no-header");
    EXPECT_TRUE(holds(plain, "String1=0x01,For\xEAt"));
    EXPECT_TRUE(holds(plain, "Type=0x02f\r\nSubType=0x06\r\n"));
    EXPECT_TRUE(holds(plain, "#102030"));
    EXPECT_FALSE(holds(plain, "; "));
    // Names of types come from the data folder.
    EXPECT_FALSE(holds(plain, ";GRMN_TYPE: //"));

    EXPECT_TRUE(holds(text("--utf8"), "0x01,For\xC3\xAAt"));
    EXPECT_TRUE(holds(text("--poi-code=short"), "Type=0x02f06\r\n"));
    EXPECT_TRUE(holds(text("--utf8"), "09/09/2001"));
    EXPECT_FALSE(holds(text("--no-true-colours"), "#102030"));

    const std::string comments = smallStyle() + "[_comments]\nкарта\n[end]\n";
    const auto lossy = runBatch({"text", "-", "-"}, comments);
    EXPECT_EQ(lossy.status, 0);
    EXPECT_TRUE(holds(lossy.out, "?????"));
    EXPECT_TRUE(holds(lossy.err, "warning: 5 characters")) << lossy.err;
    EXPECT_EQ(runBatch({"text", "-", "-", "--utf8"}, comments).err, "");
}

TEST_F(ConvertTest, IdentityComesFromTheOptionsOrIsAskedForInVain) {
    const std::string nameless = "[_polygon]\nType=0x50\nXpm=\"0 0 1 0\"\n\"1 c #107020\"\n[end]\n";
    write("old.typ", "old");
    const auto refused = runBatch({"typ", write("a.txt", nameless), path("old.typ")});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(holds(refused.err, "old.typ: error: Il faut indiquer le FID.")) << refused.err;
    EXPECT_EQ(read("old.typ"), "old");
    EXPECT_EQ(runBatch({"typ", path("a.txt"), "-"}).out, "");

    ASSERT_EQ(runBatch({"typ", path("a.txt"), path("b.typ"), "--fid=11", "--product=12"}).status,
              0);
    EXPECT_EQ(info("b.typ", "FID"), "11");
    EXPECT_EQ(info("b.typ", "product code"), "12");
    ASSERT_EQ(runBatch({"typ", path("b.typ"), path("b.typ"), "--fid=9"}).status, 0);
    EXPECT_EQ(info("b.typ", "FID"), "9");
}

TEST_F(ConvertTest, TheHeaderIsKeptOrAsSmallAsItMayBe) {
    // A size that nobody knows: 120 bytes, all sections moved behind them.
    compile("small.typ", smallStyle());
    std::string odd = read("small.typ");
    odd[0] = 120;
    odd.insert(91, 29, '\0');
    for (const std::size_t field : {23U, 31U, 39U, 51U, 61U, 71U, 81U}) {
        odd[field] = static_cast<char>(odd[field] + 29);
    }
    write("120.typ", odd);
    compile("164.typ", smallStyle(), "--header=164");
    compile("174.typ", routing);
    EXPECT_EQ(info("small.typ", "header size"), "91");
    for (const std::string size : {"120", "164", "174"}) {
        EXPECT_EQ(runBatch({"typ", path(size + ".typ"), path("again.typ")}).err, "");
        EXPECT_EQ(info("again.typ", "header size"), size);
    }
    odd[115] = 1;  // a field that nobody knows
    const auto unknown = runBatch({"typ", "-", "-", "--header", "110"}, odd);
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.out, "");
}

TEST_F(ConvertTest, NobodyIsThereToAgreeToTheLossOfASmallHeader) {
    // A header of 174 bytes, labels of 4 bytes and a raw block of 2 behind everything else.
    compile("a.typ", smallStyle(), "--header=174");
    std::string typ = read("a.typ");
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
    write("old.typ", "old");
    compile("routing.typ", routing);
    struct Case {
        const char* file;
        const char* size;
        const char* loss;
    };
    for (const Case& c : {Case{"a.typ", "91", "special labels"},
                          {"a.typ", "110", "special labels"},
                          {"a.typ", "156", "raw block"},
                          {"routing.typ", "164", "Active Routing"}}) {
        const auto run = runBatch({"typ", path(c.file), path("old.typ"), "--header", c.size});
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(holds(run.err, c.loss)) << run.err;
        EXPECT_EQ(read("old.typ"), "old");
    }
    ASSERT_EQ(runBatch({"typ", path("a.typ"), path("b.typ"), "--header", "164"}).status, 0);
    EXPECT_EQ(info("b.typ", "bytes of special labels"), "4");
    // Text has no place for either, and says so.
    EXPECT_TRUE(holds(runBatch({"text", path("a.typ"), "-"}).err, "special labels, the raw block"));
}

TEST_F(ConvertTest, TheCodePageOptionConvertsLabels) {
    const std::string typ = compile("a.typ", smallStyle());
    ASSERT_EQ(runBatch({"typ", typ, path("b.typ"), "--codepage", "65001"}).err, "");
    EXPECT_TRUE(holds(read("b.typ"), "For\xC3\xAAt"));
    ASSERT_EQ(runBatch({"typ", path("b.typ"), path("c.typ"), "--codepage", "1252"}).err, "");
    EXPECT_EQ(read("c.typ"), read("a.typ"));

    const auto lossy = runBatch({"typ", typ, "-", "--codepage", "1251"});
    EXPECT_EQ(lossy.status, 0);
    EXPECT_TRUE(holds(lossy.err, "a.typ: warning: polygon 0x050/00: 1 ")) << lossy.err;
    EXPECT_TRUE(holds(lossy.out, "For?t"));

    // A text's labels are encoded by the option whatever the text names.
    compile("e.typ", smallStyle("1252", "Лес"), "--codepage=1251");
    EXPECT_TRUE(holds(read("e.typ"), "\x01\xCB\xE5\xF1"));
    EXPECT_EQ(info("e.typ", "code page"), "1251");
}

TEST_F(ConvertTest, AFileWithErrorsIsConvertedAsFarAsItWasRead) {
    compile("a.typ", smallStyle());
    const std::string typ = read("a.typ");
    write("cut.typ", typ.substr(0, typ.size() - 6));  // the draw order is incomplete
    const auto run = runBatch({"text", path("cut.typ"), path("cut.txt")});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(holds(run.err, "cut.typ: error: ")) << run.err;
    EXPECT_TRUE(holds(read("cut.txt"), "For\xEAt"));
    EXPECT_EQ(runBatch({"typ", path("cut.typ"), path("mended.typ")}).status, 2);
    EXPECT_EQ(info("mended.typ", "polygons").substr(0, 2), "1 ");
}

TEST_F(ConvertTest, AFailedWriteLeavesTheOldFile) {
    const std::string typ = compile("a.typ", smallStyle());
    EXPECT_EQ(runBatch({"text", path("none.typ"), path("b.txt")}).status, 2);
    EXPECT_EQ(runBatch({"text", typ, path("none/b.txt")}).status, 2);
    EXPECT_EQ(runBatch({"typ", typ, path("none/b.typ")}).status, 2);

    write("old", "old");
    for (const char* command : {"text", "typ"}) {
        const FullDevice device(100);
        const auto run = runBatch({command, typ, path("old")});
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err, "");
    }
    EXPECT_EQ(read("old"), "old");
    EXPECT_EQ(fileCount(path("")), 3U) << "nothing half written stays behind";
}

}  // namespace
}  // namespace quillmark
