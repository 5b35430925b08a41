#include <gtest/gtest.h>

#include <random>

#include "support/generated_document.h"
#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

GeneratedShape shapeOf(std::uint32_t seed) {
    constexpr std::array<std::int32_t, 6> sizes{91, 110, 156, 164, 174, 200};
    GeneratedShape shape;
    shape.headerSize = sizes[seed % sizes.size()];
    shape.brandWidth = static_cast<int>(1 + seed / sizes.size() % 4);
    shape.blocSource = static_cast<BlocSourceKind>(1 + seed % 3);
    shape.betweenSections = seed % 4 * 5;
    return shape;
}

TEST(RoundTrip, GeneratedDocumentsComeBackAsTheyWere) {
    for (std::uint32_t seed = 0; seed < 48; ++seed) {
        SCOPED_TRACE(seed);
        const Document document = generatedDocument(seed, shapeOf(seed));
        const WrittenTyp written = CreerTYP(document, kNow);
        const auto reread = open(written.file);
        EXPECT_FALSE(reread.journal.ErreurFlag()) << reread.journal.JournalErreurs();
        EXPECT_TRUE(reread.document == written.document);
        EXPECT_EQ(save(reread.document), written.file);
        // Nothing but places, order and header records may differ from what was made.
        EXPECT_EQ(reread.document.Polygone.size(), document.Polygone.size());
        EXPECT_EQ(reread.document.EnteteInconnu, document.EnteteInconnu);
        EXPECT_EQ(reread.document.ListDraworder, document.ListDraworder);
    }
}

TEST(RoundTrip, CutAtEveryLength) {
    for (std::uint32_t seed = 0; seed < 6; ++seed) {
        GeneratedShape shape = shapeOf(seed);
        shape.polygons = shape.polylines = shape.pois = 2;
        shape.activeRoutingLines = shape.extraPoiGroups = 2;
        Bytes file = save(generatedDocument(seed, shape));
        while (!file.empty() && !::testing::Test::HasFailure()) {
            SCOPED_TRACE(::testing::Message() << "seed " << seed << " cut to " << file.size());
            file.pop_back();
            expectStable(file);
        }
    }
}

TEST(RoundTrip, DamagedBytes) {
    std::vector<Bytes> files;
    for (std::uint32_t seed = 0; seed < 12; ++seed) {
        files.push_back(save(generatedDocument(seed, shapeOf(seed))));
    }
    std::mt19937 random(1);
    for (int run = 0; run < 500 && !::testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        Bytes file = files[random() % files.size()];
        for (std::size_t n = 1 + random() % 8; n > 0; --n) {
            // Half of the damages hit the header, where they do most.
            const std::size_t at = random() % (random() % 2 == 0 ? 174 : file.size()) % file.size();
            const std::uint8_t values[] = {0x00, 0xFF, 0x01, static_cast<std::uint8_t>(random())};
            file[at] = values[random() % 4];
        }
        if (random() % 4 == 0) {
            file.resize(random() % file.size());
        }
        expectStable(file);
    }
}

// Every record lies in the same bytes, or reaches beyond them: the file must not cost more than
// its size explains, nor fill the journal.
TEST(RoundTrip, OverlappingRecordsAreBounded) {
    Bytes names{0x16, 1, 2, 3, 0xFE, 0xFF};
    names.resize(16392);
    for (const Bytes& data : {Bytes(60000, 0x06), names, hex("01 FF FF 00 00")}) {
        SCOPED_TRACE(data[0]);
        TypBuilder builder;
        builder.data(kPolygonData, data).data(kPoiData, data);
        const Bytes index(3 * 32767);
        builder.index(kPolygonIndex, 3, index).index(kPoiIndex, 3, index);
        const auto opened = open(builder.file());
        std::size_t bytes = 0;
        for (const Polygone& polygon : opened.document.Polygone) {
            bytes += polygon.Strings.size();
        }
        for (const POI& poi : opened.document.POI) {
            bytes += poi.Image[0].Bitmap.size() + poi.Strings.size();
        }
        EXPECT_EQ(opened.document.Polygone.size(), 32767U);
        EXPECT_LT(bytes, 6 * builder.size() + (std::size_t{22} << 20U));
        EXPECT_LT(
            opened.journal.JournalErreurs().size() + opened.journal.JournalAvertissements().size(),
            builder.size() + (std::size_t{4} << 20U));
        expectStable(builder.file());
    }
}

}  // namespace
}  // namespace quillmark
