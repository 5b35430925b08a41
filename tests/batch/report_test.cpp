#include "batch_run.h"

namespace quillmark {
namespace {

using testing::BatchTest;
using testing::infoValue;
using testing::runBatch;
using testing::smallStyle;

class ReportTest : public BatchTest {};

TEST_F(ReportTest, CheckEndsWithTheWorstOfItsFiles) {
    const std::string good = compile("good.typ", smallStyle());
    std::string bytes = read("good.typ");
    bytes[21] = 1;  // code page 1025 doesn't exist
    const std::string warned = write("warned.typ", bytes);
    const std::string broken = write("broken.typ", "no style\n");
    const std::string missing = path("missing.typ");

    EXPECT_EQ(runBatch({"check", good}).out, "");
    EXPECT_EQ(runBatch({"check", good}).status, 0);
    const auto warnings = runBatch({"check", warned, good});
    EXPECT_EQ(warnings.status, 1);
    EXPECT_EQ(warnings.out.rfind(warned + ": warning: Numéro de page de code inconnu", 0), 0U)
        << warnings.out;
    EXPECT_EQ(runBatch({"check", broken}).status, 2);
    EXPECT_EQ(runBatch({"check", missing, good}).status, 2);

    // One line an entry, in the order of the files, errors before warnings.
    const auto all = runBatch({"check", good, broken, warned, missing});
    EXPECT_EQ(all.status, 2);
    std::istringstream lines(all.out);
    std::string order;
    for (std::string line; std::getline(lines, line);) {
        const std::string kinds[] = {broken + ": error: ", broken + ": warning: ",
                                     warned + ": warning: ", missing + ": error: "};
        const auto* kind = std::find_if(std::begin(kinds), std::end(kinds), [&](const auto& start) {
            return line.rfind(start, 0) == 0 && line.size() > start.size();
        });
        ASSERT_NE(kind, std::end(kinds)) << line;
        order += std::to_string(kind - std::begin(kinds));
        EXPECT_EQ(line.find("---"), std::string::npos) << line;
    }
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end())) << order;
    EXPECT_EQ(order.front(), '0');
    EXPECT_EQ(order.substr(order.size() - 2), "23");
}

TEST_F(ReportTest, CheckReadsTextsAndStandardInput) {
    const std::string faulty = smallStyle() + "[_polygon]\nType=0x51\nXpm=\"32 32 4 1\"\n[end]\n";
    const auto run = runBatch({"check", "-"}, faulty);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out.rfind("-: error: ", 0), 0U) << run.out;
    EXPECT_EQ(runBatch({"check", write("a.TXT", smallStyle())}).status, 0);
}

TEST_F(ReportTest, InfoCountsAndTellsChangedRecordsFromUnchangedOnes) {
    const std::string typ = compile("a.typ", smallStyle());
    const auto info = runBatch({"info", typ, path("a.typ.txt")});
    EXPECT_EQ(info.status, 0) << info.err;
    const std::size_t second = info.out.find(path("a.typ.txt"));
    ASSERT_NE(second, std::string::npos);
    const std::string ofTyp = info.out.substr(0, second);
    const std::string ofText = info.out.substr(second);

    EXPECT_EQ(infoValue(ofTyp, "kind"), "TYP file");
    EXPECT_EQ(infoValue(ofTyp, "date"), "2001-09-09 01:46:40");
    EXPECT_EQ(infoValue(ofTyp, "code page"), "1252");
    EXPECT_EQ(infoValue(ofText, "kind"), "text");
    EXPECT_EQ(infoValue(ofText, "encoding"), "UTF-8");
    EXPECT_EQ(infoValue(ofTyp, "extra POI groups"), "0");
    for (const char* label : {"polygons", "lines", "points", "draw order entries"}) {
        EXPECT_EQ(infoValue(ofTyp, label).substr(0, 2), "1 ") << label;
        EXPECT_EQ(infoValue(ofTyp, label), infoValue(ofText, label)) << label;
    }
    const auto other = runBatch({"info", "-"}, smallStyle("1252", "Bois"));
    EXPECT_NE(infoValue(other.out, "polygons"), infoValue(ofTyp, "polygons"));
    EXPECT_EQ(infoValue(other.out, "points"), infoValue(ofTyp, "points"));
    EXPECT_EQ(runBatch({"info", path("missing")}).status, 2);
}

TEST_F(ReportTest, ALanguageFileGivesTheMessages) {
    testing::TemporaryFolder data;
    std::filesystem::create_directory(data.path() / "Langues");
    testing::writePlain(data.path() / "Langues" / "Latin.lng",
                        testing::bytesOf("[Main]\nmsgFID1=Numerus deest.\n[Erreurs]\n"
                                         "msgFID1=Numerus deest.\n[Editer]\n"
                                         "msgFID1=Numerus deest.\n"));
    ::setenv("QUILLMARK_DATA", data.path().c_str(), 1);
    const std::string text = write("a.txt", "[_comments]\n[end]\n");
    const auto latin = runBatch({"typ", text, path("a.typ"), "--language", "Latin"});
    EXPECT_NE(latin.err.find("Numerus deest."), std::string::npos) << latin.err;
    const auto none = runBatch({"typ", text, path("a.typ"), "--language", "Greek"});
    EXPECT_NE(none.err.find("Il faut indiquer le FID."), std::string::npos) << none.err;
    EXPECT_NE(none.err.find("Greek: warning: "), std::string::npos) << none.err;
}

}  // namespace
}  // namespace quillmark
