#include "ui/icon_sheet_panel.h"

#include <QScrollBar>
#include <QTest>

#include "support/fake_text_pane.h"
#include "support/generated_document.h"
#include "typ/writer.h"
#include "ui/icon_sheet_view.h"
#include "ui/kind_tabs.h"
#include "ui/program.h"

namespace quillmark {
namespace {

class IconSheetPanelTest : public ::testing::Test {
  protected:
    IconSheetPanelTest() {
        testing::GeneratedShape shape;
        shape.polygons = 2000;
        shape.headerSize = 110;
        shape.extraPoiGroups = 0;
        Document document = testing::generatedDocument(7, shape);
        document.FID = document.ProductCode = "1";
        const auto file = program.folder.path() / "a.typ";
        testing::writePlain(file, CreerTYP(std::move(document), {}).file);
        program.session.ouvrir(file);
        panel.resize(400, 300);
    }
    [[nodiscard]] ObjectKind shownKind() const { return view.sheet().options().kind; }
    [[nodiscard]] bool inSight(const ObjectRef& object) const {
        const SheetRectangle cell = view.sheet().layout().cell(view.sheet().cellOf(object));
        const auto top = -SheetLayout::top(view.verticalScrollBar()->value());
        return cell.y >= top && cell.y + cell.height <= top + view.viewport()->height();
    }

    testing::FakeTextPane text;
    testing::Program program;
    IconSheetPanel panel{program.context};
    KindTabs& tabs = *static_cast<KindTabs*>(panel.findChild<QTabBar*>());
    IconSheetView& view =
        *static_cast<IconSheetView*>(panel.findChild<QAbstractScrollArea*>("picAfficheTout"));
};

TEST_F(IconSheetPanelTest, TabsLeadToTheirKindByKeysAndOutOfAnEmptyOne) {
    program.current.choose({ObjectKind::POI, 4, 0});
    EXPECT_EQ(tabs.currentIndex(), 2);
    QTest::keyClick(&tabs, Qt::Key_Left);
    EXPECT_EQ(program.current.object(), (ObjectRef{ObjectKind::Polyline, 0, 0}));
    EXPECT_EQ(shownKind(), ObjectKind::Polyline);
    tabs.setCurrentIndex(3);
    EXPECT_EQ(program.current.object(), ObjectRef{}) << "nothing is left to act on unseen";
    EXPECT_EQ(shownKind(), ObjectKind::ExtraPOI);
    program.session.documentChanged({});
    EXPECT_EQ(tabs.currentIndex(), 3);
    tabs.setCurrentIndex(1);
    EXPECT_EQ(shownKind(), ObjectKind::Polyline);
}

TEST_F(IconSheetPanelTest, ARefusedTabStaysWhereTheObjectIs) {
    const ObjectRef polygon{ObjectKind::Polygone, 3, 0};
    program.session.setTextPane(&text);
    program.session.showObject(polygon);
    program.current.choose(polygon);
    text.typed += "edited";
    program.dialogues.answers = {Answer::cancel, Answer::cancel};
    for (const int tab : {2, 3}) {
        tabs.setCurrentIndex(tab);
        EXPECT_EQ(program.current.object(), polygon);
        EXPECT_EQ(shownKind(), ObjectKind::Polygone);
        EXPECT_EQ(tabs.currentIndex(), 0);
    }
    program.session.setTextPane(nullptr);
}

TEST_F(IconSheetPanelTest, WhatWasSelectedUnseenIsInSightWhenShown) {
    const ObjectRef last{ObjectKind::Polygone, 1999, 0};
    program.current.choose(last);
    panel.show();
    EXPECT_TRUE(inSight(last));
    panel.hide();
    program.document.Polygone.resize(1000);
    program.session.documentChanged({Change::What::content, {}, {}, {}});
    program.current.choose({ObjectKind::Polygone, 0, 0});
    panel.show();
    EXPECT_TRUE(inSight({ObjectKind::Polygone, 0, 0}));
}

}  // namespace
}  // namespace quillmark
