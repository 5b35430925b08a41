#include "text/recode.h"

#include <gtest/gtest.h>

#include "support/test_files.h"
#include "text/labels.h"

namespace quillmark {
namespace {

using testing::hex;

Bytes block(const std::string& label, int codePage) {
    return encodeStrings({{0x01, label}, {0x04, "plain"}}, codePage).Strings;
}

TEST(Recode, EveryLabelMovesToTheNewPage) {
    Document document;
    document.Polygone.resize(2);
    document.Polyline.resize(1);
    document.POI.resize(1);
    document.ExtraPOI.resize(2);
    document.ExtraPOI[1].POI.resize(2);
    const std::vector<std::pair<Bytes*, std::string>> labels{
        {&document.Polygone[1].Strings, "Forêt"},
        {&document.Polyline[0].Strings, "Fußweg"},
        {&document.POI[0].Strings, "Œuvre"},
        {&document.ExtraPOI[1].POI[1].Strings, "Café"}};
    for (const auto& [Strings, label] : labels) {
        *Strings = block(label, 1252);
    }
    document.LabelsStrings = testing::bytesOf(std::string_view("\xE9t\xE9\0a\0", 6));
    const Document before = document;

    EXPECT_TRUE(recodeLabels(document, 65001).empty());
    EXPECT_EQ(document.CodePage, 65001);
    for (const auto& [Strings, label] : labels) {
        EXPECT_EQ(*Strings, block(label, 65001));
    }
    EXPECT_EQ(document.LabelsStrings, testing::bytesOf(std::string_view("été\0a\0", 8)));
    EXPECT_TRUE(recodeLabels(document, 1252).empty());
    EXPECT_EQ(document, before);
}

TEST(Recode, WhatThePageLacksOrABlockCannotHoldIsToldWithItsPlace) {
    Document document;
    document.CodePage = 65001;
    document.Polygone.resize(3);
    document.Polygone[2].Strings = block("Лес", 65001);
    document.ExtraPOI.resize(1);
    document.ExtraPOI[0].POI.resize(2);
    document.ExtraPOI[0].POI[1].Strings = block("日本", 65001);
    const auto losses = recodeLabels(document, 1252);
    ASSERT_EQ(losses.size(), 2U);
    EXPECT_EQ(losses[0].kind, ObjectKind::Polygone);
    EXPECT_EQ(losses[0].index, 2);
    EXPECT_EQ(losses[0].lost, 3U);
    EXPECT_EQ(losses[1].kind, ObjectKind::ExtraPOI);
    EXPECT_EQ(losses[1].index, 0);
    EXPECT_EQ(losses[1].member, 1);
    EXPECT_EQ(document.Polygone[2].Strings, block("???", 1252));

    std::string umlauts;
    for (int i = 0; i < 9000; ++i) {
        umlauts += "ä";
    }
    document.Polygone[2].Strings = block(umlauts, 1252);
    EXPECT_TRUE(recodeLabels(document, 65001).at(0).cut);
    EXPECT_LE(document.Polygone[2].Strings.size(), kMaxStringsSize + 2);
}

TEST(Recode, BlocksOfPlainLettersStayAsTheyAre) {
    // A prefix of two bytes where one would do, padding behind the last label, an empty block.
    const std::vector<Bytes> odd{hex("12 00 01 61 62 00"), hex("0b 01 61 62 00 00"), hex("01"), {}};
    for (const Bytes& Strings : odd) {
        Document document;
        document.POI.resize(1);
        document.POI[0].Strings = Strings;
        EXPECT_TRUE(recodeLabels(document, 1251).empty());
        EXPECT_EQ(document.POI[0].Strings, Strings);
    }
}

}  // namespace
}  // namespace quillmark
