#include "views/icon_sheet.h"

#include <gtest/gtest.h>

#include "support/picture_text.h"
#include "support/test_files.h"
#include "text/labels.h"
#include "views/readable_colour.h"

namespace quillmark {
namespace {

using testing::storedColours;

Bytes labels(const std::vector<Label>& labels) {
    return encodeStrings(labels, 65001).Strings;
}

Polygone polygon(const char* Type, const char* SubType, const std::vector<Label>& names = {}) {
    Polygone polygone;
    polygone.Type = Type;
    polygone.SubType = SubType;
    polygone.Entete = names.empty() ? 0x06 : 0x16;
    polygone.Couleurs = storedColours("r");
    polygone.Strings = names.empty() ? Bytes() : labels(names);
    return polygone;
}

Polyline line(std::uint8_t first, std::uint8_t second, const char* Type = "10d",
              const char* SubType = "1a") {
    Polyline polyline;
    polyline.Type = Type;
    polyline.SubType = SubType;
    polyline.Entete = 6;
    polyline.Couleurs = storedColours("r");
    polyline.Bitmap = {4};
    polyline.ActiveRouting = {first, second};
    return polyline;
}

POI point(int side) {
    POI poi;
    poi.Type = "02f";
    poi.SubType = "06";
    poi.Largeur = static_cast<std::uint8_t>(side);
    poi.Hauteur = static_cast<std::uint8_t>(side / 2);
    poi.Image[0].NbCouleurs = 1;
    poi.Image[0].Couleurs = storedColours("b");
    poi.Image[0].Bitmap.assign(static_cast<std::size_t>((side + 7) / 8 * (side / 2)), 0);
    return poi;
}

struct Sheet {
    explicit Sheet(Document shown, SheetOptions options = {}, int width = 960)
        : document(std::move(shown)), sheet(document, traduction) {
        document.CodePage = 65001;
        sheet.setWidth(width);
        sheet.setOptions(options);
    }
    Document document;
    Traduction traduction;
    IconSheet sheet;
};

TEST(SheetLayout, ColumnsRowsAndHits) {
    struct Columns {
        int width;
        std::array<int, 5> at;  // factors 1, 2, 3, 4, 8
    };
    for (const Columns& c :
         {Columns{40, {1, 1, 1, 1, 1}}, Columns{47, {1, 1, 1, 1, 1}}, Columns{48, {1, 1, 1, 1, 1}},
          Columns{95, {1, 1, 1, 1, 1}}, Columns{96, {2, 1, 1, 1, 1}},
          Columns{959, {19, 9, 6, 4, 2}}, Columns{960, {20, 10, 6, 5, 2}},
          Columns{961, {20, 10, 6, 5, 2}}, Columns{1008, {21, 10, 7, 5, 2}}}) {
        const std::array<int, 5> factors{1, 2, 3, 4, 8};
        for (std::size_t i = 0; i < factors.size(); ++i) {
            Sheet shown({}, {.factor = factors[i]}, c.width);
            EXPECT_EQ(shown.sheet.layout().columns(), c.at[i]) << c.width << ' ' << factors[i];
        }
    }
    struct Rows {
        int count, columns, rows;
    };
    for (const Rows& r :
         {Rows{0, 20, 0}, Rows{1, 20, 1}, Rows{20, 20, 1}, Rows{21, 20, 2}, Rows{41, 20, 3},
          Rows{487, 20, 25}, Rows{32767, 20, 1639}, Rows{7, 1, 7}}) {
        const SheetLayout layout(r.count, r.columns * 48, 48, 48);
        EXPECT_EQ(layout.rows(), r.rows);
        EXPECT_EQ(layout.height(), std::int64_t{r.rows} * 48);
    }
    const SheetLayout layout(30, 960, 48, 48);
    struct Hit {
        int x, y, number;  // from 1, 0 for none
    };
    for (const Hit& h : {Hit{0, 0, 1}, Hit{47, 47, 1}, Hit{48, 0, 2}, Hit{959, 0, 20},
                         Hit{960, 0, 0}, Hit{0, 48, 21}, Hit{479, 48, 30}, Hit{480, 48, 0},
                         Hit{0, 96, 0}, Hit{-1, 0, 0}, Hit{0, -1, 0}}) {
        EXPECT_EQ(layout.hit(h.x, h.y), h.number - 1) << h.x << ' ' << h.y;
    }
    EXPECT_EQ(layout.cell(29), (SheetRectangle{432, 48, 48, 48}));
}

TEST(SheetLayout, ScrollsByTenPixelsBeyondWhat32BitsHold) {
    EXPECT_EQ(SheetLayout::top(0), 0);
    EXPECT_EQ(SheetLayout::top(7), -70);
    const SheetLayout layout(30'000'000, 96, 96, 100);
    EXPECT_EQ(layout.height(), 3'000'000'000);
    EXPECT_EQ(layout.largestValue(500), 299'999'950);
    EXPECT_EQ(layout.hit(5, 2'999'999'999), 29'999'999);
    const auto range = layout.between(2'999'999'850, 500);
    EXPECT_EQ(range.first, 29'999'998);
    EXPECT_EQ(range.last, 30'000'000);
    // Only as far as needed, and by its top when the view is lower than the cell.
    EXPECT_EQ(layout.valueShowing(3, 0, 1000), 0);
    EXPECT_EQ(layout.valueShowing(12, 0, 1000), 30);
    EXPECT_EQ(layout.valueShowing(2, 30, 1000), 20);
    EXPECT_EQ(layout.valueShowing(2, 0, 50), 20);
    EXPECT_EQ(layout.pageRows(350), 3);
    EXPECT_EQ(layout.pageRows(20), 1);
    EXPECT_EQ(layout.valuesOf(1), 10);
}

TEST(SheetLayout, KeysMoveThroughTheCells) {
    using Move = SheetMove;
    const SheetLayout layout(10, 40, 10, 10);  // rows of 4, 4 and 2
    struct Case {
        int from;
        Move move;
        int to;
    };
    for (const Case& c :
         {Case{-1, Move::down, 0}, Case{-1, Move::end, 9}, Case{0, Move::left, 0},
          Case{3, Move::right, 4}, Case{4, Move::left, 3}, Case{9, Move::right, 9},
          Case{1, Move::down, 5}, Case{7, Move::down, 9}, Case{9, Move::down, 9},
          Case{5, Move::up, 1}, Case{2, Move::up, 2}, Case{5, Move::home, 0}, Case{5, Move::end, 9},
          Case{0, Move::pageDown, 8}, Case{9, Move::pageUp, 1}}) {
        EXPECT_EQ(layout.moved(c.from, c.move, 25), c.to) << &c;
    }
    EXPECT_EQ(SheetLayout(0, 40, 10, 10).moved(-1, Move::down, 25), -1);
}

TEST(IconSheet, CellsOfPointsFitTheLargestPicture) {
    for (const auto& [largest, side] :
         {std::pair{0, 48}, {24, 48}, {32, 48}, {40, 56}, {128, 144}}) {
        Document document;
        document.POI = {point(8), point(largest)};
        for (const int factor : {1, 2, 8}) {
            Sheet shown(document, {.kind = ObjectKind::POI,
                                   .factor = factor,
                                   .labels = LabelMode::typeAndText,
                                   .lineHeight = 15});
            EXPECT_EQ(shown.sheet.layout().cellWidth(), side * factor);
            EXPECT_EQ(shown.sheet.layout().cellHeight(), side * factor + 30);
            EXPECT_EQ(shown.sheet.pictureHeight(), side * factor);
        }
    }
}

TEST(IconSheet, PicturesStandInTheMiddleInWholeDevicePixels) {
    Document document;
    document.POI = {point(128)};
    struct Case {
        int factor;
        double ratio;
        int scale;
        Rectangle place;
    };
    for (const Case& c : {Case{1, 1, 1, {8, 40, 128, 64}}, Case{2, 1, 2, {16, 80, 256, 128}},
                          Case{1, 2, 2, {16, 80, 256, 128}},
                          // Twice as large would pass the cell.
                          Case{1, 1.5, 1, {44, 76, 128, 64}}}) {
        Sheet shown(document, {.kind = ObjectKind::POI, .factor = c.factor, .ratio = c.ratio});
        EXPECT_EQ(shown.sheet.pictureScale(), c.scale);
        const Rectangle place = shown.sheet.pictureIn(shown.sheet.cell(0).picture->image);
        EXPECT_EQ(std::tie(place.x, place.y, place.width, place.height),
                  std::tie(c.place.x, c.place.y, c.place.width, c.place.height));
    }
}

TEST(IconSheet, MembersOfExtraPoiStandGroupByGroup) {
    Document document;
    document.ExtraPOI.resize(3);
    document.ExtraPOI[0].BrandID = 12;
    document.ExtraPOI[0].POI = {point(8), point(16)};
    document.ExtraPOI[2].BrandID = -1;
    document.ExtraPOI[2].POI = {point(48)};
    Sheet shown(document, {.kind = ObjectKind::ExtraPOI, .labels = LabelMode::type});
    ASSERT_EQ(shown.sheet.layout().count(), 3);
    EXPECT_EQ(shown.sheet.layout().cellWidth(), 64);
    const ObjectRef expected[] = {
        {ObjectKind::ExtraPOI, 0, 0}, {ObjectKind::ExtraPOI, 0, 1}, {ObjectKind::ExtraPOI, 2, 0}};
    const char* types[] = {"12-1", "12-2", "4294967295-1"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(shown.sheet.objectAt(i), expected[i]);
        EXPECT_EQ(shown.sheet.cellOf(expected[i]), i);
        EXPECT_EQ(shown.sheet.cell(i).lines[0].text, types[i]);
    }
    EXPECT_EQ(shown.sheet.cellOf({ObjectKind::ExtraPOI, 1, 0}), -1);
    EXPECT_EQ(shown.sheet.cellOf({ObjectKind::POI, 0, 0}), -1);
    EXPECT_EQ(shown.sheet.tip(1), "12");
    EXPECT_EQ(shown.sheet.tip(3), "");
    EXPECT_EQ(shown.sheet.tip(-1), "");
    shown.document.ExtraPOI.resize(40, document.ExtraPOI[2]);
    const ObjectRef added{ObjectKind::ExtraPOI, 39, 0};
    EXPECT_EQ(shown.sheet.cellOf(added), -1) << "not laid out yet";
    shown.sheet.refresh();
    EXPECT_EQ(shown.sheet.cellOf(added), 39);
}

TEST(IconSheet, LinesOfTheLabelModes) {
    Document document;
    document.Polygone = {polygon("003", "00"), polygon("00a", "00"),
                         polygon("10d", "1a", {{1, "Forêt"}})};
    const std::pair<LabelMode, std::vector<std::string>> modes[] = {
        {LabelMode::none, {}},
        {LabelMode::text, {"Forêt"}},
        {LabelMode::type, {"10d/1a"}},
        {LabelMode::typeAndText, {"10d/1a", "Forêt"}},
    };
    for (const auto& [mode, lines] : modes) {
        Sheet shown(document, {.labels = mode});
        std::vector<std::string> found;
        for (const SheetLine& line : shown.sheet.cell(2).lines) {
            found.push_back(line.text);
        }
        EXPECT_EQ(found, lines);
    }
    Sheet shown(document, {.labels = LabelMode::type});
    EXPECT_EQ(shown.sheet.cell(0).lines[0].text, "003");
    EXPECT_EQ(shown.sheet.cell(1).lines[0].text, "00a");
    EXPECT_EQ(shown.sheet.tip(0), "003/00");
    EXPECT_EQ(shown.sheet.tip(2), "10d/1a\nForêt");
    EXPECT_EQ(shown.sheet.layout().cellHeight(), 48);
}

TEST(IconSheet, ActivitiesAreNamedInReadableColours) {
    Document document;
    const std::pair<std::array<std::uint8_t, 2>, std::string> cases[] = {
        {{4, 0}, "10d/1a Marche à pied"}, {{4, 1}, "10d/1a Randonnée"},
        {{4, 2}, "10d/1a Alpinisme"},     {{5, 0}, "10d/1a Vélo"},
        {{5, 1}, "10d/1a Cyclotourisme"}, {{5, 2}, "10d/1a VTT"},
        {{4, 3}, "10d/1a Inconnue"},      {{3, 3}, "10d/1a Inconnue"},
        {{0, 12}, "10d/1a Inconnue"},     {{6, 0}, "10d/1a Inconnue"},
        {{255, 10}, "10d/1a Inconnue"},   {{0, 0}, "10d/1a"},
    };
    const int colours[] = {0, 1, 2, 3, 4, 5, 3, 0, 0, -1, -1, -1};
    for (const auto& [bytes, text] : cases) {
        document.Polyline.push_back(line(bytes[0], bytes[1]));
    }
    for (const Couleur ground : {couleurFromRgb(255, 255, 255), couleurFromRgb(30, 30, 30)}) {
        SheetOptions options{.kind = ObjectKind::Polyline, .labels = LabelMode::type};
        options.ground = ground;
        options.text = 0x123456;
        options.activities = {255, 65280, 16711680, 16776960, 16711935, 65535};
        Sheet shown(document, options);
        for (std::size_t i = 0; i < std::size(cases); ++i) {
            const SheetLine found = shown.sheet.cell(static_cast<int>(i)).lines[0];
            EXPECT_EQ(found.text, cases[i].second);
            if (colours[i] < 0) {
                EXPECT_EQ(found.colour, options.text);
                continue;
            }
            const Couleur pure = options.activities[static_cast<std::size_t>(colours[i])];
            EXPECT_EQ(found.colour, readableOn(pure, ground));
            EXPECT_GE(contrast(found.colour, ground), 4.5);
        }
    }
    Sheet shown(document, {.kind = ObjectKind::Polyline});
    EXPECT_EQ(shown.sheet.tip(5), "10d/1a\nMountain Biking");
    EXPECT_EQ(shown.sheet.tip(6), "10d/1a\nUnknown");
    EXPECT_EQ(shown.sheet.tip(11), "10d/1a");
}

TEST(IconSheet, TheLabelIsInTheLanguageAskedForElseTheGeneralOneElseTheFirst) {
    Document document;
    document.CodePage = 65001;
    document.Polygone = {
        polygon("001", "00", {{4, "Wood"}, {0, "Bois"}, {1, "Forêt"}}),
        polygon("001", "00", {{4, "Wood"}, {0, "Bois"}}),
        polygon("001", "00", {{16, "Las"}, {4, "Wood 0x01,"}}),
        polygon("001", "00", {{1, "un\\deux\r\ntrois\rquatre\ncinq\x1f"}}),
        polygon("001", "00"),
    };
    // A block that its flag doesn't tell of belongs to no record.
    document.Polygone[4].Strings = labels({{1, "?"}});
    const char* expected[] = {"Forêt", "Bois", "Las", "un\\deux trois quatre cinq", ""};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(sheetLabel(document, {ObjectKind::Polygone, i, 0}, 1), expected[i]) << i;
    }
    EXPECT_EQ(sheetLabel(document, {ObjectKind::Polygone, 2, 0}, 4), "Wood 0x01,");
}

TEST(IconSheet, LabelsAreCutInUserVisibleCharacters) {
    struct Row {
        int size;
        std::array<int, 5> at;  // factors 1, 2, 3, 4, 8
    };
    for (const Row& row :
         {Row{6, {12, 24, 36, 48, 96}}, Row{8, {9, 18, 27, 36, 72}}, Row{10, {7, 14, 21, 28, 57}},
          Row{11, {6, 13, 19, 26, 52}}, Row{12, {6, 12, 18, 24, 48}}, Row{16, {4, 9, 13, 18, 36}},
          Row{72, {1, 2, 3, 4, 8}}, Row{80, {1, 1, 2, 3, 7}}}) {
        const std::array<int, 5> factors{1, 2, 3, 4, 8};
        for (std::size_t i = 0; i < factors.size(); ++i) {
            EXPECT_EQ(labelCharacters(factors[i], row.size), row.at[i]) << row.size;
        }
    }
    const std::string cluster = "e\xCC\x81";                   // e and an accent
    const std::string family = "👨\xE2\x80\x8D👩\xE2\x80\x8D👧";  // one character of five
    const std::string flag = "🇫🇷";
    const std::pair<std::string, std::string> cases[] = {
        {"Straße", "Straße"},
        {"123456789", "123456789"},
        {"1234567890", "123456789…"},
        {"12345678é", "12345678é"},
        {cluster + "23456789", cluster + "23456789"},
        {"1234567" + cluster + cluster + cluster, "1234567" + cluster + cluster + "…"},
        {"12345678" + family + family, "12345678" + family + "…"},
        {"1234567" + flag + flag + flag, "1234567" + flag + flag + "…"},
        {"", ""},
    };
    for (const auto& [label, cut] : cases) {
        EXPECT_EQ(cutLabel(label, 1, 8), cut);
    }
}

TEST(IconSheet, FaultsMarkTheCellAndStandInTheTip) {
    Document document;
    document.Polygone = {polygon("001", "00", {{1, "Lac"}}), polygon("002", "00")};
    document.Polygone[0].Entete = 0x12;
    document.POI = {point(8)};
    document.POI[0].Image[0].Bitmap.resize(2);
    Sheet shown(document);
    EXPECT_TRUE(shown.sheet.cell(0).picture->faults.layout);
    EXPECT_EQ(shown.sheet.tip(0), "001/00\nLac\n1er octet d'en-tête : 0x12 !!!");
    EXPECT_FALSE(shown.sheet.cell(1).picture->faults.any());
    shown.sheet.setOptions({.kind = ObjectKind::POI});
    EXPECT_EQ(shown.sheet.tip(0), "02f/06\nIl manque des octets : ces pixels sont transparents.");
}

TEST(IconSheet, MakesOnlyWhatIsSeen) {
    Document document;
    for (int i = 0; i < 32767; ++i) {
        document.Polygone.push_back(polygon("001", "00"));
    }
    Sheet shown(document);
    const auto cells = shown.sheet.cells(48 * 100 + 10, 96);
    ASSERT_EQ(cells.size(), 60U);
    EXPECT_EQ(cells.front().index, 2000);
    EXPECT_EQ(cells.back().frame, (SheetRectangle{912, 48 * 102, 48, 48}));
    // Equal content is one picture.
    EXPECT_EQ(cells.front().picture, cells.back().picture);
    EXPECT_TRUE(shown.sheet.cells(48 * 2000, 96).empty());
}

}  // namespace
}  // namespace quillmark
