#include "views/preview_pane.h"

#include <gtest/gtest.h>

#include <set>

#include "support/picture_text.h"
#include "views/thumbnails.h"

namespace quillmark {
namespace {

using testing::colourOf;
using testing::Rows;
using testing::rowsOf;
using testing::storedColours;
using Places = std::set<std::pair<int, int>>;

// Its upper left pixel takes the first colour, all others the second.
Polygone dotted(const char* Type, unsigned Entete, std::string_view colours) {
    Polygone polygone;
    polygone.Type = Type;
    polygone.SubType = "00";
    polygone.Entete = static_cast<std::uint8_t>(Entete);
    polygone.Couleurs = storedColours(colours);
    polygone.Bitmap[0] = 1;
    return polygone;
}

Polyline dottedLine(int rows, unsigned layout, std::string_view colours) {
    Polyline line;
    line.Entete = static_cast<std::uint8_t>(static_cast<unsigned>(rows) << 3U | layout);
    line.Couleurs = storedColours(colours);
    line.Bitmap.assign(static_cast<std::size_t>(rows) * 4, 0);
    line.Bitmap[0] = 1;
    return line;
}

// Every pixel of a colour of its own.
Couleur placeColour(int x, int y) {
    return couleurFromRgb(static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 7);
}
POI numbered(int width, int height) {
    POI poi;
    poi.Largeur = static_cast<std::uint8_t>(width);
    poi.Hauteur = static_cast<std::uint8_t>(height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Couleur colour = placeColour(x, y);
            poi.Image[0].Bitmap.insert(poi.Image[0].Bitmap.end(),
                                       {blueOf(colour), greenOf(colour), redOf(colour)});
        }
    }
    return poi;
}

Places placesOf(const Image& image, char letter) {
    Places places;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == colourOf(letter)) {
                places.insert({x, y});
            }
        }
    }
    return places;
}

// True when the picture stands there, unsmoothed, and nothing else does.
bool standsAt(const Image& pane, int x0, int y0, int width, int height, int scale) {
    for (int y = 0; y < pane.height(); ++y) {
        for (int x = 0; x < pane.width(); ++x) {
            const bool inside =
                x >= x0 && x < x0 + width * scale && y >= y0 && y < y0 + height * scale;
            const Couleur expected =
                inside ? placeColour((x - x0) / scale, (y - y0) / scale) : kLightGround;
            if (pane.pixel(x, y) != expected) {
                return false;
            }
        }
    }
    return true;
}

TEST(PreviewPane, SingleTilesAreCentredAtTheZoom) {
    struct Case {
        int width, height, factor, x0, y0;
    };
    const Case cases[] = {
        {32, 32, 1, 104, 104}, {32, 32, 3, 72, 72},  {32, 32, 7, 8, 8},   {32, 32, 8, -8, -8},
        {16, 16, 6, 72, 72},   {24, 24, 5, 60, 60},  {25, 17, 3, 82, 94}, {33, 5, 7, 4, 102},
        {32, 5, 4, 56, 110},   {32, 1, 1, 104, 119}, {40, 40, 6, 0, 0},   {128, 128, 2, -8, -8},
        {255, 1, 1, -8, 119},  {1, 1, 1, 119, 119},
    };
    for (const Case& c : cases) {
        Document document;
        document.POI.push_back(numbered(c.width, c.height));
        PreviewPane pane(document);
        pane.select({ObjectKind::POI, 0, 0});
        pane.options.sldZoom = c.factor * 100;
        pane.options.ground = Ground::light;
        const PreviewPane::Panes panes = pane.maj_Aperçu();
        EXPECT_EQ(panes.day.width(), 240);
        EXPECT_EQ(panes.day.height(), 240);
        EXPECT_TRUE(standsAt(panes.day, c.x0, c.y0, c.width, c.height, c.factor)) << c.width;
        // Without a night of its own it looks by night as by day.
        EXPECT_EQ(panes.night, panes.day);
    }
}

TEST(PreviewPane, TheZoomIsAWholeFactorAndShowsInOneMode) {
    const Document document;
    PreviewPane pane(document);
    EXPECT_EQ(pane.lblZoom(Traduction()), "Zoom : ×3");
    for (const auto& [value, factor] :
         {std::pair{100, 1}, {199, 1}, {250, 2}, {800, 8}, {0, 1}, {5000, 8}}) {
        pane.options.sldZoom = value;
        EXPECT_EQ(pane.Facteur(), factor) << value;
    }
    EXPECT_TRUE(pane.showsZoom());
    pane.options.mode = PreviewMode::mosaic;
    EXPECT_FALSE(pane.showsZoom());
}

TEST(PreviewPane, ScaledScreensTakeWholeDevicePixels) {
    Document document;
    document.POI.push_back(numbered(32, 32));
    PreviewPane pane(document);
    pane.select({ObjectKind::POI, 0, 0});
    pane.options.ground = Ground::light;
    struct Case {
        double ratio;
        int side, scale, x0;
    };
    for (const Case& c : {Case{2, 480, 6, 144}, Case{1.25, 300, 4, 86}, Case{1.5, 360, 5, 100}}) {
        pane.options.ratio = c.ratio;
        const Image day = pane.maj_Aperçu().day;
        EXPECT_EQ(day.width(), c.side);
        EXPECT_TRUE(standsAt(day, c.x0, c.x0, 32, 32, c.scale)) << c.ratio;
    }
}

TEST(PreviewPane, MosaicsOfPolygonsAndLines) {
    Document document;
    document.Polygone.push_back(dotted("001", 0x09, "rgby"));
    PreviewPane pane(document);
    pane.options.mode = PreviewMode::mosaic;
    pane.select({ObjectKind::Polygone, 0, 0});
    const std::set<int> columns{40, 72, 104, 136, 168};
    Places expected;
    for (const int x : columns) {
        for (const int y : columns) {
            expected.insert({x, y});
        }
    }
    const PreviewPane::Panes panes = pane.maj_Aperçu();
    EXPECT_EQ(placesOf(panes.day, 'r'), expected);
    EXPECT_EQ(placesOf(panes.night, 'b'), expected);
    EXPECT_EQ(placesOf(panes.day, 'g').size(), 160U * 160U - 25U);
    EXPECT_EQ(placesOf(panes.night, 'r').size(), 0U);
    document.Polygone.clear();

    for (const auto& [height, y0] : {std::pair{1, 119},
                                     {2, 119},
                                     {3, 118},
                                     {4, 118},
                                     {5, 117},
                                     {7, 116},
                                     {8, 116},
                                     {14, 113},
                                     {31, 104}}) {
        document.Polyline.assign(1, dottedLine(height, 0, "rg"));
        pane.select({ObjectKind::Polyline, 0, 0});
        Places row;
        for (const int x : columns) {
            row.insert({x, y0});
        }
        for (const PreviewMode mode : {PreviewMode::mosaic, PreviewMode::superposition}) {
            pane.options.mode = mode;
            EXPECT_EQ(placesOf(pane.maj_Aperçu().day, 'r'), row) << height;
            EXPECT_EQ(placesOf(pane.maj_Aperçu().night, 'r'), row) << height;
        }
    }
}

TEST(PreviewPane, SuperpositionShowsTheLastPolygonThroughTheObject) {
    Document document;
    document.Polygone = {dotted("001", 0x09, "rgby"), dotted("002", 0x08, "yb")};
    // Transparent but for one pixel in a row of 32.
    document.Polyline.push_back(dottedLine(4, 6, "k"));
    PreviewPane pane(document);
    pane.options.mode = PreviewMode::superposition;
    pane.select({ObjectKind::Polygone, 0, 0});
    EXPECT_EQ(placesOf(pane.maj_Aperçu().day, 'r').size(), 25U);

    pane.select({ObjectKind::Polyline, 0, 0});
    PreviewPane::Panes panes = pane.maj_Aperçu();
    EXPECT_EQ(placesOf(panes.day, 'k'),
              (Places{{40, 118}, {72, 118}, {104, 118}, {136, 118}, {168, 118}}));
    EXPECT_EQ(placesOf(panes.day, 'r').size(), 25U);
    EXPECT_EQ(placesOf(panes.day, 'g').size(), 160U * 160U - 30U);
    EXPECT_EQ(placesOf(panes.night, 'k').size(), 5U);
    EXPECT_EQ(placesOf(panes.night, 'b').size(), 25U);

    // From the polygon's present state.
    document.Polygone[0].Couleurs = storedColours("xgby");
    EXPECT_EQ(placesOf(pane.maj_Aperçu().day, 'x').size(), 25U);

    document.Polygone.clear();
    for (const auto& [width, height, x0, y0] : {std::array{16, 16, 112, 112},
                                                {24, 24, 108, 108},
                                                {25, 17, 107, 111},
                                                {40, 40, 100, 100},
                                                {1, 128, 119, 56},
                                                {255, 255, -8, -8}}) {
        document.POI.assign(1, numbered(width, height));
        pane.select({ObjectKind::POI, 0, 0});
        pane.options.ground = Ground::light;
        for (const PreviewMode mode : {PreviewMode::mosaic, PreviewMode::superposition}) {
            pane.options.mode = mode;
            EXPECT_TRUE(standsAt(pane.maj_Aperçu().day, x0, y0, width, height, 1)) << width;
        }
    }
}

TEST(PreviewPane, TheLastPolygonIsKnownByItsIdentity) {
    Document document;
    document.Polygone = {dotted("001", 8, "rg"), dotted("002", 8, "rg"), dotted("003", 8, "rg")};
    document.POI.push_back(numbered(1, 1));
    const ObjectRef point{ObjectKind::POI, 0, 0};
    const auto polygon = [](int index) { return ObjectRef{ObjectKind::Polygone, index, 0}; };
    PreviewPane pane(document);
    pane.select(polygon(1));
    pane.select(point);
    const auto told = [&](Change::What what, const ObjectRef& object) {
        Change change;
        change.what = what;
        change.object = object;
        pane.follow(change);
        return pane.PolygoneAffiche();
    };

    document.Polygone.insert(document.Polygone.begin(), dotted("000", 8, "rg"));
    EXPECT_EQ(told(Change::What::added, polygon(0)), polygon(2));
    document.Polygone.erase(document.Polygone.begin());
    EXPECT_EQ(told(Change::What::removed, polygon(0)), polygon(1));
    EXPECT_EQ(told(Change::What::removed, point), polygon(1));

    std::swap(document.Polygone[0], document.Polygone[1]);
    Reordering swapped;
    swapped.newIndex[1] = {1, 0, 2};
    Change reordered;
    reordered.what = Change::What::reordered;
    reordered.reordering = std::make_shared<const Reordering>(swapped);
    pane.follow(reordered);
    EXPECT_EQ(pane.PolygoneAffiche(), polygon(0));

    // An undo may have moved or taken anything.
    std::swap(document.Polygone[0], document.Polygone[2]);
    EXPECT_EQ(told(Change::What::content, {}), polygon(2));
    document.Polygone.pop_back();
    EXPECT_EQ(told(Change::What::content, {}), ObjectRef{});

    pane.select(polygon(0));
    pane.select(point);
    document.Polygone.erase(document.Polygone.begin());
    EXPECT_EQ(told(Change::What::removed, polygon(0)), ObjectRef{});

    // Of those of one type it stays the one that it was.
    document.Polygone = {dotted("002", 8, "rg"), dotted("002", 8, "gb")};
    pane.select(polygon(1));
    pane.select(point);
    document.Polygone.insert(document.Polygone.begin(),
                             {dotted("000", 8, "rg"), dotted("001", 8, "rg")});
    EXPECT_EQ(told(Change::What::content, {}), polygon(3));

    // The neighbour that was selected instead of a deleted polygon is the last one now.
    pane.select(polygon(0));
    EXPECT_EQ(told(Change::What::removed, polygon(0)), polygon(0));
    EXPECT_EQ(told(Change::What::replaced, {}), polygon(0));
    pane.select({});
    EXPECT_EQ(told(Change::What::replaced, {}), ObjectRef{});
}

TEST(PreviewPane, FaultsAndMissingObjectsLeaveTheGroundAndAMark) {
    Document document;
    document.Polygone.push_back(dotted("001", 0x0A, ""));
    document.ExtraPOI.resize(1);
    PreviewPane pane(document);
    EXPECT_EQ(placesOf(pane.maj_Aperçu().day, 'L').size(), 240U * 240U);
    pane.select({ObjectKind::ExtraPOI, 0, 0});
    EXPECT_EQ(pane.memberCount(), 0);
    EXPECT_EQ(placesOf(pane.maj_Aperçu().night, 'D').size(), 240U * 240U);
    pane.select({ObjectKind::Polygone, 0, 0});
    const PreviewPane::Panes panes = pane.maj_Aperçu();
    EXPECT_NE(placesOf(panes.day, 'L').size(), 240U * 240U);
    EXPECT_EQ(pane.tip(panes.nightFaults, Traduction()), "1er octet d'en-tête : 0x0A !!!");
    EXPECT_EQ(pane.tip(panes.nightFaults, Traduction()), pane.tip(panes.dayFaults, Traduction()));

    // Of the polygon below as well, each reason once.
    document.Polyline = {dottedLine(1, 2, "k"), dottedLine(1, 6, "kr")};
    document.Polyline[1].Bitmap.clear();
    pane.options.mode = PreviewMode::superposition;
    pane.select({ObjectKind::Polyline, 1, 0});
    const PreviewPane::Panes over = pane.maj_Aperçu();
    EXPECT_EQ(pane.tip(over.dayFaults, Traduction()),
              "Il manque des octets : ces pixels sont transparents.\n"
              "1er octet d'en-tête : 0x0A !!!");
}

TEST(Thumbnails, ShowPatternsRepeatedAndPointsWhole) {
    Document document;
    document.Polygone = {dotted("001", 0x09, "rgby"), dotted("002", 0x0A, "")};
    document.Polyline.push_back(dottedLine(2, 6, "k"));
    document.POI = {numbered(2, 1), numbered(255, 51)};
    document.ExtraPOI.resize(1);
    Thumbnails thumbnails(document);
    thumbnails.setShape({40, 1, Ground::light, false});
    EXPECT_EQ(thumbnails.used(), 0U);

    const auto polygon = thumbnails.of({ObjectKind::Polygone, 0, 0});
    EXPECT_EQ(placesOf(polygon->day, 'r'), (Places{{0, 0}, {0, 32}, {32, 0}, {32, 32}}));
    EXPECT_EQ(placesOf(polygon->night, 'b').size(), 4U);
    const auto line = thumbnails.of({ObjectKind::Polyline, 0, 0});
    EXPECT_EQ(placesOf(line->day, 'k'), (Places{{0, 19}, {32, 19}}));
    EXPECT_EQ(line->night.width(), 0);
    EXPECT_EQ(thumbnails.of({ObjectKind::POI, 0, 0})->day.pixel(19, 19), placeColour(0, 0));
    const auto large = thumbnails.of({ObjectKind::POI, 1, 0});
    EXPECT_EQ(placesOf(large->day, 'L').size(), 40U * 32U);
    EXPECT_EQ(thumbnails.of({ObjectKind::ExtraPOI, 0, 0})->day.width(), 0);

    // Kept by content: a change is seen, the same again is not made again.
    EXPECT_EQ(thumbnails.of({ObjectKind::Polygone, 0, 0}), polygon);
    document.Polygone[0].Couleurs[0] = 9;
    EXPECT_NE(thumbnails.of({ObjectKind::Polygone, 0, 0}), polygon);
    thumbnails.setShape({40, 2, Ground::light, false});
    EXPECT_EQ(thumbnails.used(), 0U);
    EXPECT_EQ(thumbnails.of({ObjectKind::Polygone, 0, 0})->day.width(), 80);
}

TEST(Thumbnails, TakeNoMoreMemoryThanTheyMay) {
    Document document;
    for (int i = 0; i < 200; ++i) {
        document.Polygone.push_back(dotted("001", 0x08, "rg"));
        document.Polygone.back().Couleurs[0] = static_cast<std::uint8_t>(i);
    }
    Thumbnails thumbnails(document, 100'000);
    for (int i = 0; i < 200; ++i) {
        const auto thumbnail = thumbnails.of({ObjectKind::Polygone, i, 0});
        EXPECT_EQ(thumbnail->day.width(), 32);
        EXPECT_LE(thumbnails.used(), 100'000U);
    }
    EXPECT_GT(thumbnails.used(), 50'000U);
}

}  // namespace
}  // namespace quillmark
