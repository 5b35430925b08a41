#include <gtest/gtest.h>

#include "support/test_files.h"
#include "text_test_tools.h"

namespace quillmark {
namespace {

using namespace testing;

std::string rows(std::size_t count, const std::string& row) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += "\n\"" + row + "\"";
    }
    return text;
}

const std::string kHalf = std::string(16, '!') + std::string(16, ' ');

TEST(ParserPictures, LayoutsOfPolygons) {
    struct Case {
        std::string lines;
        int Entete;
        const char* colours;
        const char* firstRow;
        bool faulty;
    };
    const std::vector<Case> cases{
        {"Xpm=\"0 0 1 0\"\n\"1 c #102030\"", 0x06, "30 20 10", "", false},
        {"Xpm=\"0 0 2 0\"\n\"1 c #102030\"\n\"2 c #405060\"", 0x07, "30 20 10 60 50 40", "", false},
        {"Xpm=\"0 0 2 0\"\n\"! c #102030\"\n\"  c none\"", 0x06, "30 20 10", "", false},
        {"Xpm=\"32 32 2 1\"\n\"! c #010101\"\n\"# c #020202\"" +
             rows(32, std::string(16, '!') + std::string(16, '#')),
         0x08, "01 01 01 02 02 02", "FF FF 00 00", false},
        {"Xpm=\"32  32 2 1\"\n\"!   c\t#010101\"\n\"  c None\"" + rows(32, kHalf), 0x0E, "01 01 01",
         "FF FF 00 00", false},
        {"Xpm=\"32 32 2 1\"\n\"  c none\"\n\"! c #010101\"" + rows(32, kHalf), 0x0E, "01 01 01",
         "FF FF 00 00", false},
        {"Xpm=\"32 32 1 1\"\n\"! c #010101\"" + rows(32, std::string(32, '!')), 0x0E, "01 01 01",
         "FF FF FF FF", false},
        {"Xpm=\"32 32 4 1\"\n\"! c #010101\"\n\"  c none\"\n\"3 c #030303\"\n\"4 c #040404\"" +
             rows(32, kHalf),
         0x0B, "01 01 01 03 03 03 04 04 04", "FF FF 00 00", false},
        {"Xpm=\"32 32 4 1\"\n\"c c #010101\"\n\"# c #020202\"\n\"3 c #030303\"\n\"4 c none\"" +
             rows(32, std::string(8, 'c') + std::string(24, '#')),
         0x0D, "01 01 01 02 02 02 03 03 03", "FF 00 00 00", false},
        {"Xpm=\"32 32 4 1\"\n\"! c #010101\"\n\"  c none\"\n\"3 c #030303\"\n\"4 c none\"" +
             rows(32, kHalf),
         0x0F, "01 01 01 03 03 03", "FF FF 00 00", false},
        {"Xpm=\"32 32 4 1\"\n\"  c none\"\n\"! c #010101\"\n\"3 c #030303\"\n\"4 c #040404\"" +
             rows(32, kHalf),
         0x0B, "01 01 01 04 04 04 03 03 03", "FF FF 00 00", false},
        {"Xpm=\"32 32 4 1\"\n\"! c #010101\"\n\"# c #020202\"\n\"3 c none\"\n\"4 c #040404\"" +
             rows(32, std::string(32, '!')),
         0x0D, "01 01 01 02 02 02 04 04 04", "FF FF FF FF", true},
        {"Xpm=\"0 0 1 0\"\n\"1 c #10x030\"", 0x06, "30 00 10", "", true},
        {"", 0x06, "00 00 00", "", true},
        {"Xpm=\"32 32 2 1\"\n\"! c #010101\"\n\"# c #020202\"" + rows(32, std::string(32, '?')),
         0x08, "01 01 01 02 02 02", "00 00 00 00", true},
        {"Xpm=\"32 32 2 1\"\n\"! c #010101\"\n\"# c #020202\"" + rows(31, std::string(32, '!')),
         0x08, "01 01 01 02 02 02", "FF FF FF FF", true},
    };
    for (const Case& c : cases) {
        Journal journal;
        const Polygone polygon = polygonOf(c.lines, &journal);
        EXPECT_EQ(polygon.Entete, c.Entete) << c.lines.substr(0, 120);
        EXPECT_EQ(polygon.Couleurs, hex(c.colours)) << c.lines.substr(0, 120);
        if (*c.firstRow != '\0') {
            EXPECT_EQ(Bytes(polygon.Bitmap.begin(), polygon.Bitmap.begin() + 4), hex(c.firstRow))
                << c.lines.substr(0, 120);
        }
        EXPECT_EQ(journal.ErreurFlag(), c.faulty) << c.lines.substr(0, 120);
    }
}

TEST(ParserPictures, AlphaOfPolygons) {
    const Polygone polygon =
        polygonOf("Xpm=\"0 0 2 0\"\n\"1 c #102030\"   alpha=7F\n\"2 c #405060\"");
    EXPECT_EQ(polygon.Entete, 0x47);
    EXPECT_EQ(polygon.Alpha, hex("7F 00"));
    EXPECT_EQ(polygon.Longueur, 1 + 6 + 2);
}

TEST(ParserPictures, LayoutsOfLines) {
    struct Case {
        const char* lines;
        int Entete;
        const char* colours;
        const char* bitmap;
    };
    const std::vector<Case> cases{
        {"LineWidth=4\nXpm=\"0 0 1 0\"\n\"1 c #010101\"", 6, "01 01 01", "04"},
        {"LineWidth=4\nBorderWidth=1\nXpm=\"0 0 2 0\"\n\"1 c #010101\"\n\"2 c #020202\"", 0,
         "01 01 01 02 02 02", "04 06"},
        {"Xpm=\"0 0 2 0\"\n\"1 c #010101\"\n\"2 c #020202\"\nLineWidth=4\nBorderWidth=0", 0,
         "01 01 01 02 02 02", "04 04"},
        {"LineWidth=4\nXpm=\"0 0 2 0\"\n\"1 c #010101\"\n\"2 c #020202\"", 7, "01 01 01 02 02 02",
         "04"},
        {"LineWidth=4\nXpm=\"0 0 2 0\"\n\"1 c #010101\"\n\"2 c none\"", 6, "01 01 01", "04"},
        {"LineWidth=2\nBorderWidth=2\nXpm=\"0 0 4 0\"\n\"1 c #010101\"\n\"2 c #020202\"\n\"3 c "
         "#030303\"\n"
         "\"4 c #040404\"",
         1, "01 01 01 02 02 02 03 03 03 04 04 04", "02 06"},
        {"LineWidth=2\nBorderWidth=2\nXpm=\"0 0 3 0\"\n\"1 c #010101\"\n\"2 c #020202\"\n\"3 c "
         "#030303\"",
         5, "01 01 01 02 02 02 03 03 03", "02 06"},
        {"LineWidth=2\nXpm=\"0 0 4 0\"\n\"1 c #010101\"\n\"2 c none\"\n\"3 c #030303\"\n\"4 c "
         "#040404\"",
         3, "01 01 01 03 03 03 04 04 04", "02"},
        {"Xpm=\"32 2 2  1\"\n\"! c #010101\"\n\"  c none\"\n\"!!!!!!!!                        \",\n"
         "\"               !!               \"",
         2 * 8 + 6, "01 01 01", "FF 00 00 00 00 80 01 00"},
        {"Xpm=\"32 1 4  1\"\n\"! c #010101\"\n\"  c none\"\n\"3 c #030303\"\n\"4 c none\"\n"
         "\"!                               \"",
         1 * 8 + 7, "01 01 01 03 03 03", "01 00 00 00"},
    };
    for (const Case& c : cases) {
        const Polyline line = lineOf(c.lines);
        EXPECT_EQ(line.Entete, c.Entete) << c.lines;
        EXPECT_EQ(line.Couleurs, hex(c.colours)) << c.lines;
        EXPECT_EQ(line.Bitmap, hex(c.bitmap)) << c.lines;
        EXPECT_EQ(line.Entete2, 0x02) << c.lines;
    }
    // A palette that is cut off leaves the rows clear and the record whole.
    Journal journal;
    const Polyline cut = lineOf("Xpm=\"32 5 2  1\"\n\"! c #010101\"", &journal);
    EXPECT_EQ(cut.Entete, 5 * 8 + 6);
    EXPECT_EQ(cut.Bitmap, Bytes(20, 0));
    EXPECT_EQ(lineOf("LineWidth=3\nXpm=\"32 5 2  1\"", &journal).Bitmap, Bytes{3});
    EXPECT_TRUE(journal.ErreurFlag());
    journal.clear();
    const Polyline tall =
        lineOf("UseOrientation=y\nXpm=\"32 32 2 1\"\n\"! c #010101\"\n\"# c #020202\"" +
                   rows(32, std::string(32, '!')),
               &journal);
    EXPECT_EQ(tall.Entete >> 3, 31) << "five bits hold 31 rows";
    EXPECT_EQ(tall.Bitmap.size(), 124U);
    EXPECT_EQ(tall.Entete2, 0);
    EXPECT_EQ(journal.errorCount(), 1);
}

TEST(ParserPictures, IndexedPictures) {
    struct Case {
        const char* lines;
        int count;
        int mode;
        const char* palette;
        const char* pixels;
        bool faulty;
    };
    const std::vector<Case> cases{
        // the worked examples of the coding
        {"DayXpm=\"5 2 3 1\"   Colormode=0\n\"! c #FF0000\"\n\"# c #00FF00\"\n\"% c #0000FF\"\n"
         "\"!#%!#\"\n\"%%##!\"",
         3, 0, "00 00 FF 00 FF 00 FF 00 00", "24 01 5A 00", false},
        {"DayXpm=\"3 1 3 1\"   Colormode=16\n\"! c #FF0000\"\n\"# c #00FF00\"\n\"  \tc none\"\n\"! "
         "#\"",
         2, 16, "00 00 FF 00 FF 00", "18", false},
        {"Xpm=\"3 1 3 1\"\n\"  c none\"\n\"! c #FF0000\"\n\"# c #00FF00\"\n\"! #\"", 2, 16,
         "00 00 FF 00 FF 00", "18", false},
        {"DayXpm=\"2 1 2 1\"   Colormode=32\n\"! c #112233\"  alpha=5\n\"# c #445566\"  "
         "alpha=15\n\"!#\"",
         2, 32, "33 22 11 65 56 45 F4", "04", false},
        {"DayXpm=\"2 1 2 2\"   Colormode=16\n\"!! c #112233\"\n\"!# c #445566\"\n\"!#!!\"", 2, 16,
         "33 22 11 66 55 44", "01", false},
        {"DayXpm=\"2 1 2 1\"\n\"é c #112233\"\n\"# c #445566\"\n\"#é\"", 2, 16, "33 22 11 66 55 44",
         "01", false},
        {"DayXpm=\"2 1 1 1\"\n\"! c #112233\"\n\"!?\"", 1, 16, "33 22 11", "04", true},
        {"DayXpm=\"2 1 1 1\"   Colormode=0\n\"! c #112233\"\n\"!?\"", 1, 0, "33 22 11", "00", true},
        {"DayXpm=\"3 1 1 1\"\n\"! c #112233\"\n\"!\"", 1, 16, "33 22 11", "14", true},
        {"DayXpm=\"1 1 1 1\"\n\"! c #112233\"\n\"!!!\"", 1, 16, "33 22 11", "00", true},
        {"DayXpm=\"1 1 1 1\"\n\"  c none\"\n\" \"", 1, 16, "00 00 00", "01", false},
        {"DayXpm=\"1 1 1 1\"  Colormode=7\n\"! c #112233\"\n\"!\"", 1, 16, "33 22 11", "00", true},
    };
    for (const Case& c : cases) {
        Journal journal;
        const ImagePOI image = pointOf(c.lines, &journal).Image[0];
        EXPECT_EQ(image.NbCouleurs, c.count) << c.lines;
        EXPECT_EQ(image.ColorMode, c.mode) << c.lines;
        EXPECT_EQ(image.Couleurs, hex(c.palette)) << c.lines;
        EXPECT_EQ(image.Bitmap, hex(c.pixels)) << c.lines;
        EXPECT_EQ(journal.ErreurFlag(), c.faulty) << c.lines;
    }
}

TEST(ParserPictures, TrueColours) {
    struct Case {
        const char* lines;
        const char* pixels;
    };
    const std::vector<Case> cases{
        {"DayXpm=\"2 1 0 1\"   Colormode=0\n;Couleurs 24 bits : pas de palette "
         "\n\"#102030\"\n\"#405060\"",
         "30 20 10 60 50 40"},
        {"DayXpm=\"2 1 0 1\"   Colormode=16\n\n\"#FF00FF\"\n\"#FF00FF\"\n\"#102030\"",
         "FF 00 FF FF 00 FF 30 20 10"},
        {"DayXpm=\"2 1 0 1\"   Colormode=32\n;x\n\"#102030\"  alpha=0\n\"#405060\"  alpha=15",
         "30 20 10 00 06 05 F4"},
        {"DayXpm=\"2 1 0 1\"   Colormode=0\n\"#102030\"\n\"#405060\"", "30 20 10 60 50 40"},
    };
    for (const Case& c : cases) {
        Journal journal;
        const POI point = pointOf(c.lines, &journal);
        EXPECT_EQ(point.Image[0].Bitmap, hex(c.pixels)) << c.lines;
        EXPECT_EQ(point.Image[0].NbCouleurs, 0);
        EXPECT_FALSE(journal.ErreurFlag()) << c.lines;
    }
}

TEST(ParserPictures, DayAndNightShareOneSize) {
    const std::string day = "DayXpm=\"1 1 1 1\"\n\"! c #112233\"\n\"!\"\n";
    const std::string night = "NightXpm=\"1 1 1 1\"\n\"! c #445566\"\n\"!\"\n";
    EXPECT_EQ(pointOf(day).Entete, 0x01);
    EXPECT_EQ(pointOf(day + night).Entete, 0x03);

    Journal journal;
    const POI larger = pointOf(day + "NightXpm=\"2 1 1 1\"\n\"! c #445566\"\n\"!!\"", &journal);
    EXPECT_EQ(larger.Entete, 0x01);
    EXPECT_EQ(larger.Largeur, 1);
    EXPECT_TRUE(journal.ErreurFlag());

    const POI nightOnly = pointOf(night, &journal);
    EXPECT_EQ(nightOnly.Entete, 0x03);
    EXPECT_EQ(nightOnly.Largeur, 1);
    EXPECT_EQ(nightOnly.Image[0].Bitmap, hex("01")) << "by day nothing is seen";

    const POI empty = pointOf("DayXpm=\"0 0 0 0\"\nNightXpm=\"0 0 0 0\"");
    EXPECT_EQ(empty.Entete, 0x03);
    EXPECT_EQ(empty.Image[1], ImagePOI());
}

TEST(ParserPictures, ManyPicturesAreTakenWhole) {
    std::string text;
    const std::string row = "\"" + std::string(64, '!') + "\"\n";
    std::string picture = "[_point]\nType=1\nDayXpm=\"64 64 1 1\"\n\"! c #102030\"\n";
    for (int i = 0; i < 64; ++i) {
        picture += row;
    }
    for (int i = 0; i < 2600; ++i) {
        text += picture + "[end]\n";
    }
    const ParsedText parsed = parseText(text);
    EXPECT_FALSE(parsed.journal.ErreurFlag());
    EXPECT_EQ(parsed.document.POI.at(2599).Largeur, 64);
}

TEST(ParserPictures, HeadersWithoutRowsDontFillMemory) {
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        text += "[_point]\nType=1\nDayXpm=\"255 255 0 1\"\n[end]\n";
    }
    const ParsedText parsed = parseText(text);
    std::size_t bytes = 0;
    for (const POI& point : parsed.document.POI) {
        bytes += point.Image[0].Bitmap.size();
    }
    EXPECT_EQ(parsed.document.POI.size(), 3000U);
    EXPECT_LT(bytes, std::size_t{64} << 20U);
}

}  // namespace
}  // namespace quillmark
