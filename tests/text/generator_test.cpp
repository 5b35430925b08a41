#include "text/generator.h"

#include <gtest/gtest.h>

#include "support/test_files.h"
#include "text/text_source.h"
#include "text_test_tools.h"

namespace quillmark {
namespace {

using namespace testing;

std::string section(const Polygone& polygone) {
    std::string text;
    Journal journal;
    AffichePolygone(polygone, {}, 1252, text, journal);
    return text;
}
std::string section(const Polyline& line, Journal* told = nullptr) {
    std::string text;
    Journal journal;
    AffichePolyline(line, {}, 1252, text, told == nullptr ? journal : *told);
    return text;
}
std::string section(const POI& poi, TextSettings settings = {}, Journal* told = nullptr) {
    std::string text;
    Journal journal;
    AffichePOI(poi, {settings, nullptr, nullptr}, 1252, text, told == nullptr ? journal : *told);
    return text;
}

bool contains(const std::string& text, const std::string& lines) {
    return text.find(lines) != std::string::npos;
}

TEST(Generator, EmptyDocument) {
    Document document;
    document.FID = "5555";
    document.ProductCode = "1";
    EXPECT_EQ(generate(document).text,
              "[_id]\r\nProductCode=1\r\nFID=5555\r\nCodePage=1252\r\n[End]\r\n\r\n"
              ";=========== COMMENTAIRES ======\r\n[_comments]\r\n[End]\r\n\r\n"
              ";=========== POLYGONES : PRIORITE DANS L'AFFICHAGE ======\r\n[_drawOrder]\r\n"
              "[End]\r\n\r\n"
              ";===================== POLYGONES ========================\r\n"
              ";====================== LINES ===========================\r\n"
              ";====================== POINTS ==========================\r\n");
}

TEST(Generator, HeadOfACompiledFile) {
    Document document;
    document.EnteteTYP.day = 3;
    document.EnteteTYP.month = 2;
    document.EnteteTYP.year = 2019;
    document.EnteteTYP.hour = 4;
    const SourceComments comments{
        "/maps", "1971", creationDateText(document.EnteteTYP), {2026, 11, 22, 9, 8, 7}};
    const std::string text = genererTexte(document, {}, &comments).text;
    document.CodePage = 1251;
    EXPECT_NE(genererTexte(document, {}, &comments).text.find("; Decompile le 22/11/2026 a 09"),
              std::string::npos)
        << "a page without accents";
    EXPECT_EQ(text.substr(0, text.find("[_id]")),
              "; /maps\r\n; Longueur: 1971 octets\r\n"
              "; Fichier TYP compilé 03/02/2019    04:00:00     \r\n"
              "; Décompilé le 22/11/2026 à 09:08:07\r\n");
}

TEST(Generator, WholePolygonSection) {
    Polygone polygone;
    polygone.Type = "10f";
    polygone.SubType = "04";
    polygone.Comment = "zone dense";
    polygone.Entete = 0x08 | 0x01 | 0x10 | 0x40;
    polygone.Strings = hex("0F 04 5A 6F 6E 65 00 00");
    polygone.Couleurs = hex("30 20 10 60 50 40 90 80 70 C0 B0 A0");
    polygone.Alpha = hex("7F 00 01 02");
    polygone.Bitmap.fill(0x0F);
    std::string rows;
    for (int i = 0; i < 32; ++i) {
        rows += "\"!!!!####!!!!####!!!!####!!!!####\"\r\n";
    }
    EXPECT_EQ(section(polygone),
              "[_polygon]\r\nType=0x10f04\r\n;GRMN_TYPE: //\r\nComment=zone dense\r\n"
              "String1=0x04,Zone\r\nExtendedLabels=N\r\nXpm=\"32 32 4 1\"\r\n"
              "\"! c #102030\"   alpha=7F\r\n\"# c #405060\"   alpha=00\r\n"
              "\"3 c #708090\"   alpha=01\r\n\"4 c #A0B0C0\"   alpha=02\r\n" +
                  rows + ";12345678901234567890123456789012\r\n[end]\r\n");
}

TEST(Generator, PalettesOfPatterns) {
    struct Case {
        int Entete;
        const char* colours;
        const char* palette;
        bool told;
    };
    const std::vector<Case> cases{
        {0x0B, "01 01 01 03 03 03 04 04 04",
         "\"! c #010101\"\r\n\"  c none\"\r\n\"3 c #030303\"\r\n\"4 c #040404\"\r\n\"!", false},
        {0x0D, "01 01 01 02 02 02 03 03 03",
         "\"! c #010101\"\r\n\"# c #020202\"\r\n\"3 c #030303\"\r\n\"4 c none\"\r\n\"!", false},
        {0x0E, "01 01 01", "2 1\"\r\n\"! c #010101\"\r\n\"  c none\"\r\n\"!!!! ", false},
        {0x0F, "01 01 01 03 03 03",
         "\"! c #010101\"\r\n\"  c none\"\r\n\"3 c #030303\"\r\n\"4 c none\"\r\n\"!", false},
        {0x06, "01 01 01", "Xpm=\"0 0 1 0\"\r\n\"1 c #010101\"\r\n[end]", false},
        {0x07, "01 01 01 03 03 03",
         "Xpm=\"0 0 2 0\"\r\n\"1 c #010101\"\r\n\"2 c #030303\"\r\n[end]", false},
        {0x0A, "", "\"! c #000000\"\r\n\"  c none\"\r\n", true},
        {0x00, "01 01 01 02 02 02", "Xpm=\"0 0 2 0\"", true},
    };
    for (const Case& c : cases) {
        Polygone polygone;
        polygone.Type = "04a";
        polygone.SubType = "01";
        polygone.Entete = static_cast<std::uint8_t>(c.Entete);
        polygone.Couleurs = hex(c.colours);
        polygone.Bitmap.fill(0x0F);
        std::string text;
        Journal journal;
        AffichePolygone(polygone, {}, 1252, text, journal);
        EXPECT_TRUE(contains(text, c.palette)) << c.Entete << '\n' << text;
        EXPECT_TRUE(contains(text, "Type=0x4a\r\n"));
        EXPECT_EQ(journal.ErreurFlag(), c.told) << c.Entete;
    }
}

TEST(Generator, Lines) {
    Polyline line;
    line.Type = "003";
    line.SubType = "00";
    line.Entete2 = 0x02;
    line.Couleurs = hex("00 00 FF 00 00 00");
    line.Bitmap = {4, 6};
    EXPECT_EQ(section(line),
              "[_line]\r\nType=0x03\r\n;GRMN_TYPE: //\r\nUseOrientation=N\r\nLineWidth=4\r\n"
              "BorderWidth=1\r\nExtendedLabels=N\r\nXpm=\"0 0 2 0\"\r\n\"1 c #FF0000\"\r\n"
              "\"2 c #000000\"\r\n[end]\r\n");

    Journal odd;
    line.Bitmap = {4, 7};
    EXPECT_TRUE(contains(section(line, &odd), "BorderWidth=1\r\n"));
    line.Bitmap = {4, 2};
    EXPECT_TRUE(contains(section(line, &odd), "BorderWidth=0\r\n"));
    EXPECT_EQ(odd.warningCount(), 2);

    line.Entete = 2 * 8 + 6;
    line.Entete2 = 0;
    line.Couleurs = hex("01 01 01");
    line.Bitmap = hex("FF 00 00 00 00 80 01 00");
    line.ActiveRouting = {5, 0};
    EXPECT_TRUE(contains(section(line),
                         ";GRMN_TYPE: //\r\nActivity=Bicycling\r\nUseOrientation=Y\r\n"
                         "ExtendedLabels=N\r\nXpm=\"32 2 2  1\"\r\n\"! c #010101\"\r\n"
                         "\"  c none\"\r\n\"!!!!!!!!                        \"\r\n"
                         "\"               !!               \"\r\n;123"));
}

TEST(Generator, PointsAndTheirPixels) {
    POI poi;
    poi.Type = "10d";
    poi.SubType = "1a";
    poi.Entete = 0x01;
    poi.Largeur = 4;
    poi.Hauteur = 2;
    poi.Image[0] = {2, 0x10, hex("00 00 FF 00 FF 00"), hex("A4 06"), 0};
    EXPECT_EQ(section(poi),
              "[_point]\r\nType=0x10d\r\nSubType=0x1a\r\n;GRMN_TYPE: //\r\nExtendedLabels=N\r\n"
              "DayXpm=\"4 2 3 1\"   Colormode=16\r\n\"!\tc #FF0000\"\r\n\"#\tc #00FF00\"\r\n"
              "\"  \tc none\"\r\n\"!#  \"\r\n\" #!!\"\r\n;1234\r\n[end]\r\n");
    EXPECT_TRUE(contains(section(poi, {false, true}), "\r\nType=0x10d1a\r\n;GRMN"));

    // Padding behind the last pixel may hold anything and makes nothing transparent.
    poi.Largeur = 3;
    poi.Image[0].Bitmap = hex("84 80");
    EXPECT_TRUE(contains(section(poi), "DayXpm=\"3 2 2 1\""));

    poi.Image[0].Bitmap = hex("34 06");
    Journal told;
    EXPECT_TRUE(contains(section(poi, {}, &told), "\"!# \"\r\n"));
    EXPECT_EQ(told.errorCount(), 1) << "a pixel value behind the transparent one";
    poi.Entete = 0x03;
    poi.Largeur = 1;
    poi.Hauteur = 1;
    poi.Image[0] = {0, 0x10, {}, hex("FF 00 FF 30 20 10"), 0};
    poi.Image[1] = {1, 0x20, hex("33 22 11 05"), hex("00"), 0};
    const std::string trueColours =
        "DayXpm=\"1 1 0 1\"   Colormode=16\r\n;Couleurs 24 bits : pas de palette \r\n"
        "\"#FF00FF\"\r\n\"#102030\"\r\n;1\r\n"
        "NightXpm=\"1 1 1 1\"   Colormode=32\r\n\"!\tc #112233\"  alpha=5\r\n\"!\"\r\n;1\r\n[end]";
    EXPECT_TRUE(contains(section(poi), trueColours)) << section(poi);
    EXPECT_TRUE(contains(section(poi, {true, false}),
                         "Colormode=16\r\n;Couleurs 24 bits : pas de palette \r\nNightXpm"));

    poi.Image[0] = {0, 0x10, {}, hex("01"), -1};
    EXPECT_TRUE(contains(section(poi, {}, &told), "DayXpm=\"0 0 0 0\"\r\nNightXpm=\"1 1"));
    EXPECT_EQ(told.errorCount(), 2);
    std::swap(poi.Image[0], poi.Image[1]);
    EXPECT_FALSE(contains(section(poi, {}, &told), "NightXpm"));
    poi.Image[1] = {};
    EXPECT_FALSE(contains(section(poi, {}, &told), "NightXpm")) << "pixels that aren't there";
    told.clear();
    poi.Image[0].ColorMode = 0x30;
    EXPECT_TRUE(contains(section(poi, {}, &told), "DayXpm=\"0 0 0 0\"\r\n[end]"));
    EXPECT_EQ(told.errorCount(), 1);
    poi.Largeur = 0;
    EXPECT_TRUE(contains(section(poi), "DayXpm=\"0 0 0 0\"\r\nNightXpm=\"0 0 0 0\"\r\n[end]"));
}

TEST(Generator, SeventeenColoursTakeTwoCharacters) {
    for (const int count : {16, 17, 255}) {
        POI poi;
        poi.Type = "02a";
        poi.SubType = "00";
        poi.Entete = 1;
        poi.Largeur = 2;
        poi.Hauteur = 1;
        const auto last = static_cast<std::uint8_t>(count - 1);
        poi.Image[0] = {static_cast<std::uint8_t>(count),
                        0x10,
                        Bytes(static_cast<std::size_t>(count) * 3, 0x11),
                        {last, static_cast<std::uint8_t>(count)},
                        0};
        const std::string text = section(poi);
        EXPECT_TRUE(contains(
            text, "DayXpm=\"2 1 " + std::to_string(count + 1) + (count > 16 ? " 2\"" : " 1\"")));
        EXPECT_TRUE(contains(text, count == 16   ? "\r\n\"9 \"\r\n"
                                   : count == 17 ? "\r\n\"#!  \"\r\n"
                                                 : "\r\n\"98  \"\r\n"))
            << text;
        const ParsedText back = parseText(text);
        EXPECT_EQ(back.document.POI[0].Image[0], poi.Image[0]) << count;
    }
}

TEST(Generator, LabelsThatTextCantHoldAsTheyAre) {
    Polygone polygone;
    polygone.Type = "001";
    polygone.SubType = "00";
    polygone.Entete = 0x16;
    polygone.Couleurs = hex("00 00 00");
    polygone.Strings = hex("0D 04 61 0D 0A 62 00");
    Journal journal;
    std::string text;
    AffichePolygone(polygone, {}, 1252, text, journal);
    EXPECT_TRUE(contains(text, "String1=0x04,a b\r\n"));
    EXPECT_EQ(journal.warningCount(), 1);
    polygone.Strings = hex("0B 04 61 FF 62 00");
    AffichePolygone(polygone, {}, 65001, text, journal);
    EXPECT_EQ(journal.warningCount(), 2);
}

TEST(Generator, SectionsNameTheirRecords) {
    Document document;
    document.Polygone.resize(2);
    document.Polyline.resize(1);
    document.POI.resize(2);
    const GeneratedText generated = generate(document);
    const auto lines = splitLines(generated.text);
    ASSERT_EQ(generated.sections.size(), 5U);
    for (const TextSection& section : generated.sections) {
        const std::string_view name = section.kind == ObjectKind::Polygone   ? "[_polygon]"
                                      : section.kind == ObjectKind::Polyline ? "[_line]"
                                                                             : "[_point]";
        EXPECT_EQ(lines.at(static_cast<std::size_t>(section.firstLine)), name);
        EXPECT_EQ(lines.at(static_cast<std::size_t>(section.lastLine)), "[end]");
    }
    EXPECT_EQ(generated.sections[4].index, 1);
}

}  // namespace
}  // namespace quillmark
