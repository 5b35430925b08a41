#include <gtest/gtest.h>

#include "bitmap/patterns.h"
#include "bitmap/poi_picture.h"
#include "support/picture_text.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using testing::hex;
using testing::imageOf;
using testing::Rows;
using testing::rowsOf;
using testing::storedColours;

constexpr std::string_view kColours = "rgby";

// Rows "1011" and "0001" in the upper left corner, the lower right pixel set.
constexpr std::uint8_t kRowA = 0b1101;
constexpr std::uint8_t kRowB = 0b1000;

Polygone polygon(unsigned Entete) {
    Polygone polygone;
    polygone.Entete = static_cast<std::uint8_t>(Entete);
    polygone.Couleurs = storedColours(
        kColours.substr(0, static_cast<std::size_t>(std::max(0, NombreCouleurs(polygone.Entete)))));
    polygone.Bitmap[0] = kRowA;
    polygone.Bitmap[4] = kRowB;
    polygone.Bitmap[127] = 0x80;
    return polygone;
}

Polyline line(unsigned Entete, Bytes Bitmap) {
    Polyline polyline;
    polyline.Entete = static_cast<std::uint8_t>(Entete);
    polyline.Couleurs = storedColours(
        kColours.substr(0, static_cast<std::size_t>(std::max(0, NombreCouleurs(polyline.Entete)))));
    polyline.Bitmap = std::move(Bitmap);
    return polyline;
}

struct Layout {
    unsigned Entete;
    Rows day;
    Rows night;
};
const Layout kLayouts[] = {
    {0, {"rgrr", "gggr"}, {"rgrr", "gggr"}}, {1, {"rgrr", "gggr"}, {"bybb", "yyyb"}},
    {3, {"r.rr", "...r"}, {"gbgg", "bbbg"}}, {5, {"rgrr", "gggr"}, {"b.bb", "...b"}},
    {6, {"r.rr", "...r"}, {"r.rr", "...r"}}, {7, {"r.rr", "...r"}, {"g.gg", "...g"}},
};

TEST(Pictures, PatternsOfPolygonsInEveryColourLayout) {
    for (const Layout& layout : kLayouts) {
        const Polygone polygone = polygon(0x08U | layout.Entete);
        const Picture day = polygonPicture(polygone, false, false);
        const Picture night = polygonPicture(polygone, true, false);
        EXPECT_EQ(day.image.width(), 32);
        EXPECT_EQ(day.image.height(), 32);
        EXPECT_EQ(rowsOf(day.image, {0, 0, 4, 2}), layout.day) << layout.Entete;
        EXPECT_EQ(rowsOf(night.image, {0, 0, 4, 2}), layout.night) << layout.Entete;
        // The last bit is the last pixel.
        EXPECT_EQ(rowsOf(day.image, {31, 31, 1, 1}), Rows{"r"});
        EXPECT_EQ(rowsOf(day.image, {30, 31, 1, 1}), Rows{layout.day[0].substr(1, 1)});
    }
}

TEST(Pictures, PatternsOfLinesInEveryColourLayout) {
    for (const Layout& layout : kLayouts) {
        const Polyline polyline =
            line(2U << 3U | layout.Entete, {kRowA, 0, 0, 0, kRowB, 0, 0, 0x80});
        const Picture day = linePicture(polyline, false);
        EXPECT_EQ(day.image.width(), 32);
        EXPECT_EQ(day.image.height(), 2);
        EXPECT_EQ(rowsOf(day.image, {0, 0, 4, 2}), layout.day) << layout.Entete;
        EXPECT_EQ(rowsOf(day.image, {31, 1, 1, 1}), Rows{"r"});
        EXPECT_EQ(rowsOf(linePicture(polyline, true).image, {0, 0, 4, 2}), layout.night)
            << layout.Entete;
        EXPECT_FALSE(day.faults.any());
    }
}

TEST(Pictures, APolygonWithoutPatternIsItsFirstColour) {
    const Picture day = polygonPicture(polygon(7), false, false);
    EXPECT_EQ(rowsOf(day.image, {0, 0, 2, 1}), Rows{"rr"});
    EXPECT_EQ(rowsOf(day.image, {31, 31, 1, 1}), Rows{"r"});
    EXPECT_FALSE(day.faults.any());
    EXPECT_EQ(rowsOf(polygonPicture(polygon(7), true, false).image, {0, 0, 1, 1}), Rows{"g"});
}

// A column of each tile, from top to bottom.
TEST(Pictures, LinesWithoutRowsAreWidthAndBorder) {
    struct Case {
        unsigned Entete;
        Bytes widths;
        std::string day;
        std::string night;
    };
    const Case cases[] = {
        {0, {2, 4}, "grrg", "grrg"},   {1, {5, 7}, "grrrrrg", "ybbbbby"},
        {0, {3, 3}, "rrr", "rrr"},     {0, {4, 7}, "grrrrg", "grrrrg"},
        {0, {5, 2}, "rrrrr", "rrrrr"}, {5, {1, 5}, "ggrgg", "..b.."},
        {6, {4}, "rrrr", "rrrr"},      {7, {2}, "rr", "gg"},
        {3, {1, 9}, "r", "g"},         {6, {0}, "", ""},
    };
    for (const Case& c : cases) {
        const Polyline polyline = line(c.Entete, c.widths);
        for (const bool night : {false, true}) {
            const Picture picture = linePicture(polyline, night);
            std::string column;
            for (const std::string& row : rowsOf(picture.image)) {
                EXPECT_EQ(row, std::string(32, row[0]));
                column += row[0];
            }
            EXPECT_EQ(column, night ? c.night : c.day) << c.Entete;
            EXPECT_FALSE(picture.faults.any());
        }
    }
}

TEST(Pictures, WhatIsMissingIsTransparentAndTold) {
    const PictureFaults layout{true, false, false, false};
    const PictureFaults mode{false, true, false, false};
    const PictureFaults colours{false, false, true, false};
    const PictureFaults bytes{false, false, false, true};

    for (const unsigned Entete : {2U, 4U, 10U, 12U}) {
        EXPECT_EQ(polygonPicture(polygon(Entete), false, false), (Picture{{}, layout}));
        EXPECT_EQ(linePicture(line(Entete, {3, 3}), true), (Picture{{}, layout}));
    }
    // Shown as far as its colours go.
    const Picture odd = polygonPicture(polygon(1), false, false);
    EXPECT_EQ(odd.faults, layout);
    EXPECT_EQ(rowsOf(odd.image, {0, 0, 1, 1}), Rows{"r"});

    Polygone poor = polygon(0x0B);
    poor.Couleurs.resize(8);
    EXPECT_EQ(polygonPicture(poor, false, false).faults, PictureFaults{});
    const Picture night = polygonPicture(poor, true, false);
    EXPECT_EQ(night.faults, colours);
    EXPECT_EQ(rowsOf(night.image, {0, 0, 4, 1}), Rows{"g.gg"});

    const Picture torn = linePicture(line(2U << 3U | 6U, {kRowA, 0, 0, 0, kRowB}), false);
    EXPECT_EQ(torn.faults, bytes);
    EXPECT_EQ(rowsOf(torn.image, {0, 0, 4, 2}), (Rows{"r.rr", "...r"}));
    EXPECT_EQ(linePicture(line(0, {4}), false).faults, bytes);
    EXPECT_EQ(linePicture(line(0, {4}), false).image.height(), 4);

    struct Case {
        ImagePOI image;
        Rows rows;
        PictureFaults faults;
    };
    const Case cases[] = {
        // Values behind the palette; the first of them is transparent by rule only in mode 0x10.
        {{2, 0x00, storedColours("rg"), hex("E4"), 0}, {"rg.."}, colours},
        {{2, 0x10, storedColours("rg"), hex("24"), 0}, {"rg.r"}, {}},
        {{2, 0x10, storedColours("rg"), hex("E4"), 0}, {"rg.."}, colours},
        {{0, 0x10, {}, hex("05"), -1}, {"...."}, colours},
        {{3, 0x00, storedColours("rg"), hex("24"), 0}, {"rg.r"}, colours},
        {{3, 0x00, storedColours("rgb"), {}, 0}, {"...."}, bytes},
        {{17, 0x00, storedColours("rgbyrgbyrgbyrgbyr"), hex("00 01 02"), 0}, {"rgb."}, bytes},
        {{0, 0x00, {}, storedColours("rg"), 0}, {"rg.."}, bytes},
        {{0, 0x10, {}, storedColours("grg"), 0}, {"r..."}, bytes},
        {{0, 0x20, {}, hex("00 00 FF 00"), 0}, {"r..."}, bytes},
        {{3, 0x30, storedColours("rgb"), hex("24"), 0}, {}, mode},
        {{0, 0x01, {}, storedColours("rgby"), 0}, {}, mode},
    };
    for (const Case& c : cases) {
        const Picture picture = poiPicture(c.image, 4, 1, false);
        EXPECT_EQ(rowsOf(picture.image), c.rows) << &c - cases;
        EXPECT_EQ(picture.faults, c.faults) << &c - cases;
    }
    EXPECT_EQ(poiPicture({}, 0, 7, false), Picture{});
}

TEST(Pictures, PointsInEveryColourMode) {
    EXPECT_EQ(
        rowsOf(
            poiPicture({3, 0x00, storedColours("rgb"), hex("24 01 5A 00"), 0}, 5, 2, false).image),
        (Rows{"rgbrg", "bbggr"}));
    EXPECT_EQ(rowsOf(poiPicture({2, 0x10, storedColours("rg"), hex("18"), 0}, 3, 1, false).image),
              (Rows{"r.g"}));
    EXPECT_EQ(rowsOf(poiPicture({0, 0x00, {}, storedColours("rgby"), 0}, 2, 2, false).image),
              (Rows{"rg", "by"}));
    EXPECT_EQ(rowsOf(poiPicture({0, 0x10, {}, storedColours("grgb"), 0}, 3, 1, false).image),
              (Rows{"r.b"}));

    // Alpha 5 and 15, in a palette and in true colours.
    const ImagePOI indexed{2, 0x20, hex("33 22 11 65 56 45 F4"), hex("04"), 0};
    const ImagePOI direct{0, 0x20, {}, hex("33 22 11 65 56 45 F4"), 0};
    const Couleur colour = couleurFromRgb(0x11, 0x22, 0x33);
    EXPECT_EQ(poiPicture(indexed, 2, 1, false).image.pixel(0, 0), colour);
    EXPECT_EQ(poiPicture(indexed, 2, 1, false).image.pixel(1, 0), kTransparent);
    for (const ImagePOI& image : {indexed, direct}) {
        const Picture blended = poiPicture(image, 2, 1, true);
        EXPECT_EQ(blended.image.pixel(0, 0), seenThrough(colour, 5 * 17));
        EXPECT_EQ(blended.image.pixel(1, 0), kTransparent);
        EXPECT_FALSE(blended.faults.any());
    }
}

TEST(Pictures, AlphaOfPolygonsTakesEffectOnlyWhenBlended) {
    Polygone plain = polygon(0x47);
    plain.Alpha = {64, 255};
    EXPECT_EQ(polygonPicture(plain, false, false).image.pixel(0, 0), testing::colourOf('r'));
    EXPECT_EQ(polygonPicture(plain, false, true).image.pixel(0, 0),
              seenThrough(testing::colourOf('r'), 64));
    EXPECT_EQ(polygonPicture(plain, true, true).image.pixel(0, 0), kTransparent);
    // With a pattern only 255 is seen through.
    Polygone pattern = polygon(0x48);
    pattern.Alpha = {254, 255};
    EXPECT_EQ(rowsOf(polygonPicture(pattern, false, true).image, {0, 0, 4, 1}), Rows{"r.rr"});
}

TEST(Layers, LayingOverRespectsTransparencyScaleAndEdges) {
    Image target = imageOf({"bbbb", "bbbb", "...."});
    layOver(target, imageOf({"r.", ".g"}), -1, -1, 2);
    EXPECT_EQ(rowsOf(target), (Rows{"rbbb", "bggb", ".gg."}));
    Image half = imageOf({"b."});
    Image veil(2, 1, seenThrough(testing::colourOf('r'), 51));
    layOver(half, veil, 0, 0);
    EXPECT_EQ(half.pixel(0, 0), couleurFromRgb(204, 0, 51));
    EXPECT_EQ(half.pixel(1, 0), veil.pixel(0, 0));
    layOver(half, veil, 0, 0);
    EXPECT_EQ(transparencyOf(half.pixel(1, 0)), 10);
}

TEST(Layers, TheGroundComesLastAndNeverTakesAColour) {
    Image picture(8, 2, kTransparent);
    layOver(picture, imageOf({"Lx"}), 0, 0);
    Image light = picture;
    paintGround(light, Ground::map, false);
    EXPECT_EQ(rowsOf(light, {0, 0, 3, 2}), (Rows{"LxL", "LLL"}));
    Image dark = picture;
    paintGround(dark, Ground::map, true);
    EXPECT_EQ(rowsOf(dark, {0, 0, 3, 2}), (Rows{"LxD", "DDD"}));
    paintGround(picture, Ground::checker, true);
    EXPECT_EQ(rowsOf(picture), (Rows{"Lxwwxxxx", "wwwwxxxx"}));
}

TEST(Layers, ShrinkingAveragesWhatIsThere) {
    const Image small = shrunk(imageOf({"rr..", "rr..", "rb..", "br.."}), 2, 2);
    EXPECT_EQ(rowsOf(small, {0, 0, 2, 1}), Rows{"r."});
    EXPECT_EQ(small.pixel(0, 1), couleurFromRgb(128, 0, 128));
    const Image mixed = shrunk(imageOf({"r."}), 1, 1);
    EXPECT_EQ(mixed.pixel(0, 0), seenThrough(testing::colourOf('r'), 127));
}

}  // namespace
}  // namespace quillmark
