#include "views/journal_list.h"

#include <gtest/gtest.h>

#include "ui/program.h"

namespace quillmark {
namespace {

// The text of the view has other lines than the file, so what was wrong with the file leads to the
// object, and what is wrong with the view's text to its line.
TEST(JournalListTest, EntriesLeadToWhatTheyAreAbout) {
    testing::Program program;
    const auto file = program.folder.path() / "a.txt";
    testing::writePlain(
        file, testing::bytesOf("[_polygon]\r\nType=0x02\r\nXpm=\"0 0 1 0\"\r\n\"1 c #102030\""
                               "\r\n[end]\r\n\r\n\r\n[_line]\r\nType=0x05\r\nSubType=zz\r\n"
                               "Xpm=\"0 0 1 0\"\r\n\"1 c #102030\"\r\n[end]\r\n"));
    program.session.ouvrir(file);
    JournalList list(program.session, program.traduction);
    list.refresh();
    ASSERT_FALSE(list.rows().empty());
    const JournalRow& row = list.rows().front();
    EXPECT_EQ(row.place, "Ligne 10");
    EXPECT_EQ(row.line, 0) << "of the file, not of the view";
    EXPECT_EQ(list.objectOf(row), (ObjectRef{ObjectKind::Polyline, 0, 0}));
    program.session.edit({}, [](Document& document) { document.Polyline.clear(); });
    EXPECT_EQ(list.objectOf(row), ObjectRef{}) << "it isn't there any more";
}

}  // namespace
}  // namespace quillmark
