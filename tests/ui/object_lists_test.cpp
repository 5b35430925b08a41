#include "ui/object_lists_panel.h"

#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <chrono>
#include <iostream>

#include "support/generated_document.h"
#include "typ/writer.h"
#include "ui/program.h"

namespace quillmark {
namespace {

class ObjectListsTest : public ::testing::Test {
  protected:
    void open(const testing::GeneratedShape& shape = {}) {
        Document document = testing::generatedDocument(7, shape);
        document.FID = document.ProductCode = "1";
        const auto file = program.folder.path() / "a.typ";
        testing::writePlain(file, CreerTYP(std::move(document), {}).file);
        program.session.ouvrir(file);
        ASSERT_TRUE(program.session.facts().hasDocument);
    }
    ObjectListView& list(const char* name) {
        return *static_cast<ObjectListView*>(panel.findChild<QTreeView*>(QLatin1String(name)));
    }
    QToolButton& button(const char* name) {
        return *panel.findChild<QToolButton*>(QLatin1String(name));
    }
    QLineEdit& filter(const char* name) {
        return *panel.findChild<QLineEdit*>(QLatin1String(name));
    }
    static int selectedRow(const ObjectListView& view) {
        const auto rows = view.selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }

    testing::Program program;
    ObjectListsPanel panel{program.context};
};

TEST_F(ObjectListsTest, ARowThatIsChosenIsTheCurrentObjectOfAllLists) {
    open();
    ObjectListView& polygons = list("ListPolygone");
    QTest::keyClick(&polygons, Qt::Key_Down);
    QTest::keyClick(&polygons, Qt::Key_Down);
    EXPECT_EQ(program.current.object(), (ObjectRef{ObjectKind::Polygone, 1, 0}))
        << "keys count as clicks";
    EXPECT_TRUE(button("cmdSupprimerPolygone").isEnabled());

    list("ListExtraPOI")
        .selectionModel()
        ->select(list("ListExtraPOI").model()->index(2, 0),
                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_EQ(program.current.object(), (ObjectRef{ObjectKind::ExtraPOI, 2, 0}));
    EXPECT_EQ(selectedRow(polygons), -1);
    EXPECT_FALSE(button("cmdSupprimerPolygone").isEnabled());

    program.current.choose({ObjectKind::Polyline, 4, 0});
    EXPECT_EQ(panel.openedList(), ListKind::Polyline);
    EXPECT_EQ(selectedRow(list("lstvPolyline")), 4);
    EXPECT_EQ(selectedRow(list("ListExtraPOI")), -1);
}

TEST_F(ObjectListsTest, KeysLeadIntoRowsWithoutASelection) {
    open();
    panel.show();
    panel.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
    ObjectListView& polygons = list("ListPolygone");
    const int last = polygons.model()->rowCount() - 1;
    const std::pair<Qt::Key, int> keys[] = {
        {Qt::Key_Down, 0}, {Qt::Key_Up, 0}, {Qt::Key_Home, 0}, {Qt::Key_End, last}};
    for (const auto& [key, row] : keys) {
        program.current.choose({});
        filter("txtFiltrePolygone").setFocus();
        polygons.setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(polygons.currentIndex().isValid()) << "as the toolkit does with the focus";
        QTest::keyClick(&polygons, key);
        EXPECT_EQ(selectedRow(polygons), row) << key;
        EXPECT_EQ(program.current.object(), (ObjectRef{ObjectKind::Polygone, row, 0})) << key;
    }
    QTest::keyClick(&polygons, Qt::Key_Up);
    EXPECT_EQ(selectedRow(polygons), last - 1);
    program.current.choose({});
    filter("txtFiltrePolygone").setFocus();
    QTest::keyClick(&filter("txtFiltrePolygone"), Qt::Key_Down);
    EXPECT_TRUE(polygons.hasFocus());
    EXPECT_EQ(selectedRow(polygons), 0);
}

TEST_F(ObjectListsTest, FilteringNeverChangesTheCurrentObject) {
    open();
    program.current.choose({ObjectKind::POI, 5, 0});
    const ObjectRef chosen = program.current.object();
    int told = 0;
    const Connection counting = program.current.changed.connect([&told] { ++told; });
    for (const char* typed : {"1", "zzz", "0x2", ""}) {
        filter("txtFiltrePOI").setText(QLatin1String(typed));
        const ObjectList& rows = static_cast<ObjectListModel*>(list("ListPOI").model())->list();
        EXPECT_EQ(list("ListPOI").model()->rowCount(), rows.rowCount()) << typed;
        EXPECT_EQ(selectedRow(list("ListPOI")), rows.rowOf(5)) << typed;
    }
    EXPECT_EQ(program.current.object(), chosen);
    EXPECT_EQ(told, 0);
}

TEST_F(ObjectListsTest, KeysOfARow) {
    open();
    ObjectListView& view = list("ListPolygone");
    const Document& document = program.session.document();
    program.current.choose({ObjectKind::Polygone, 0, 0});
    EXPECT_FALSE(button("cmdModifierPolygone").isEnabled());
    EXPECT_TRUE(button("cmdModifierPolygone").toolTip().contains(QLatin1String("prochaine")));
    QTest::keyClick(&view, Qt::Key_Return);  // nothing to open yet

    std::vector<std::string> asked;
    panel.setEditors(
        {[&](const ObjectRef& o) { asked.push_back("edit " + std::to_string(o.index)); },
         [&](ObjectKind) { asked.emplace_back("new"); }, [&] { asked.emplace_back("order"); }});
    QTest::keyClicks(&view, QString::fromStdString(document.Polygone[9].Type));
    EXPECT_EQ(document.Polygone[static_cast<std::size_t>(program.current.object().index)].Type,
              document.Polygone[9].Type);
    program.current.choose({ObjectKind::Polygone, 3, 0});
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Insert);
    QTest::keyClick(&list("ListDraworder"), Qt::Key_Enter);
    EXPECT_EQ(asked, (std::vector<std::string>{"edit 3", "new", "order"}));

    const Polygone next = document.Polygone[4];
    program.dialogues.answers = {Answer::yes};
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(document.Polygone[3], next);
    EXPECT_EQ(selectedRow(view), 3);
    EXPECT_EQ(button("fraPolygone").text(), QStringLiteral("Liste des polygones  (39)"));
}

TEST_F(ObjectListsTest, EntriesOfTheDrawOrderAreNoSelection) {
    open();
    program.current.choose({ObjectKind::Polygone, 2, 0});
    ObjectListView& order = list("ListDraworder");
    ASSERT_GT(order.model()->rowCount(), 3);
    QTest::keyClick(&order, Qt::Key_Down);
    QTest::keyClick(&order, Qt::Key_Down);
    EXPECT_EQ(order.currentIndex().row(), 1) << "keys scroll through it";
    EXPECT_EQ(selectedRow(order), -1);
    EXPECT_EQ(program.current.object(), (ObjectRef{ObjectKind::Polygone, 2, 0}));
}

TEST_F(ObjectListsTest, AnotherDocumentOpensItsFirstListWithoutTheOldFilter) {
    open();
    filter("txtFiltrePOI").setText(QStringLiteral("zzz"));
    panel.openList(ListKind::Draworder);
    testing::GeneratedShape points;
    points.polygons = points.polylines = points.activeRoutingLines = 0;
    open(points);
    EXPECT_EQ(panel.openedList(), ListKind::POI);
    EXPECT_EQ(list("ListPOI").model()->rowCount(), 60);
    EXPECT_EQ(list("ListPolygone").model()->rowCount(), 0);
    EXPECT_EQ(program.current.kind(), ObjectKind::none);
    points.pois = 0;
    open(points);
    EXPECT_EQ(panel.openedList(), ListKind::ExtraPOI);
}

TEST_F(ObjectListsTest, SpeakTheLanguageOfTheProgram) {
    open();
    program.traduction = Traduction({testing::dataFolder()}, "Deutsch");
    program.languageChanged();
    for (const ListKind kind : kLists) {
        const auto* caption = panel.findChildren<QToolButton*>().at(static_cast<int>(kind));
        EXPECT_EQ(caption->text().toStdString(),
                  listCaption(program.session.document(), kind, program.traduction));
    }
}

TEST_F(ObjectListsTest, FillQuicklyWithAsManyObjectsAsThereMayBe) {
    testing::GeneratedShape shape;
    shape.polygons = shape.polylines = shape.pois = kMaxObjects;
    shape.activeRoutingLines = 0;
    panel.resize(320, 600);
    panel.show();
    program.document = testing::generatedDocument(7, shape);
    const auto start = std::chrono::steady_clock::now();
    program.session.documentChanged({Change::What::replaced, {}, {}, {}});
    panel.grab();
    const double filled =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    std::cout << "lists of 3 x 32,767 objects shown after " << filled << " ms\n";
    EXPECT_LT(filled, 1000);
}

}  // namespace
}  // namespace quillmark
