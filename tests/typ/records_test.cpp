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

TEST(Blocks, CutShortTheyStayReadable) {
    for (auto* const read : {readStrings, readExtendedLabels}) {
        for (const char* text : {"", "0B 41", "52", "52 00 41", "78 01", "60", "18"}) {
            const Bytes data = hex(text);
            PartReader parts(data, 0);
            Bytes block = read(parts);
            EXPECT_EQ(parts.failures().size(), 1U) << text;
            const Bytes expected = block;
            block.resize(block.size() + 40, 0xFF);
            PartReader again(block, 0);
            EXPECT_EQ(read(again), expected) << text;
        }
    }
}

TypBuilder onePolygon(const Bytes& record) {
    return TypBuilder().data(kPolygonData, record).index(kPolygonIndex, 3, hex("24 22 00"));
}

Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

TEST(PolygonRecords, LengthsAndWarnings) {
    const std::string object = "Erreur dans la lecture du polygone 0x111/04";
    const std::string unknownType = "W Attention: Polygone de type inconnu. Son header est: ";
    const Bytes pattern(128, 0xA5);
    struct Case {
        Bytes record;
        std::size_t kept;
        std::vector<std::string> told;
    };
    const std::vector<Case> cases{
        {hex("06 01 02 03"), 4, {}},
        {hex("00 01 02 03 04 05 06"), 7, {unknownType + "0    "}},
        {joined({hex("0D 01 02 03 04 05 06 07 08 09"), pattern}), 138, {}},
        {hex("76 01 02 03 03 41 00 80"), 8, {}},
        {hex("46 01 02 03 99"), 5, {}},
        {hex("86 01 02 03"),
         4,
         {"W Attention: Flags inconnus dans le header du polygone, " + object +
          ", 86, 0000005B    "}},
        {hex("06 01 02 03 AB 0C"),
         4,
         {"W Attention: Données inconnues dans le polygone, " + object + ", AB 0C     "}},
        {joined({hex("0A"), pattern}),
         129,
         {"E " + object +
              " erreur n°9|Description: nombre de couleurs inconnu, en-tête 10|Procedure: ouvrir   "
              "|Module: frmMain",
          unknownType + "10    "}},
    };
    for (const Case& c : cases) {
        const auto opened = open(onePolygon(c.record).file());
        ASSERT_EQ(opened.document.Polygone.size(), 1U);
        const Polygone& polygon = opened.document.Polygone[0];
        EXPECT_EQ(polygon.Type + polygon.SubType, "11104");
        EXPECT_EQ(polygon.Longueur, static_cast<std::int32_t>(c.record.size()));
        EXPECT_EQ(told(opened.journal), c.told);
        const Bytes kept(c.record.begin(), c.record.begin() + static_cast<long>(c.kept));
        const Bytes written = save(opened.document);
        EXPECT_EQ(Bytes(written.begin() + 91, written.end() - 3), kept);
    }
}

TEST(PolygonRecords, LengthIsTheDistanceToTheNextOffsetWhereverThatIs) {
    // Two entries share a record; the index isn't in the order of the data.
    const Bytes data = hex("06 01 02 03 06 04 05 06 07 07 07");
    const auto opened = open(TypBuilder()
                                 .data(kPolygonData, data)
                                 .index(kPolygonIndex, 3, hex("20 00 04 40 00 00 60 00 00"))
                                 .file());
    std::vector<std::int32_t> lengths;
    for (const Polygone& polygon : opened.document.Polygone) {
        lengths.push_back(polygon.Longueur);
    }
    EXPECT_EQ(lengths, (std::vector<std::int32_t>{7, 4, 4}));
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
    const Bytes once = save(opened.document);
    EXPECT_EQ(save(open(once).document), once);
}

TEST(PolylineRecords, PartsFollowTheTwoHeaderBytes) {
    struct Case {
        const char* what;
        Bytes record;
        std::size_t colours, bitmap, strings, extended;
        int errors;
    };
    const std::vector<Case> cases{
        {"two colours, width and border", hex("00 00 01 02 03 04 05 06 07 08"), 6, 2, 0, 0, 0},
        {"one colour, one width", hex("06 00 01 02 03 04"), 3, 1, 0, 0, 0},
        {"five rows", joined({hex("28 02 01 02 03 04 05 06"), Bytes(20, 7)}), 6, 20, 0, 0, 0},
        {"both blocks", hex("06 05 01 02 03 04 07 41 42 00 08 01 02 03"), 3, 1, 4, 4, 0},
        {"no layout", hex("02 01 04 03 41"), 0, 1, 2, 0, 1},
        {"surplus passes in silence", hex("06 00 01 02 03 04 AA BB"), 3, 1, 0, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto opened = open(TypBuilder()
                                     .data(kPolylineData, c.record)
                                     .index(kPolylineIndex, 3, hex("20 00 00"))
                                     .file());
        const Polyline& line = opened.document.Polyline.at(0);
        EXPECT_EQ(line.Couleurs.size(), c.colours);
        EXPECT_EQ(line.Bitmap.size(), c.bitmap);
        EXPECT_EQ(line.Strings.size(), c.strings);
        EXPECT_EQ(line.ExtendedLabels.size(), c.extended);
        EXPECT_EQ(opened.journal.errorCount(), c.errors);
        EXPECT_EQ(opened.journal.warningCount(), 0);
        const Bytes written = save(opened.document);
        const std::size_t length = 2 + c.colours + c.bitmap + c.strings + c.extended;
        EXPECT_EQ(line.Longueur, static_cast<std::int32_t>(length));
        EXPECT_EQ(Bytes(written.begin() + 91, written.end() - 3),
                  Bytes(c.record.begin(), c.record.begin() + static_cast<long>(length)));
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
