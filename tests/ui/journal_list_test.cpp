#include "views/journal_list.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/clock.h"
#include "support/generated_document.h"
#include "text/labels.h"
#include "typ/writer.h"
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

    // What the text can't hold.
    Document document = testing::generatedDocument(7);
    document.Polyline.at(1).Strings = encodeStrings({{4, "one\ntwo"}}, document.CodePage).Strings;
    document.Polyline[1].Entete2 |= line_bits::kStrings;
    const auto typ = program.folder.path() / "a.typ";
    testing::writePlain(typ, CreerTYP(document, DateTime{2024, 5, 6, 7, 8, 9}).file);
    program.dialogues.answers = {Answer::no};
    program.session.ouvrir(typ);
    list.refresh();
    const auto told = std::find_if(list.rows().begin(), list.rows().end(), [](const JournalRow& r) {
        return r.text.starts_with("Fin de ligne");
    });
    ASSERT_NE(told, list.rows().end());
    const ObjectRef object = list.objectOf(*told);
    ASSERT_EQ(object.kind, ObjectKind::Polyline);
    EXPECT_EQ(program.document.Polyline.at(static_cast<std::size_t>(object.index)).Strings,
              document.Polyline[1].Strings);
}

}  // namespace
}  // namespace quillmark
