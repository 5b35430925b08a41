#include "editors/colour_chooser.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>

#include "bitmap/colour.h"
#include "bitmap/garmin_swatches.h"
#include "bitmap/sixteen_bits.h"
#include "editors/recent_colours.h"
#include "support/colour_checks.h"

namespace quillmark {
namespace {

using testing::rgb;
using enum ChooserField;

struct ColourChooserTest : ::testing::Test {
    MemorySettings store;
    Settings settings{store};
    Traduction french;
    std::vector<std::string> told;
    std::unique_ptr<ColourChooser> chooser;

    ColourChooser& open(Couleur colour, std::optional<ChooserTab> tab = {}) {
        told.clear();
        const auto tell = [this](Couleur each) { told.push_back(colourText(each)); };
        chooser =
            std::make_unique<ColourChooser>(ChooserRequest{colour, tell, tab}, settings, french);
        return *chooser;
    }
    ColourChooser& open(const std::string& colour, std::optional<ChooserTab> tab = {}) {
        return open(rgb(colour), tab);
    }
    const ChooserState& state() { return chooser->state(); }
    std::string colour() { return colourText(state().colour); }
    // "R G B H S L "
    std::string fields() {
        std::string all;
        for (const std::string& text : state().fields) {
            all += text + ' ';
        }
        return all;
    }
    const ChooserSwatch& swatch(int number) {
        return state().voisines[static_cast<std::size_t>(number - kFirstNeighbour)];
    }
};

std::string joined(const std::array<int, 3>& a, const std::array<int, 3>& b) {
    std::string all;
    for (const auto* values : {&a, &b}) {
        for (const int value : *values) {
            all += std::to_string(value) + ' ';
        }
    }
    return all;
}

TEST_F(ColourChooserTest, ShowsAColourInAllItsPlaces) {
    ASSERT_EQ(testing::colourRows().size(), 23U);
    for (const auto& row : testing::colourRows()) {
        SCOPED_TRACE(row.colour);
        open(row.colour);
        EXPECT_EQ(fields(), joined(row.rgbFields, row.hslFields));
        EXPECT_EQ(state().lblCouleurChoisieTip, row.colour);
        const std::string nearestTip = "Couleur Garmin la plus proche : " + row.nearest;
        for (int number = kFirstNeighbour; number <= kNearestSwatch; ++number) {
            const ChooserSwatch& shown = swatch(number);
            EXPECT_EQ(shown.border, number == row.marked) << number;
            if (number <= kLastCorner) {
                EXPECT_EQ(shown.tip, shown.border ? nearestTip : colourText(shown.colour));
            }
        }
        EXPECT_EQ(swatch(kChosenSwatch).tip, "Couleur Choisie  : " + row.colour);
        EXPECT_EQ(colourText(swatch(kChosenSwatch).colour), row.colour);
        EXPECT_EQ(swatch(kNearestSwatch).tip, nearestTip);
        EXPECT_EQ(state().framed != 0, row.colour == row.nearest);

        // The same hue, saturation and lightness, typed.
        chooser->Carré_Click(1);
        for (const ChooserField field : {txtHue, txtSat, txtLum}) {
            chooser->txt_Change(field, "0");
            chooser->txt_Change(
                field, std::to_string(
                           row.hslFields[static_cast<std::size_t>(static_cast<int>(field) - 3)]));
        }
        EXPECT_EQ(colour(), row.typedBack);
        EXPECT_EQ(fields(), joined(row.typedFields, row.hslFields)) << "cut, not scaled";
    }
}

TEST_F(ColourChooserTest, TypedLevelsNeverFightTheHand) {
    const std::vector<int> fiveBits{0,   8,   16,  24,  32,  41,  49,  57,  65,  74,  82,
                                    90,  98,  106, 115, 123, 131, 139, 148, 156, 164, 172,
                                    180, 189, 197, 205, 213, 222, 230, 238, 246, 255};
    const std::map<int, int> sixBits{{0, 0},    {1, 4},    {2, 8},    {20, 80},  {21, 85},
                                     {31, 125}, {32, 129}, {42, 170}, {62, 250}, {63, 255}};
    const auto type = [this](ChooserField field, int level, const std::set<int>& stable) {
        const auto& shown = state().fields[static_cast<std::size_t>(field)];
        chooser->txt_Change(field, std::to_string(level));
        EXPECT_EQ(shown, std::to_string(level));
        // A colour from elsewhere is shown whole, most levels then one lower.
        const Couleur colour = state().colour;
        chooser->cmdAutres_Click(colour);
        EXPECT_EQ(shown, std::to_string(stable.count(level) != 0 ? level : level - 1));
        return colour;
    };
    for (const auto& [field, shift] : {std::pair{txtRed, 0}, {txtBlue, 16}}) {
        open("#000000");
        for (int level = 0; level <= kFiveBitsMax; ++level) {
            EXPECT_EQ(type(field, level, {0, 31}),
                      fiveBits[static_cast<std::size_t>(level)] << shift);
        }
    }
    open("#000000");
    for (int level = 0; level <= kSixBitsMax; ++level) {
        const Couleur colour = type(txtGreen, level, {0, 21, 42, 63});
        if (const auto known = sixBits.find(level); known != sixBits.end()) {
            EXPECT_EQ(colour, known->second << 8);
        }
    }
}

TEST_F(ColourChooserTest, FieldsTakeDigitsUpToTheirMaximum) {
    struct Row {
        ChooserField field;
        std::string typed;
        std::string shown;
        std::string left;
    };
    for (const Row& row : std::vector<Row>{{txtRed, "32", "31", "31"},
                                           {txtBlue, "999", "31", "31"},
                                           {txtGreen, "64", "63", "63"},
                                           {txtHue, "241", "240", "240"},
                                           {txtLum, "12345", "123", "123"},
                                           {txtSat, "-1x2", "12", "12"},
                                           {txtRed, "007", "007", "7"},
                                           {txtHue, "", "", "0"}}) {
        open("#335577");
        chooser->txt_Change(row.field, row.typed);
        const auto& shown = state().fields[static_cast<std::size_t>(row.field)];
        EXPECT_EQ(shown, row.shown);
        chooser->txt_LostFocus(row.field);
        EXPECT_EQ(shown, row.left);
    }
    // An empty field counts 0: red 6 21 14 without its red.
    open("#335577");
    chooser->txt_Change(txtRed, "");
    EXPECT_EQ(colour(), "#005573");
    told.clear();
    chooser->txt_Change(txtRed, "0");
    EXPECT_TRUE(told.empty()) << "the same number is no other colour";
}

TEST_F(ColourChooserTest, TabsShowTheirPanelsAndAreRemembered) {
    const auto panels = [this] {
        return std::string(state().Picture1 ? "swatches " : "") +
               (state().picVoisines ? "neighbours " : "") + (state().Picture2 ? "field " : "") +
               (state().picHLSRGB ? "numbers" : "");
    };
    open("#000000");
    EXPECT_EQ(panels(), "swatches neighbours ");
    chooser->TabStrip_Click(ChooserTab::all);
    EXPECT_EQ(panels(), "swatches neighbours field numbers");
    chooser->TabStrip_Click(ChooserTab::bits16);
    EXPECT_EQ(panels(), "field numbers");
    open("#000000", ChooserTab::all);
    open("#000000");
    EXPECT_EQ(state().tab, ChooserTab::bits16) << "a tab asked for isn't one used";
    settings.setText(keys::kOngletPalette, "7");
    open("#000000");
    EXPECT_EQ(state().tab, ChooserTab::series60);
}

TEST_F(ColourChooserTest, TheFieldGivesThePixelThatIsPointedAt) {
    for (const ChooserTab tab : {ChooserTab::all, ChooserTab::bits16}) {
        open("#335577", tab);
        const bool bits16 = tab == ChooserTab::bits16;
        EXPECT_EQ(colour(), "#335577") << "stays until a click";
        EXPECT_EQ(state().cross.x, 209) << "359 times 7/12, cut";
        for (const FieldPoint point :
             {FieldPoint{0, 0}, {359, 0}, {120, 57}, {200, 199}, {-5, 900}}) {
            const int x = std::clamp(point.x, 0, kHueFieldWidth - 1);
            const int y = std::clamp(point.y, 0, kHueFieldHeight - 1);
            const Couleur pixel = chooser->Picture2().pixel(x, y);
            chooser->Picture2_MouseDown(point);
            EXPECT_EQ(state().colour, pixel);
            EXPECT_EQ(state().cross, (FieldPoint{x, y})) << "also at a grey, which has no hue";
            EXPECT_EQ(chooser->Picture2().pixel(x, y), pixel) << "the field stays under the hand";
            EXPECT_TRUE(!bits16 || nearest16Bits(pixel) == pixel);
        }
        chooser->Picture2_KeyDown(3, -4);
        EXPECT_EQ(state().cross, (FieldPoint{3, 195}));
        for (const int row : {0, 60, 199}) {
            const Couleur pixel = chooser->strip().pixel(0, row);
            chooser->strip_MouseDown(row);
            EXPECT_EQ(state().colour, pixel);
            EXPECT_EQ(state().lightnessRow, row);
            EXPECT_EQ(state().cross, (FieldPoint{3, 195})) << "kept at black and white";
        }
    }
    open("#0000FF", ChooserTab::all);
    EXPECT_EQ(state().cross, (FieldPoint{239, 0}));
    chooser->Picture2_KeyDown(-359, 0);
    for (int column = 1; column < kHueFieldWidth; ++column) {
        chooser->Picture2_KeyDown(1, 0);
        ASSERT_EQ(state().cross.x, column);
    }
    // Keys that can't move a mark leave a colour that isn't of the field as it is.
    open("#101010", ChooserTab::all);
    chooser->Picture2_KeyDown(-1, 1);
    chooser->strip_KeyDown(0);
    EXPECT_EQ(colour(), "#101010");
    chooser->strip_KeyDown(1);
    EXPECT_NE(colour(), "#101010");
    open("#000000", ChooserTab::bits16);
    chooser->strip_KeyDown(10);
    EXPECT_TRUE(told.empty());
    for (int level = 0; level <= kFiveBitsMax; ++level) {
        const Couleur grey =
            couleurFromRgb(byteOfLevel(level, kFiveBitsMax), byteOfLevel(level, kSixBitsMax),
                           byteOfLevel(level, kFiveBitsMax));
        EXPECT_EQ(nearest16Bits(grey), grey);
    }
}

TEST_F(ColourChooserTest, EachChangeIsToldAndCancelTellsTheFirst) {
    open("#7C3041");
    chooser->Carré_Click(kNearestSwatch);
    EXPECT_NE(state().framed, 0);
    chooser->Carré_Click(state().framed);
    chooser->Carré_Click(kChosenSwatch);
    chooser->Carré_Click(kFirstNeighbour);
    chooser->Carré_Click(255);
    chooser->txt_Change(txtRed, "31");
    chooser->lblCouleurInitiale_Click();
    EXPECT_EQ(told, (std::vector<std::string>{"#7B3041", "#390020", "#FF0018", "#7C3041"}));
    chooser->Carré_Click(1);
    chooser->cmdAnnuler_Click();
    EXPECT_EQ(told.back(), "#7C3041");
    EXPECT_TRUE(recentColours(settings).empty());

    // A system colour comes back by its name unless another one is chosen.
    const auto window = static_cast<Couleur>(0x80000005U);
    open(window);
    EXPECT_EQ(colour(), "#FFFFFF");
    EXPECT_EQ(chooser->cmdOK_Click(), window);
    ColourChooser plain({rgb("#010203"), {}, {}}, settings, french);
    plain.Carré_Click(kNearestSwatch);
    plain.cmdAnnuler_Click();
}

TEST_F(ColourChooserTest, APickShowsPixelsButChoosesOnlyAtItsEnd) {
    open("#000000");
    chooser->txt_Change(txtRed, "10");
    told.clear();
    const std::string before = fields();
    chooser->Timer1_Timer(rgb("#FF00FF"));
    EXPECT_EQ(colour(), "#520000") << "no pick is under way";
    chooser->picPicker_Click();
    chooser->Timer1_Timer(rgb("#FF00FF"));
    EXPECT_EQ(colour(), "#FF00FF");
    EXPECT_TRUE(state().picking);
    chooser->picPicker_End(std::nullopt);
    EXPECT_FALSE(state().picking);
    EXPECT_EQ(fields(), before);
    EXPECT_TRUE(told.empty());

    chooser->picPicker_Click();
    chooser->Timer1_Timer(rgb("#00FF00"));
    chooser->picPicker_End(rgb("#00FF00"));
    EXPECT_EQ(told, std::vector<std::string>{"#00FF00"});
    chooser->picPicker_Click();
    chooser->Timer1_Timer(rgb("#FFFFFF"));
    EXPECT_EQ(chooser->cmdOK_Click(), rgb("#00FF00")) << "a pick that wasn't ended chose nothing";

    // A colour chosen by hand meanwhile stays.
    const std::vector<std::function<void()>> byHand{[this] { chooser->Carré_Click(5); },
                                                    [this] {
                                                        chooser->Picture2_MouseDown({7, 7});
                                                    },
                                                    [this] { chooser->strip_MouseDown(60); },
                                                    [this] { chooser->txt_Change(txtRed, "20"); }};
    for (const auto& choose : byHand) {
        open("#335577", ChooserTab::all);
        chooser->picPicker_Click();
        choose();
        EXPECT_FALSE(state().picking);
        const std::string chosen = colour();
        EXPECT_EQ(told, std::vector{chosen});
        chooser->picPicker_End(rgb("#FF00FF"));
        EXPECT_EQ(colour(), chosen) << "the end of the pick comes too late";
    }
}

TEST_F(ColourChooserTest, KeysWalkThroughThePalette) {
    open("#7C3041");
    chooser->Picture1_KeyDown(1, 0);
    EXPECT_EQ(colour(), "#7B3041") << "first to the nearest";
    struct Row {
        int from;
        int columns;
        int rows;
        int to;
    };
    for (const Row& row : std::vector<Row>{{1, 1, 0, 2},
                                           {1, -1, 0, 1},
                                           {1, 0, -1, 1},
                                           {20, 1, 0, 20},
                                           {21, -1, 0, 21},
                                           {21, 0, -1, 1},
                                           {240, 0, 1, 240},
                                           {234, 0, 1, 254},
                                           {254, 1, 0, 254}}) {
        chooser->Carré_Click(row.from);
        chooser->Picture1_KeyDown(row.columns, row.rows);
        EXPECT_EQ(state().framed, row.to) << row.from;
    }
}

TEST_F(ColourChooserTest, RecentColoursComeBackInTheNextChooser) {
    settings.setText(keys::kCouleursRecentes, "#010203, red,#12345,#-12345,,#AABBCC,#010203");
    for (int level = 0; level < 20; ++level) {
        open(couleurFromRgb(0, 0, static_cast<std::uint8_t>(level)));
        chooser->cmdOK_Click();
        if (level == 0) {
            EXPECT_EQ(settings.text(keys::kCouleursRecentes), "#000000,#010203,#AABBCC");
        }
    }
    open("#FFFFFF");
    ASSERT_EQ(state().recent.size(), kRecentColours);
    EXPECT_EQ(state().recent[0].tip, "#000013");
    chooser->recent_Click(3);
    EXPECT_EQ(colour(), "#000010");
    chooser->cmdOK_Click();
    EXPECT_EQ(recentColours(settings).front(), rgb("#000010"));
    EXPECT_EQ(recentColours(settings).size(), kRecentColours);
}

}  // namespace
}  // namespace quillmark
