#include "bitmap/garmin_palette.h"

#include <gtest/gtest.h>

#include <set>

#include "bitmap/colour.h"
#include "bitmap/garmin_swatches.h"
#include "bitmap/system_colours.h"
#include "support/colour_checks.h"

namespace quillmark {
namespace {

using testing::rgb;

TEST(GarminPalette, LevelsAtTheirBorders) {
    struct Row {
        int value;
        std::size_t index;
        int nearest;
    };
    const std::vector<Row> red{{0, 0, 0},     {56, 0, 57},   {57, 0, 57},   {58, 1, 57},
                               {90, 1, 57},   {122, 1, 123}, {123, 1, 123}, {124, 2, 123},
                               {156, 2, 123}, {188, 2, 189}, {189, 2, 189}, {190, 3, 189},
                               {222, 3, 189}, {254, 3, 255}, {255, 3, 255}};
    const std::vector<Row> green{{0, 0, 0},     {24, 0, 0},    {25, 0, 48},   {48, 0, 48},
                                 {49, 1, 48},   {101, 1, 101}, {102, 2, 101}, {125, 2, 101},
                                 {149, 2, 149}, {150, 3, 149}, {202, 3, 202}, {203, 4, 202},
                                 {255, 4, 255}};
    const std::vector<Row> blue{
        {0, 0, 0},     {16, 0, 0},    {17, 0, 32},   {32, 0, 32},   {33, 1, 32},   {65, 1, 65},
        {66, 2, 65},   {106, 2, 106}, {107, 3, 106}, {139, 3, 139}, {140, 4, 139}, {180, 4, 180},
        {181, 5, 180}, {213, 5, 213}, {214, 6, 213}, {234, 6, 213}, {255, 6, 255}};
    // The other channels are far from any grey.
    for (const Row& row : red) {
        const auto value = static_cast<std::uint8_t>(row.value);
        EXPECT_EQ(IndicesGarmin(couleurFromRgb(value, 0, 255)).red, row.index) << row.value;
        EXPECT_EQ(redOf(PlusProcheCouleurGarmin(couleurFromRgb(value, 0, 255))), row.nearest);
    }
    for (const Row& row : green) {
        const auto value = static_cast<std::uint8_t>(row.value);
        EXPECT_EQ(IndicesGarmin(couleurFromRgb(0, value, 255)).green, row.index) << row.value;
        EXPECT_EQ(greenOf(PlusProcheCouleurGarmin(couleurFromRgb(0, value, 255))), row.nearest);
    }
    for (const Row& row : blue) {
        const auto value = static_cast<std::uint8_t>(row.value);
        EXPECT_EQ(IndicesGarmin(couleurFromRgb(255, 0, value)).blue, row.index) << row.value;
        EXPECT_EQ(blueOf(PlusProcheCouleurGarmin(couleurFromRgb(255, 0, value))), row.nearest);
    }
}

TEST(GarminPalette, NearestColoursAndCorners) {
    for (const auto& row : testing::colourRows()) {
        const Couleur colour = rgb(row.colour);
        const auto [r, g, b] = IndicesGarmin(colour);
        EXPECT_EQ((std::array{r, g, b}), row.indices) << row.colour;
        EXPECT_EQ(colourText(PlusProcheCouleurGarmin(colour)), row.nearest) << row.colour;
        EXPECT_EQ(EstCouleurGarmin(colour), row.colour == row.nearest) << row.colour;
    }
    const std::vector<std::pair<std::string, std::string>> corners{
        {"#000000", "#000000 #390000 #393000 #003000 #000020 #390020 #393020 #003020 "},
        {"#7B3041", "#390020 #7B0020 #7B3020 #393020 #390041 #7B0041 #7B3041 #393041 "},
        {"#7C3041", "#7B0020 #BD0020 #BD3020 #7B3020 #7B0041 #BD0041 #BD3041 #7B3041 "},
        {"#808080", "#7B656A #BD656A #BD956A #7B956A #7B658B #BD658B #BD958B #7B958B "},
        {"#FFFFFF", "#BDCAD5 #FFCAD5 #FFFFD5 #BDFFD5 #BDCAFF #FFCAFF #FFFFFF #BDFFFF "}};
    for (const auto& [colour, expected] : corners) {
        std::string found;
        for (const Couleur corner : couleursVoisines(rgb(colour))) {
            found += colourText(corner) + ' ';
        }
        EXPECT_EQ(found, expected) << colour;
    }
}

TEST(GarminPalette, AllColoursAgreeWithTheirChecksum) {
    int greys = 0;  // but for black and white, which are levels of all channels
    const auto nearest = [&greys](testing::Crc32& crc, Couleur colour) {
        const Couleur found = PlusProcheCouleurGarmin(colour);
        crc.addColour(found);
        const bool grey = redOf(found) == greenOf(found) && greenOf(found) == blueOf(found);
        greys += grey && found != 0 && found != 0xFFFFFF ? 1 : 0;
    };
    EXPECT_EQ(testing::checksumOfColours(17, nearest), 0x3F7DC492U);
    EXPECT_EQ(greys, 144);
    greys = 0;
    EXPECT_EQ(testing::checksumOfColours(1, nearest), 0xA1A745BEU);
    EXPECT_EQ(greys, 751434);
}

TEST(GarminPalette, EachColourHasOneSwatch) {
    std::set<Couleur> different;
    for (int n = 1; n <= kSwatches; ++n) {
        const Couleur colour = couleurDuCarre(n);
        EXPECT_TRUE(EstCouleurGarmin(colour)) << n;
        EXPECT_EQ(carreDeCouleur(colour), n);
        different.insert(colour);
    }
    EXPECT_EQ(different.size(), 254U);
    EXPECT_EQ(carreDeCouleur(rgb("#7C3041")), 0);
}

TEST(GarminPalette, SystemColoursBecomePlain) {
    const auto system = [](std::uint32_t number) {
        return static_cast<Couleur>(0x80000000U | number);
    };
    EXPECT_EQ(ResoudreCouleur(rgb("#7C3041")), rgb("#7C3041"));
    EXPECT_EQ(colourText(ResoudreCouleur(system(13))), "#0078D7");
    EXPECT_EQ(colourText(ResoudreCouleur(system(30))), "#F0F0F0");
    EXPECT_EQ(ResoudreCouleur(system(31)), 0);
    EXPECT_EQ(ResoudreCouleur(-1), 0);
    EXPECT_TRUE(EstCouleurGarmin(system(5))) << "white by another name";
    EXPECT_EQ(DistanceCouleurs(system(5), 0), 765);
}

}  // namespace
}  // namespace quillmark
