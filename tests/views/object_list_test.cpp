#include "views/object_list.h"

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>

#include "support/generated_document.h"
#include "support/test_files.h"
#include "text/labels.h"
#include "views/readable_colour.h"
#include "views/search_words.h"

namespace quillmark {
namespace {

Bytes labels(const std::vector<Label>& labels) {
    return encodeStrings(labels, 1252).Strings;
}

Polygone polygon(const char* Type, const char* SubType, Bytes Strings = {}) {
    Polygone polygon;
    polygon.Type = Type;
    polygon.SubType = SubType;
    polygon.Entete = Strings.empty() ? 0x06 : 0x16;
    polygon.Couleurs.resize(3);
    polygon.Strings = std::move(Strings);
    return polygon;
}

Polyline line(const char* Type, std::uint8_t first, std::uint8_t second) {
    Polyline line;
    line.Type = Type;
    line.SubType = "1a";
    line.ActiveRouting = {first, second};
    return line;
}

class ObjectListTest : public ::testing::Test {
  protected:
    ObjectList& refreshed(ObjectList& list, int language = 1) {
        list.refresh(language);
        return list;
    }

    Document document;
    Traduction french;
    Profile types = Profile::parse("[Polygons]\n0x01700=Parc urbain/0x17\n0x10f04=Forêt/x\n");
    RowSources sources{document, french, [this]() -> const Profile& { return types; }};
    ObjectList polygons{ListKind::Polygone, sources};
};

TEST_F(ObjectListTest, CaptionsTellTheCountsOfBothKindsOfLines) {
    document.Polygone = {polygon("001", "00")};
    document.Polyline = {line("001", 0, 0), line("002", 0, 0), line("003", 0, 1)};
    document.ExtraPOI.resize(2);
    document.ListDraworder = {"Type=0x003,1", "Type=0x10f,SubType=0x04,2"};
    const std::vector<std::string> expected{"Liste des polygones  (1)",
                                            "Liste des polylignes  (2 - 1)", "Liste des POI  (0)",
                                            "Liste des POI additionnels  (2)", "DrawOrder  (2)"};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(listCaption(document, kLists[i], french), expected[i]);
    }
}

TEST_F(ObjectListTest, RowsOfEachKind) {
    document.Polygone = {polygon("10d", "1a")};
    document.ExtraPOI.resize(2);
    document.ExtraPOI[0].BrandID = -1;
    document.ExtraPOI[1].BrandID = 12;
    document.ListDraworder = {"Type=0x10f,SubType=0x04,2"};
    EXPECT_EQ(rowText(sources, ListKind::Polygone, 0), "Type=0x10d - SubType=0x1a");
    EXPECT_EQ(rowText(sources, ListKind::ExtraPOI, 0), "Brand ID:    4294967295");
    EXPECT_EQ(rowText(sources, ListKind::ExtraPOI, 1), "Brand ID:    12");
    EXPECT_EQ(rowText(sources, ListKind::Draworder, 0), "Type=0x10f,SubType=0x04,2");
}

TEST_F(ObjectListTest, ANameIsTheLabelOfTheLanguageElseThatOfTheTypeElseAnyLabel) {
    document.Polygone = {polygon("017", "00", labels({{4, "Park"}, {1, "Le\r\nparc"}})),
                         polygon("017", "00", labels({{4, "Park"}})),
                         polygon("150", "01", labels({{4, "Pen"}})), polygon("150", "02")};
    document.ListDraworder = {"Type=0x150,SubType=0x01,3", "Type=0x10f,SubType=0x04,1"};
    refreshed(polygons);
    EXPECT_EQ(polygons.name(0), "Le parc");
    EXPECT_EQ(polygons.name(1), "Parc urbain");
    EXPECT_EQ(polygons.name(2), "Pen");
    EXPECT_EQ(polygons.name(3), "");
    EXPECT_EQ(refreshed(polygons, 4).name(0), "Park");
    EXPECT_EQ(polygons.tip(0), "Type=0x017 - SubType=0x00\nPark\nParc urbain\nLe parc");
    document.Polygone[0].Entete = 0x12;
    EXPECT_TRUE(polygons.tip(0).ends_with("\n1er octet d'en-tête : 0x12 !!!"));

    ObjectList order(ListKind::Draworder, sources);
    EXPECT_EQ(refreshed(order).name(0), "Pen");
    EXPECT_EQ(order.name(1), "Forêt") << "an entry without its polygon";
}

TEST_F(ObjectListTest, ChangedObjectsGetNewNames) {
    document.Polygone = {polygon("150", "01", labels({{1, "Pré"}}))};
    EXPECT_EQ(refreshed(polygons).name(0), "Pré");
    document.Polygone[0].Strings = labels({{1, "Champ"}});
    polygons.refreshEntry(0);
    EXPECT_EQ(polygons.name(0), "Champ");
}

TEST_F(ObjectListTest, FilterByNumberAndByAnyName) {
    document.Polygone = {polygon("002", "00"), polygon("017", "00", labels({{4, "Town park 2"}})),
                         polygon("10f", "04"), polygon("10f", "05", labels({{1, "ÉTANG"}}))};
    document.Polygone.push_back(polygon("170", "00", labels({{7, "Ängö"}})));
    const auto rows = [&](const char* filter) {
        polygons.setFilter(filter);
        std::vector<int> indexes;
        for (int row = 0; row < polygons.rowCount(); ++row) {
            indexes.push_back(polygons.indexAt(row));
            EXPECT_EQ(polygons.rowOf(indexes.back()), row);
        }
        return indexes;
    };
    refreshed(polygons);
    using Indexes = std::vector<int>;
    EXPECT_EQ(rows(" "), (Indexes{0, 1, 2, 3, 4}));
    EXPECT_EQ(rows("2"), (Indexes{0, 1})) << "a number or part of a name";
    EXPECT_EQ(rows("017"), (Indexes{1}));
    EXPECT_EQ(rows("17"), (Indexes{1, 4}));
    EXPECT_EQ(rows("0x10F04"), (Indexes{2}));
    EXPECT_EQ(rows("20"), (Indexes{})) << "002/00 isn't 20";
    EXPECT_EQ(rows("1700"), (Indexes{1, 4}));
    EXPECT_EQ(rows("10f etang"), (Indexes{3}));
    EXPECT_EQ(rows("ango"), (Indexes{4}));
    EXPECT_EQ(rows("PARC"), (Indexes{1})) << "the type's name, though another one is shown";
    EXPECT_EQ(polygons.rowOf(0), -1);
    EXPECT_EQ(rows("type"), (Indexes{})) << "words of every row find nothing";

    document.Polygone.pop_back();
    EXPECT_EQ(rows("foret"), (Indexes{2}));
    EXPECT_EQ(refreshed(polygons).rowCount(), 1) << "the filter stays through changes";
}

TEST_F(ObjectListTest, TypedCharactersLookForTheTypeFirst) {
    document.Polygone = {polygon("00f", "00"), polygon("10f", "04"), polygon("10f", "05"),
                         polygon("150", "00", labels({{1, "Bois (éclairci)"}}))};
    refreshed(polygons);
    struct Case {
        const char* typed;
        int from;
        int row;
    };
    for (const Case& c : {Case{"f", 0, 0}, Case{"fo", 0, 1}, Case{"10f", 2, 2}, Case{"10f", 3, 1},
                          Case{"10f05", 0, 2}, Case{"0x15", 0, 3}, Case{"ecl", 0, 3},
                          Case{"bois (", 9, 3}, Case{"ois", 0, -1}, Case{"", 0, -1}}) {
        EXPECT_EQ(polygons.typeAhead(c.typed, c.from), c.row) << c.typed << " from " << c.from;
    }
    document.Polygone = {polygon("001", "00"), polygon("010", "1f")};
    EXPECT_EQ(refreshed(polygons).typeAhead("10", 0), 1) << "a type is no part of a longer number";
    EXPECT_EQ(polygons.typeAhead("101f", 0), 1);
    ObjectList empty(ListKind::ExtraPOI, sources);
    EXPECT_EQ(refreshed(empty).typeAhead("1", 0), -1);
}

TEST_F(ObjectListTest, AListThatIsAheadOfTheNoticeAsksForNothingBeyondTheDocument) {
    document.Polygone = {polygon("001", "00"), polygon("002", "00")};
    refreshed(polygons);
    document.Polygone.pop_back();
    EXPECT_EQ(polygons.indexAt(1), -1);
    EXPECT_EQ(polygons.typeAhead("2", 0), -1);
}

TEST(SearchWords, AreComparedWithoutCaseAndAccents) {
    EXPECT_EQ(foldedForSearch("Łąka ŒUVRE Straße ×÷"), "laka oeuvre strasse ×÷");
    EXPECT_EQ(foldedForSearch("ΕΛΛΆΣ Ёлка e\u0301"), "ελλασ елка e");
}

TEST(Activity, IndexAndWordsOfALine) {
    const Traduction french;
    struct Case {
        std::uint8_t first;
        std::uint8_t second;
        int index;
        const char* text;
    };
    for (const Case& c :
         {Case{0, 0, -1, ""}, Case{4, 0, 0, "Marche à pied"}, Case{5, 0, 3, "Vélo"},
          Case{5, 2, 5, "VTT"}, Case{4, 3, 3, "Inconnue"}, Case{0, 13, 1, "Inconnue"},
          Case{3, 0, -1, "Inconnue"}, Case{5, 3, -1, "Inconnue"}}) {
        const Polyline activity = line("001", c.first, c.second);
        EXPECT_EQ(activityIndex(activity), c.index) << int(c.first) << "," << int(c.second);
        EXPECT_EQ(activityText(activity, french), c.text) << int(c.first) << "," << int(c.second);
    }
}

TEST(ReadableColour, KeepsTheHueOfEveryColourOnEveryGround) {
    EXPECT_NEAR(contrast(0, 0xFFFFFF), 21, 0.01);
    EXPECT_EQ(readableOn(0xFF0000, 0xFFFFFF), 0xFF0000) << "blue can be read on white as it is";
    const std::vector<Couleur> grounds{0xFFFFFF, 0x1E1E1E, 0x767676, 0x0000FF};
    const std::vector<Couleur> colours{0x0000FF, 0x00FF00, 0xFF0000, 0xFFFF00, 0xFF00FF, 0x00FFFF};
    for (const Couleur ground : grounds) {
        for (const Couleur colour : colours) {
            const Couleur shown = readableOn(colour, ground);
            EXPECT_GE(contrast(shown, ground), kReadableContrast) << colour << " on " << ground;
            // Parts that are equal in a pure colour stay equal, the larger ones stay larger.
            const auto order = [](Couleur c) {
                const auto sign = [](int a, int b) { return a < b ? -1 : a > b ? 1 : 0; };
                return std::vector<int>{sign(redOf(c), greenOf(c)), sign(greenOf(c), blueOf(c)),
                                        sign(redOf(c), blueOf(c))};
            };
            EXPECT_EQ(order(shown), order(colour)) << colour << " on " << ground;
        }
    }
    EXPECT_GE(contrast(readableOn(0x808080, 0x808080), 0x808080), kReadableContrast);
}

TEST(LargeLists, FillAndFilterWithoutAWait) {
    testing::GeneratedShape shape;
    shape.polygons = shape.polylines = shape.pois = kMaxObjects;
    const Document document = testing::generatedDocument(5, shape);
    const Traduction french;
    const Profile types = Profile::load(testing::dataFolder() / "MPCTypes.txt");
    const RowSources sources{document, french, [&]() -> const Profile& { return types; }};
    const auto milliseconds = [](const auto& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count();
    };
    std::vector<ObjectList> lists;
    for (const ListKind kind : kLists) {
        lists.emplace_back(kind, sources);
    }
    const double fill = milliseconds([&] {
        for (ObjectList& list : lists) {
            list.refresh(1);
            for (int row = 0; row < std::min(list.rowCount(), 60); ++row) {
                static_cast<void>(list.text(row) + list.name(row));
            }
        }
    });
    const double firstFilter = milliseconds([&] { lists[0].setFilter("zz"); });
    const double nextFilter = milliseconds([&] { lists[0].setFilter("zza"); });
    std::cout << "lists of 3 x 32,767 objects: filled in " << fill << " ms; first filter "
              << firstFilter << " ms, next " << nextFilter << " ms\n";
    EXPECT_LT(fill, 100);
    EXPECT_LT(firstFilter, 2000);
    EXPECT_LT(nextFilter, 200);
}

}  // namespace
}  // namespace quillmark
