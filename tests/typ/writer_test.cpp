#include <gtest/gtest.h>

#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

Document minimal() {
    Document document;
    document.FID = "2500";
    document.ProductCode = "1";
    return document;
}

// One colour; a block of names brings the record to `length` bytes.
Polygone polygonOfLength(int identity, std::size_t length) {
    Polygone polygon;
    setIdentity(polygon.Type, polygon.SubType, static_cast<std::uint16_t>(identity));
    polygon.Entete = 0x06;
    polygon.Couleurs = {1, 2, 3};
    if (length > 4) {
        polygon.Entete = 0x16;
        polygon.Strings.resize(length - 4);
        polygon.Strings[0] = static_cast<std::uint8_t>((length - 6) * 4 + 2);
        polygon.Strings[1] = static_cast<std::uint8_t>(((length - 6) * 4 + 2) >> 8);
    }
    return polygon;
}

TEST(Writer, HeaderOfAnEmptyDocument) {
    const Bytes file = save(minimal());
    Bytes expected(91);
    const Bytes start = hex("5B 00 47 41 52 4D 49 4E 20 54 59 50 01 00 E8 07 05 06 07 08 09 E4 04");
    std::copy(start.begin(), start.end(), expected.begin());
    expected[47] = 0xC4;
    expected[48] = 0x09;
    expected[49] = 1;
    EXPECT_EQ(file, expected);
}

TEST(Writer, EntrySizesFollowTheSizeOfTheData) {
    struct Case {
        std::size_t dataSize;
        std::uint16_t entrySize;
    };
    for (const Case c : {Case{255, 3}, Case{256, 4}, Case{65535, 4}, Case{65536, 5}}) {
        Document document = minimal();
        std::size_t left = c.dataSize;
        while (left > 15000) {
            document.Polygone.push_back(polygonOfLength(32, 10000));
            left -= 10000;
        }
        document.Polygone.push_back(polygonOfLength(64, left - 4));
        document.Polygone.push_back(polygonOfLength(96, 4));
        const auto opened = open(save(document));
        EXPECT_EQ(opened.document.EnteteTYP.polygonData.size, c.dataSize);
        EXPECT_EQ(opened.document.EnteteTYP.polygonIndex.entrySize, c.entrySize);
        EXPECT_TRUE(opened.journal.entries().empty());
        EXPECT_EQ(opened.document.Polygone.back().Offset, std::to_string(c.dataSize - 4));
    }
}

TEST(Writer, SortsAreStableAndByValue) {
    Document document = minimal();
    for (const auto& [identity, mark] : std::vector<std::pair<int, std::uint8_t>>{
             {64, 1}, {0x7FFF, 2}, {32, 3}, {64, 4}, {33, 5}}) {
        document.Polygone.push_back(polygonOfLength(identity, 4));
        document.Polygone.back().Couleurs[0] = mark;
    }
    const WrittenTyp written = CreerTYP(document, kNow);
    std::string order;
    for (const Polygone& polygon : written.document.Polygone) {
        order += std::to_string(polygon.Couleurs[0]);
    }
    EXPECT_EQ(order, "35142");
    Document reread = open(written.file).document;
    EXPECT_EQ(reread, written.document) << "the document stands as the file has it";
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
    struct Case {
        std::int32_t size;
        bool groups, labels, bloc, activeRouting;
    };
    for (const Case c :
         {Case{91, false, false, false, false}, Case{110, true, false, false, false},
          Case{156, true, true, false, false}, Case{164, true, true, true, false},
          Case{174, true, true, true, true}, Case{100, false, false, false, false}}) {
        SCOPED_TRACE(c.size);
        document.TailleEntete = c.size;
        const WrittenTyp written = CreerTYP(document, kNow);
        const Document reread = open(written.file).document;
        EXPECT_EQ(reread.ExtraPOI.size(), c.groups ? 1U : 0U);
        EXPECT_EQ(reread.LabelsStrings.empty(), !c.labels);
        EXPECT_EQ(reread.BlocBrut.empty(), !c.bloc);
        EXPECT_EQ(reread.NbPolylinesAR(), c.activeRouting ? 1 : 0);
        EXPECT_EQ(reread.NbPolylines(), 1);
        EXPECT_EQ(written.document.Polyline.size(), reread.Polyline.size());
        EXPECT_EQ(written.document.LabelsStrings, document.LabelsStrings)
            << "a longer header may hold them again";
    }
}

TEST(Writer, RefusesWhatCannotBeStored) {
    const auto number = [](const Document& document) {
        try {
            (void)save(document);
        } catch (const Failure& failure) {
            return static_cast<int>(failure.number());
        }
        return 0;
    };
    Document document = minimal();
    EXPECT_EQ(number(document), 0);
    for (const char* bad : {"65536", "-1", "12a", "", " 1"}) {
        document.FID = bad;
        EXPECT_EQ(number(document), 13) << bad;
    }
    document = minimal();
    document.Polygone = {polygonOfLength(32, 4)};
    document.Polygone[0].Type = "3ff";
    EXPECT_EQ(number(document), 0);
    document.Polygone[0].Type = "400";
    EXPECT_EQ(number(document), 6);
    document = minimal();
    document.POI.resize(1);
    document.POI[0].Type = "400";
    EXPECT_EQ(number(document), 6);
    document = minimal();
    document.Polyline.resize(1);
    document.Polyline[0].Type = "7ff";
    EXPECT_EQ(number(document), 0) << "lines have all 16 bits";
    document = minimal();
    document.Polygone.assign(1100, polygonOfLength(32, 16000));
    EXPECT_EQ(number(document), 6) << "offsets of three bytes";
    document = minimal();
    document.POI.resize(32768);
    EXPECT_EQ(number(document), 6);
    document = minimal();
    document.TailleEntete = 110;
    document.ExtraPOI.resize(1);
    document.ExtraPOI[0].POI.resize(256);
    EXPECT_EQ(number(document), 6);
}

}  // namespace
}  // namespace quillmark
