#include "batch_run.h"

namespace quillmark {
namespace {

using namespace testing;

class ReportTest : public BatchTest {};

TEST_F(ReportTest, CheckEndsWithTheWorstOfItsFiles) {
    const std::string good = compile("good.typ", smallStyle());
    std::string bytes = read("good.typ");
    bytes[21] = 1;  // code page 1025 doesn't exist
    const std::string warned = write("warned.typ", bytes);
    const std::string broken = write("broken.typ", "no style\n");
    const std::string missing = path("missing.typ");
    const std::string faulty = smallStyle() + "[_polygon]\nType=0x51\nXpm=\"32 32 4 1\"\n[end]\n";

    EXPECT_EQ(runBatch({"check", good}).out, "");
    const std::vector<std::pair<std::vector<std::string>, int>> cases{
        {{good}, 0},
        {{write("a.TXT", smallStyle())}, 0},
        {{warned, good}, 1},
        {{missing, good}, 2},
        {{"-"}, 2}};
    for (const auto& [files, status] : cases) {
        std::vector<std::string> arguments{"check"};
        arguments.insert(arguments.end(), files.begin(), files.end());
        EXPECT_EQ(runBatch(arguments, faulty).status, status) << files[0];
    }

    // One line an entry, in the order of the files, errors before warnings.
    const auto all = runBatch({"check", good, broken, warned, missing});
    EXPECT_EQ(all.status, 2);
    const std::string kinds[] = {broken + ": error: ", broken + ": warning: ",
                                 warned + ": warning: Numéro de page de code inconnu",
                                 missing + ": error: "};
    std::istringstream lines(all.out);
    std::string order;
    for (std::string line; std::getline(lines, line);) {
        const auto* kind = std::find_if(std::begin(kinds), std::end(kinds), [&](const auto& start) {
            return line.rfind(start, 0) == 0 && line.size() > start.size();
        });
        ASSERT_NE(kind, std::end(kinds)) << line;
        order += std::to_string(kind - std::begin(kinds));
    }
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end())) << order;
    EXPECT_EQ(order.front(), '0');
    EXPECT_EQ(order.substr(order.size() - 2), "23");
}

TEST_F(ReportTest, InfoCountsAndTellsChangedRecordsFromUnchangedOnes) {
    const std::string typ = compile("a.typ", smallStyle());
    const auto ofTyp = runBatch({"info", typ}).out;
    const auto both = runBatch({"info", typ, path("a.typ.txt")});
    EXPECT_EQ(both.status, 0) << both.err;
    ASSERT_EQ(both.out.rfind(ofTyp, 0), 0U);
    const std::string ofText = both.out.substr(ofTyp.size());

    EXPECT_EQ(infoValue(ofTyp, "kind"), "TYP file");
    EXPECT_EQ(infoValue(ofTyp, "date"), "2001-09-09 01:46:40");
    EXPECT_EQ(infoValue(ofTyp, "code page"), "1252");
    EXPECT_EQ(infoValue(ofText, "kind"), "text");
    EXPECT_EQ(infoValue(ofText, "encoding"), "UTF-8");
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
    std::filesystem::create_directory(path("Langues"));
    const std::string key = "msgFID1=Numerus deest.\n";
    write("Langues/Latin.lng", "[Main]\n" + key + "[Erreurs]\n" + key + "[Editer]\n" + key);
    ::setenv("QUILLMARK_DATA", path("").c_str(), 1);
    const std::string text = write("a.txt", "[_comments]\n[end]\n");
    const auto latin = runBatch({"typ", text, "-", "--language", "Latin"});
    EXPECT_TRUE(holds(latin.err, "Numerus deest.")) << latin.err;
    const auto none = runBatch({"typ", text, "-", "--language", "Greek"});
    EXPECT_TRUE(holds(none.err, "Il faut indiquer le FID.")) << none.err;
    EXPECT_TRUE(holds(none.err, "Greek: warning: ")) << none.err;
}

}  // namespace
}  // namespace quillmark
