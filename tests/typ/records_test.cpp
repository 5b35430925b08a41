#include <gtest/gtest.h>

#include "typ/strings_block.h"
#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

TEST(Blocks, SayTheirOwnLength) {
    struct Case {
        const char* start;
        std::size_t length;
        Bytes (*read)(PartReader&);
    };
    const Case cases[] = {
        {"0B", 6, readStrings},           {"01", 1, readStrings},
        {"52 00", 22, readStrings},       {"02 02", 130, readStrings},
        {"00 00", 2, readStrings},        {"00", 1, readExtendedLabels},
        {"04", 1, readExtendedLabels},    {"08", 4, readExtendedLabels},
        {"10", 4, readExtendedLabels},    {"18", 7, readExtendedLabels},
        {"20 07", 5, readExtendedLabels}, {"78 01 02 03 04 05 06 05", 10, readExtendedLabels},
    };
    for (const Case& c : cases) {
        Bytes data = hex(c.start);
        data.resize(200, 0x55);
        PartReader parts(data, 0);
        EXPECT_EQ(c.read(parts), Bytes(data.begin(), data.begin() + static_cast<long>(c.length)))
            << c.start;
        EXPECT_EQ(parts.position(), c.length) << c.start;
        EXPECT_TRUE(parts.failures().empty());
    }
}

TEST(PolygonRecords, LengthsAndWarnings) {
    const std::string object = "Erreur dans la lecture du polygone 0x111/04";
    const std::string unknownType = "W Attention: Polygone de type inconnu. Son header est: ";
    const Bytes pattern(128, 0xA5);
    struct Case {
        Bytes kept;
        Bytes surplus;
        std::vector<std::string> told;
    };
    const std::vector<Case> cases{
        {hex("06 01 02 03"), {}, {}},
        {hex("00 01 02 03 04 05 06"), {}, {unknownType + "0    "}},
        {joined({hex("0D 01 02 03 04 05 06 07 08 09"), pattern}), {}, {}},
        {hex("76 01 02 03 03 41 00 80"), {}, {}},
        {hex("46 01 02 03 99"), {}, {}},
        {hex("86 01 02 03"),
         {},
         {"W Attention: Flags inconnus dans le header du polygone, " + object +
          ", 86, 0000005B    "}},
        {hex("06 01 02 03"),
         hex("AB 0C"),
         {"W Attention: Données inconnues dans le polygone, " + object + ", AB 0C     "}},
        {joined({hex("0A"), pattern}),
         {},
         {"E " + object +
              " erreur n°9|Description: nombre de couleurs inconnu, en-tête 10|Procedure: ouvrir   "
              "|Module: frmMain",
          unknownType + "10    "}},
    };
    for (const Case& c : cases) {
        const Bytes record = joined({c.kept, c.surplus});
        const auto opened = open(TypBuilder()
                                     .data(kPolygonData, record)
                                     .index(kPolygonIndex, 3, hex("24 22 00"))
                                     .file());
        const Polygone& polygon = opened.document.Polygone.at(0);
        EXPECT_EQ(polygon.Type + polygon.SubType, "11104");
        EXPECT_EQ(polygon.Longueur, static_cast<std::int32_t>(record.size()));
        EXPECT_EQ(told(opened.journal), c.told);
        EXPECT_EQ(savedRecord(opened.document), c.kept);
    }
}

TEST(PolygonRecords, LengthIsTheDistanceToTheNextOffsetWhereverThatIs) {
    // Two entries share a record; the index isn't in the order of the data.
    const Bytes data = hex("06 01 02 03 06 04 05 06 07 07 07");
    const auto opened = open(TypBuilder()
                                 .data(kPolygonData, data)
                                 .index(kPolygonIndex, 3, hex("20 00 04 40 00 00 60 00 00"))
                                 .file());
    std::string lengths;
    for (const Polygone& polygon : opened.document.Polygone) {
        lengths += std::to_string(polygon.Longueur);
    }
    EXPECT_EQ(lengths, "744");
    EXPECT_EQ(opened.journal.warningCount(), 1) << "the three surplus bytes at the end";
}

TEST(PolygonRecords, WhatTheFileDoesNotHoldIsZero) {
    // The index lies before the data, which end within the pattern.
    const Bytes file = TypBuilder()
                           .index(kPolygonIndex, 3, hex("24 22 00 44 22 20"))
                           .data(kPolygonData, hex("0B 01 02 03 04 05 06 07 08 09 FF"))
                           .file();
    const auto opened = open(file);
    ASSERT_EQ(opened.document.Polygone.size(), 2U);
    EXPECT_EQ(opened.document.Polygone[0].Bitmap[0], 0xFF);
    EXPECT_EQ(opened.document.Polygone[0].Bitmap[1], 0);
    EXPECT_EQ(opened.document.Polygone[1].Couleurs, Bytes(6)) << "a record beyond the end is blank";
    EXPECT_EQ(opened.journal.errorCount(), 2) << "one for the pattern, one for the second record";
    expectStable(file);
}

TEST(PolylineRecords, PartsFollowTheTwoHeaderBytes) {
    struct Case {
        const char* what;
        Bytes record;
        std::array<std::size_t, 4> sizes;  // colours, bitmap, names, extended labels
        int errors = 0;
        Bytes surplus = {};
    };
    const std::vector<Case> cases{
        {"two colours, width and border", hex("00 00 01 02 03 04 05 06 07 08"), {6, 2}},
        {"one colour, one width", hex("06 00 01 02 03 04"), {3, 1}},
        {"five rows", joined({hex("28 02 01 02 03 04 05 06"), Bytes(20, 7)}), {6, 20}},
        {"both blocks", hex("06 05 01 02 03 04 07 41 42 00 08 01 02 03"), {3, 1, 4, 4}},
        {"no layout", hex("02 01 04 03 41"), {0, 1, 2}, 1},
        {"surplus passes in silence", hex("06 00 01 02 03 04"), {3, 1}, 0, hex("AA BB")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto opened = open(TypBuilder()
                                     .data(kPolylineData, joined({c.record, c.surplus}))
                                     .index(kPolylineIndex, 3, hex("20 00 00"))
                                     .file());
        const Polyline& line = opened.document.Polyline.at(0);
        const std::array<std::size_t, 4> sizes{line.Couleurs.size(), line.Bitmap.size(),
                                               line.Strings.size(), line.ExtendedLabels.size()};
        EXPECT_EQ(sizes, c.sizes);
        EXPECT_EQ(opened.journal.errorCount(), c.errors);
        EXPECT_EQ(opened.journal.warningCount(), 0);
        EXPECT_EQ(line.Longueur, static_cast<std::int32_t>(c.record.size()));
        EXPECT_EQ(savedRecord(opened.document), c.record);
    }
}

TEST(PolylineRecords, OrdinaryLinesComeFirstThenActiveRoutingByActivity) {
    Bytes data;
    for (std::uint8_t i = 0; i < 5; ++i) {
        data.insert(data.end(), {0x06, 0x00, i, i, i, 1});
    }
    const auto opened = open(
        TypBuilder(174)
            .data(kPolylineData, data)
            .index(kPolylineIndex, 3, hex("80 00 00 20 00 06"))
            .index(kActiveRoutingIndex, 5, hex("80 00 05 00 0C  60 00 04 02 12  80 00 04 00 18"))
            .file());
    std::string order;
    for (const Polyline& line : opened.document.Polyline) {
        order += std::to_string(line.Couleurs[0]);
    }
    EXPECT_EQ(order, "10432");
    EXPECT_EQ(opened.document.NbPolylinesAR(), 3);
    const Bytes written = save(opened.document);
    // Data by type, Active Routing first within one; index entries by activity, then type.
    EXPECT_EQ(Bytes(written.begin() + 174 + 30, written.end()),
              hex("20 00 00 80 00 18  80 00 04 00 0C 60 00 04 02 06 80 00 05 00 12"));
    EXPECT_EQ(open(written).document.Polyline[2].Couleurs[0], 4);
    EXPECT_EQ(save(open(written).document), written);
}

}  // namespace
}  // namespace quillmark
