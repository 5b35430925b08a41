#include <gtest/gtest.h>

#include "support/test_files.h"
#include "text/labels.h"
#include "text_test_tools.h"

namespace quillmark {
namespace {

using namespace testing;

TEST(ParserKeys, TypesInAllSpellings) {
    struct Case {
        const char* lines;
        const char* type;
        const char* subtype;
        int errors;
    };
    const std::vector<Case> cases{
        {"Type=0x10f04", "10f", "04", 0},
        {"type=0X10F04", "10f", "04", 0},
        {"TYPE=10f04", "10f", "04", 0},
        {"Type=0x10d1", "010", "00", 1},  // "d1" is no subtype
        {"Type=0x2a05", "02a", "05", 0},
        {"Type=0x3", "003", "00", 0},
        {"Type=04a", "04a", "00", 0},
        {"Type= 0x10d\nSubType= 0x1a", "10d", "1a", 0},
        {"Type=0x10d\nsubtype=3", "10d", "03", 0},
        {"Type=0x10d1a\nSubType=0x20", "10d", "1a", 1},
        {"Type = 0x10f04", "000", "00", 1},  // no type line
        {"Type=0xzz", "000", "00", 2},
    };
    for (const Case& c : cases) {
        const ParsedText parsed = parseText(std::string("[_point]\n") + c.lines + "\n[end]\n");
        ASSERT_EQ(parsed.document.POI.size(), 1U);
        EXPECT_EQ(parsed.document.POI[0].Type, c.type) << c.lines;
        EXPECT_EQ(parsed.document.POI[0].SubType, c.subtype) << c.lines;
        EXPECT_EQ(parsed.journal.errorCount(), c.errors) << c.lines;
    }
}

TEST(ParserKeys, Labels) {
    struct Case {
        const char* lines;
        std::vector<Label> labels;
    };
    const std::vector<Case> cases{
        {"String1=0x04,Sentier\nstring2=0X2,Footpath", {{4, "Sentier"}, {2, "Footpath"}}},
        {"String=Café, bar", {{0, "Café, bar"}}},
        {"String=04", {{4, ""}}},
        {"String=cafe", {{0, "cafe"}}},  // a number above any language
        {"String=0x04,", {{4, ""}}},
        {"String=0x04,a,b,", {{4, "a,b"}}},
        {"String=0x04,a=b", {{4, "a"}}},
        {"String=0x04,Gleis 0x12", {{4, "Gleis 12"}}},
        {"String=0x04,vor;nach", {{4, "vor"}}},
        {"String1=0x04,a\n\n; comment\nString2=0x02,b", {{4, "a"}, {2, "b"}}},
        {"String:0x04,a", {{4, "a"}}},
        {"String1=0x04,a\nComment=x\nString2=0x02,b", {{2, "b"}}},  // a second run replaces
    };
    for (const Case& c : cases) {
        const Polygone polygon =
            polygonOf(std::string(c.lines) + "\nXpm=\"0 0 1 0\"\n\"1 c #000000\"");
        EXPECT_EQ(decodeStrings(polygon.Strings, 1252), c.labels) << c.lines;
        EXPECT_EQ(polygon.Entete & 0x10, 0x10) << c.lines;
    }
    Journal journal;
    EXPECT_EQ(polygonOf("String1\nXpm=\"0 0 1 0\"\n\"1 c #000000\"").Entete, 6)
        << "no label, no block";
    (void)polygonOf("String=0x04,Лес\nXpm=\"0 0 1 0\"\n\"1 c #000000\"", &journal);
    EXPECT_EQ(journal.warningCount(), 1) << "lost characters are told";
}

TEST(ParserKeys, ExtendedLabels) {
    struct Case {
        const char* lines;
        const char* block;
    };
    const std::vector<Case> cases{
        {"FontStyle=SmallFont", "02"},
        {"FontStyle=NoLabel (invisible)\nCustomColor=No\nContourColor=No", "01"},
        {"FontStyle:largefont\nCustomColor=DayAndNight\nDaycustomColor:#102030\n"
         "NightcustomColor=#405060",
         "1C 30 20 10 60 50 40"},
        {"FontStyle=Default\nCustomColor=Day\nContourColor=Day\nDayContourColor:#010203",
         "28 00 00 00 07 03 02 01"},  // a colour that is missing is black
        {"CustomColor=Night\n\nNightcustomColor:#0A0B0C\nContourColor=DayAndNight\n"
         "DayContourColor:#111213\nNightContourColor:#212223",
         "70 0C 0B 0A 0D 13 12 11 23 22 21"},
    };
    for (const Case& c : cases) {
        // A key behind the positions is seen again by the section.
        const POI point =
            pointOf(std::string("ExtendedLabels=Y\n") + c.lines + "\nCustomMPCName=n");
        EXPECT_EQ(point.ExtendedLabels, hex(c.block)) << c.lines;
        EXPECT_EQ(point.Entete & 0x08, 0x08);
        EXPECT_EQ(point.CustomMPCName, "n") << c.lines;
    }
    EXPECT_TRUE(pointOf("ExtendedLabels=N").ExtendedLabels.empty());
}

TEST(ParserKeys, IdentityCommentsAndDrawOrder) {
    const ParsedText parsed = parseText(
        "[_id]\nProductCode=0x1\nFID=0xFFFF\nCodePage=1251\n[End][_comments]\n\n; gone\n"
        "Carte\n\nversion 3\n[End]\n[_drawOrder]\ntype=0x10F04,2\nType=0x3,1\nType=0x1105,3\n"
        "Type=0xzz,1\nType=0x05\nType=7 , 4\n"
        "Type=0x10e,SubType=0x05,6\nType=0x10e44,6\n[end]\n");
    EXPECT_EQ(parsed.document.ProductCode, "1");
    EXPECT_EQ(parsed.document.FID, "65535");
    EXPECT_EQ(parsed.document.CodePage, 1251);
    EXPECT_EQ(parsed.document.Commentaire, "Carte\r\n\r\nversion 3");
    EXPECT_EQ(parsed.document.ListDraworder,
              (std::vector<std::string>{"Type=0x003,1", "Type=0x10f,SubType=0x04,2",
                                        "Type=0x011,SubType=0x05,3", "Type=0x007,4",
                                        "Type=0x10e,SubType=0x05,6"}));
    EXPECT_EQ(parsed.journal.errorCount(), 3);
    EXPECT_EQ(parsed.journal.entries()[0].text, "\r\nLigne 16 : \"Type=0xzz,1\"");
}

TEST(ParserKeys, CodePages) {
    struct Case {
        const char* value;
        int page;
        bool error;
    };
    for (const Case& c :
         {Case{"1252", 1252, false}, Case{"437", 437, false}, Case{"4711", 1252, true},
          Case{"-1", 1252, true}, Case{"abc", 1252, true}, Case{"65001", 65001, false}}) {
        const ParsedText parsed = parseText(std::string("[_id]\nCodePage=") + c.value + "\n[end]");
        EXPECT_EQ(parsed.document.CodePage, c.page) << c.value;
        EXPECT_EQ(parsed.journal.ErreurFlag(), c.error) << c.value;
    }
}

TEST(ParserKeys, SectionsThatEndEarly) {
    struct Case {
        const char* text;
        std::size_t points;
        int errors;
    };
    const std::vector<Case> cases{
        {"[_point]\nType=1\n[_point]\nType=2\n[end]", 2, 1},
        {"[_point]\nType=1\nDayXpm=\"2 2 2 1\"\n\"! c #000000\"\n[end]\n[_point]\nType=2\n[end]", 2,
         1},
        {"[_point]\nType=1\nDayXpm=\"2 2 1 1\"\n\"! c #000000\"\n\"!!\"\n[end]", 1, 1},
        {"[_point]\nType=1\nDayXpm=\"2 2 0 1\"\n\n\"#000000\"\n[_point]\nType=2\n[end]", 2, 1},
        {"[_point]\nType=1\n[end][_point]\nType=2\n[end]   \"rest\"", 2, 0},
        {"[_point]\nType=1", 1, 1},
        {"[_point]\nDayXpm=\"2 2 1 1\"\n\"! c #000011\"\n\"!!\"", 1, 1},
        {"[_comments]\nhow to write:\n[_line]\nmore\n[end]\n[_point]\nType=1\n[end]", 1, 0},
        {"[_comments]\n[_polygon] comes from X\n[end]\n[_point]\nType=1\n[end]", 1, 0},
        {"[_drawOrder]\nType=1,1\n[_point]\nType=1\n[end]", 1, 1},
        {"[_comments]\nno end\n[_point]\nType=1\n[end]", 1, 1},
    };
    for (const Case& c : cases) {
        const ParsedText parsed = parseText(c.text);
        EXPECT_EQ(parsed.document.POI.size(), c.points) << c.text;
        EXPECT_EQ(parsed.journal.errorCount() > 0, c.errors > 0) << c.text;
    }
}

TEST(ParserKeys, FaultsAreToldAtTheirLines) {
    struct Case {
        const char* lines;  // of a line's section, from the third on
        int line;
    };
    const std::vector<Case> cases{
        {"LineWidth=200\nBorderWidth=100\nXpm=\"0 0 2 0\"\n\"1 c #000000\"\n\"2 c #000000\"", 4},
        {"Comment=x\nLineWidth=x\nXpm=\"0 0 1 0\"\n\"1 c #000000\"", 4},
        {"LineWidth=1\nBorderWidth=2\nXpm=\"0 0 1 0\"\n\"1 c #000000\"", 4},
        {"\nXpm=\"0 0 5 0\"\n\"1 c #000000\"\n\"2 c #000000\"\n\"3 c #000000\"\n"
         "\"4 c #000000\"\n\"5 c #000000\"",
         4},
        {"String=0x04,a\nString=0x04,Лес\nXpm=\"0 0 1 0\"\n\"1 c #000000\"", 4},
        {"LineWidth=1", 1},
        {"Xpm=\"32 1 2 1\"\n\"! c #000000\"\n\"  c none\"\n\"!                               \"\n"
         "\"!\"\n\"!\"",
         7},
    };
    for (const Case& c : cases) {
        Journal journal;
        (void)lineOf(c.lines, &journal);
        ASSERT_EQ(journal.entries().size(), 1U) << c.lines;
        EXPECT_EQ(journal.entries()[0].line, c.line) << c.lines;
    }
    EXPECT_EQ(
        parseText("[_line]\nType=1\nXpm=\"0 0 1 0\"\n\"1 c #000000\"").journal.entries().at(0).line,
        4)
        << "a text that ends too early: its last line";
}

TEST(ParserKeys, NoMoreObjectsThanAFileHolds) {
    std::string text;
    for (int i = 0; i < kMaxObjects + 2; ++i) {
        text += "[_point]\nType=1\n[end]\n";
    }
    const ParsedText parsed = parseText(text);
    EXPECT_EQ(parsed.document.POI.size(), static_cast<std::size_t>(kMaxObjects));
    EXPECT_EQ(parsed.journal.errorCount(), 1);
}

TEST(ParserKeys, ActiveRoutingStandsBehindOrdinaryLines) {
    const ParsedText parsed = parseText(
        "[_line]\nType=1\nActivity=Hiking\nXpm=\"0 0 1 0\"\n\"1 c #000000\"\n[end]\n"
        "[_line]\nType=2\nXpm=\"0 0 1 0\"\n\"1 c #000000\"\n[end]\n"
        "[_line]\nType=3\nActivity=swimming\nXpm=\"0 0 1 0\"\n\"1 c #000000\"\n[end]\n"
        "[_line]\nType=4\nActivity=\nXpm=\"0 0 1 0\"\n\"1 c #000000\"\n[end]\n");
    const auto& lines = parsed.document.Polyline;
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0].Type, "002");
    EXPECT_EQ(lines[1].Type, "004");
    EXPECT_EQ(lines[2].ActiveRouting, (std::array<std::uint8_t, 2>{5, 0}));
    EXPECT_EQ(lines[3].ActiveRouting, (std::array<std::uint8_t, 2>{255, 10}));
    EXPECT_EQ(parsed.document.NbPolylines(), 2);
    EXPECT_EQ(parsed.document.NbPolylinesAR(), 2);
}

}  // namespace
}  // namespace quillmark
