#include <gtest/gtest.h>

#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

// One colour; a block of names brings the record to `length` bytes.
Polygone polygonOfLength(int identity, std::size_t length) {
    Polygone polygon;
    setIdentity(polygon.Type, polygon.SubType, static_cast<std::uint16_t>(identity));
    polygon.Entete = 0x06;
    polygon.Couleurs = {1, 2, 3};
    if (length > 4) {
        ByteWriter block;
        block.u16(static_cast<std::uint32_t>((length - 6) * 4 + 2));
        block.zeros(length - 6);
        polygon.Entete = 0x16;
        polygon.Strings = block.release();
    }
    return polygon;
}

TEST(Writer, HeaderOfAnEmptyDocument) {
    Document document = minimal();
    document.FID = "2500";
    Bytes expected = hex("5B 00 47 41 52 4D 49 4E 20 54 59 50 01 00 E8 07 05 06 07 08 09 E4 04");
    expected.resize(91);
    expected[47] = 0xC4;
    expected[48] = 0x09;
    expected[49] = 1;
    EXPECT_EQ(save(document), expected);
}

TEST(Writer, EntrySizesFollowTheSizeOfTheData) {
    const std::vector<std::pair<std::size_t, std::uint16_t>> cases{
        {255, 3}, {256, 4}, {65535, 4}, {65536, 5}};
    for (const auto& [dataSize, entrySize] : cases) {
        Document document = minimal();
        std::size_t left = dataSize - 4;
        for (; left > 15000; left -= 10000) {
            document.Polygone.push_back(polygonOfLength(32, 10000));
        }
        document.Polygone.push_back(polygonOfLength(64, left));
        document.Polygone.push_back(polygonOfLength(96, 4));
        const auto opened = open(save(document));
        EXPECT_EQ(opened.document.EnteteTYP.polygonData.size, dataSize);
        EXPECT_EQ(opened.document.EnteteTYP.polygonIndex.entrySize, entrySize);
        EXPECT_TRUE(opened.journal.entries().empty());
        EXPECT_EQ(opened.document.Polygone.back().Offset, std::to_string(dataSize - 4));
    }
}

TEST(Writer, SortsAreStableAndByValue) {
    Document document = minimal();
    std::uint8_t mark = 0;
    for (const int identity : {64, 0x7FFF, 32, 64, 33}) {
        document.Polygone.push_back(polygonOfLength(identity, 4));
        document.Polygone.back().Couleurs[0] = ++mark;
    }
    const WrittenTyp written = CreerTYP(document, kNow);
    std::string order;
    for (const Polygone& polygon : written.document.Polygone) {
        order += std::to_string(polygon.Couleurs[0]);
    }
    EXPECT_EQ(order, "35142");
    EXPECT_EQ(open(written.file).document, written.document);
}

TEST(Writer, WhatTheHeaderDoesNotHoldIsLeftOut) {
    Document document = minimal();
    Polyline line;
    line.Type = "001";
    line.SubType = "00";
    line.Entete = 0x06;
    line.Couleurs = {1, 2, 3};
    line.Bitmap = {4};
    document.Polyline = {line, line};
    document.Polyline[1].ActiveRouting = {4, 0};
    document.ExtraPOI.resize(1);
    document.ExtraPOI[0].POI.resize(1);
    document.LabelsStrings = bytesOf("label");
    document.BlocBrut = {1, 2, 3};
    for (const std::int32_t size : {91, 100, 110, 156, 164, 174}) {
        SCOPED_TRACE(size);
        document.TailleEntete = size;
        const WrittenTyp written = CreerTYP(document, kNow);
        const Document reread = open(written.file).document;
        EXPECT_EQ(reread.ExtraPOI.size(), size >= 110 ? 1U : 0U);
        EXPECT_EQ(reread.LabelsStrings.empty(), size < 156);
        EXPECT_EQ(reread.BlocBrut.empty(), size < 164);
        EXPECT_EQ(reread.NbPolylinesAR(), size >= 174 ? 1 : 0);
        EXPECT_EQ(reread.NbPolylines(), 1);
        EXPECT_EQ(written.document.Polyline.size(), reread.Polyline.size());
        EXPECT_EQ(written.document.LabelsStrings, reread.LabelsStrings);
        EXPECT_EQ(written.document.BlocBrut, reread.BlocBrut);
    }
}

TEST(Writer, RefusesWhatCannotBeStored) {
    // The number of the failure that a change makes, 0 for none.
    const auto number = [](auto change) {
        Document document = minimal(110);
        change(document);
        try {
            (void)save(document);
        } catch (const Failure& failure) {
            return static_cast<int>(failure.number());
        }
        return 0;
    };
    for (const char* bad : {"65536", "-1", "12a", "", " 1"}) {
        EXPECT_EQ(number([&](Document& d) { d.FID = bad; }), 13) << bad;
    }
    struct Identity {
        const char* type;
        const char* subType;
        int polygon, line, poi;
    };
    for (const Identity& id : {Identity{"3ff", "1f", 0, 0, 0}, Identity{"400", "00", 6, 0, 6},
                               Identity{"7ff", "1f", 6, 0, 6}, Identity{"801", "00", 6, 6, 6},
                               Identity{"103", "25", 6, 6, 6}}) {
        const auto name = [&](auto& objects) {
            objects.resize(1);
            objects[0].Type = id.type;
            objects[0].SubType = id.subType;
        };
        EXPECT_EQ(number([&](Document& d) { name(d.Polygone); }), id.polygon) << id.type;
        EXPECT_EQ(number([&](Document& d) { name(d.Polyline); }), id.line) << id.type;
        EXPECT_EQ(number([&](Document& d) { name(d.POI); }), id.poi) << id.type;
    }
    const auto large = polygonOfLength(32, 16000);
    EXPECT_EQ(number([&](Document& d) { d.Polygone.assign(1100, large); }), 6) << "offsets";
    EXPECT_EQ(number([](Document& d) { d.POI.resize(32768); }), 6);
    EXPECT_EQ(number([](Document& d) { d.ExtraPOI.resize(1), d.ExtraPOI[0].POI.resize(256); }), 6);
}

}  // namespace
}  // namespace quillmark
