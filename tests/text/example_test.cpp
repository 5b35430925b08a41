#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

#include "support/test_files.h"
#include "text/generator.h"
#include "text/parser.h"

namespace quillmark {
namespace {

// The example has every picture form and colour layout that text can hold, so it also shows that
// what the generator writes and what the parser takes are the same format.
TEST(ExampleStyle, ComesBackUnchangedAndDrawsEveryPolygon) {
    std::ifstream file(testing::dataFolder() / "examples" / "randonnee.txt", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const Traduction french;
    const auto parsed = ouvrirtxt(text, Document{}, ParseTarget{}, nullptr, french);
    EXPECT_TRUE(parsed.journal.entries().empty())
        << parsed.journal.JournalErreurs() << parsed.journal.JournalAvertissements();
    EXPECT_TRUE(parsed.skippedLines.empty());
    EXPECT_GE(parsed.document.Polygone.size(), 30U);
    EXPECT_GE(parsed.document.Polyline.size(), 25U);
    EXPECT_GE(parsed.document.POI.size(), 60U);

    const auto types = Profile::load(testing::dataFolder() / "MPCTypes.txt");
    GeneratorContext context;
    context.types = &types;
    EXPECT_TRUE(genererTexte(parsed.document, context, nullptr).text == text);

    // A polygon outside the draw order is not drawn.
    std::set<std::string> drawn;
    for (const std::string& entry : parsed.document.ListDraworder) {
        drawn.insert(entry.substr(0, entry.rfind(',')));
    }
    for (const auto& polygon : parsed.document.Polygone) {
        const std::string type = "Type=0x" + polygon.Type;
        EXPECT_TRUE(drawn.count(type) + drawn.count(type + ",SubType=0x" + polygon.SubType) > 0)
            << type << polygon.SubType;
    }
}

}  // namespace
}  // namespace quillmark
