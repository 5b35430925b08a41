#include "bitmap/colour_spaces.h"

#include <gtest/gtest.h>

#include "bitmap/colour.h"
#include "support/colour_checks.h"

namespace quillmark {
namespace {

using testing::rgb;

std::string typed(int hue, int sat, int lum) {
    return colourText(couleurFromHls(hlsFromFields({hue, sat, lum})));
}

TEST(ColourSpaces, FieldsOfColoursAndColoursOfFields) {
    for (const auto& row : testing::colourRows()) {
        const HlsFields shown = fieldsFromHls(hlsOf(rgb(row.colour)));
        EXPECT_EQ((std::array{shown.hue, shown.sat, shown.lum}), row.hslFields) << row.colour;
        EXPECT_EQ(typed(shown.hue, shown.sat, shown.lum), row.typedBack) << row.colour;
    }
    // With wider floats one of the three would be one off.
    const std::vector<std::pair<std::string, std::array<int, 3>>> shown{
        {"#002255", {143, 240, 40}},
        {"#005522", {96, 240, 40}},
        {"#005533", {103, 240, 40}},
        {"#111122", {160, 79, 24}},
        {"#111155", {160, 160, 48}}};
    for (const auto& [colour, expected] : shown) {
        const HlsFields fields = fieldsFromHls(hlsOf(rgb(colour)));
        EXPECT_EQ((std::array{fields.hue, fields.sat, fields.lum}), expected) << colour;
    }
    // The first rows are round numbers; with wider floats the last three would be one off.
    const std::vector<std::pair<HlsFields, std::string>> colours{
        {{0, 0, 120}, "#808080"},     {{240, 240, 120}, "#FF0000"}, {{199, 240, 120}, "#F900FF"},
        {{201, 240, 120}, "#FF00F9"}, {{239, 240, 120}, "#FF0006"}, {{60, 100, 200}, "#D4E6C3"},
        {{120, 120, 60}, "#206060"},  {{140, 119, 30}, "#102030"},  {{0, 20, 144}, "#A29191"},
        {{0, 48, 140}, "#AA7F7F"},    {{0, 40, 48}, "#3C2A2A"}};
    for (const auto& [fields, colour] : colours) {
        EXPECT_EQ(typed(fields.hue, fields.sat, fields.lum), colour);
    }
}

// Whole sweeps, since single values out of millions hang on how one operation is rounded.
TEST(ColourSpaces, AllValuesAgreeWithTheirChecksums) {
    const auto fields = [](testing::Crc32& crc, Couleur colour) {
        const HlsFields shown = fieldsFromHls(hlsOf(colour));
        crc.add(shown.hue);
        crc.add(shown.sat);
        crc.add(shown.lum);
    };
    EXPECT_EQ(testing::checksumOfColours(17, fields), 0xC17C600BU);
    bool same = true;
    EXPECT_EQ(testing::checksumOfColours(1,
                                         [&](testing::Crc32& crc, Couleur colour) {
                                             fields(crc, colour);
                                             same = same && couleurFromHls(hlsOf(colour)) == colour;
                                         }),
              0xD96E494AU);
    EXPECT_TRUE(same) << "a colour comes back from its hue, lightness and saturation";

    testing::Crc32 crc;
    for (int hue = 0; hue <= kHlsFieldMax; ++hue) {
        for (int sat = 0; sat <= kHlsFieldMax; ++sat) {
            for (int lum = 0; lum <= kHlsFieldMax; ++lum) {
                crc.addColour(couleurFromHls(hlsFromFields({hue, sat, lum})));
            }
        }
    }
    EXPECT_EQ(crc.value(), 0x818DDFEBU);
}

}  // namespace
}  // namespace quillmark
