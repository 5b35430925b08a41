// Text that is put back into the document it was made from.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/test_files.h"
#include "text/view_text.h"
#include "text_test_tools.h"

namespace quillmark {
namespace {

using namespace testing;

// A document with much that text can't hold: a subtype of a standard type, a label with a
// semicolon, an activity that changes its name, a group of Extra POI.
Document richDocument() {
    Document document;
    document.FID = "7";
    document.ProductCode = "1";
    Polygone polygone;
    polygone.Type = "003";
    polygone.SubType = "01";
    polygone.Entete = 0x86;
    polygone.Couleurs = hex("01 02 03");
    document.Polygone = {polygone, polygone};
    document.Polygone[1].SubType = "02";
    Polyline line;
    line.Type = "004";
    line.SubType = "00";
    line.Entete = 6;
    line.Entete2 = 0x03;
    line.Couleurs = hex("01 02 03");
    line.Bitmap = {3};
    line.Strings = hex("0D 04 61 3B 62 00 00");
    line.ActiveRouting = {4, 1};
    document.Polyline = {line};
    document.ExtraPOI.resize(1);
    document.ExtraPOI[0].POI.resize(1);
    document.Commentaire = "note";
    document.ListDraworder = {"Type=0x003,1"};
    document.DrawOrder = {{1, 3, 0}};
    return document;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

TEST(Apply, UneditedSectionsKeepTheirRecords) {
    const Document document = richDocument();
    const GeneratedText shown = generate(document);
    const ParsedText same = parseText(shown.text, document, {}, &shown);
    EXPECT_TRUE(same.document == document);

    const std::string edited = replaced(shown.text, "LineWidth=3", "LineWidth=9");
    const ParsedText changed = parseText(edited, document, {}, &shown);
    EXPECT_EQ(changed.document.Polygone, document.Polygone) << "both, each to its own text";
    EXPECT_EQ(changed.document.Polyline.at(0).Bitmap, Bytes{9});
    EXPECT_EQ(changed.document.ExtraPOI.size(), 1U);
    // The order of the sections is the order of the records.
    const std::string first = shown.text.substr(shown.text.find("[_polygon]"));
    EXPECT_EQ(parseText(first.substr(0, first.find("[_line]")), document, {}, &shown)
                  .document.Polyline.size(),
              0U);
}

TEST(Apply, EqualSectionsKeepTheirOrder) {
    Document document = richDocument();
    document.Polygone.resize(5, document.Polygone[0]);
    for (std::size_t i = 0; i < document.Polygone.size(); ++i) {
        document.Polygone[i].SubType = "0" + std::to_string(i);
    }
    const GeneratedText shown = generate(document);
    EXPECT_EQ(parseText(shown.text, document, {}, &shown).document.Polygone, document.Polygone);

    std::string edited = shown.text;
    std::size_t third = edited.find("[_polygon]");
    third = edited.find("[_polygon]", third + 1);
    third = edited.find("[_polygon]", third + 1);
    edited.replace(edited.find("#030201", third), 7, "#FFFFFF");
    const auto polygons = parseText(edited, document, {}, &shown).document.Polygone;
    ASSERT_EQ(polygons.size(), 5U);
    for (const std::size_t i : {0U, 1U, 3U, 4U}) {
        EXPECT_EQ(polygons[i], document.Polygone[i]) << i;
    }
    EXPECT_EQ(polygons[2].Couleurs, hex("FF FF FF"));
}

TEST(Apply, RecordsKeepWhatTheViewCantHold) {
    Document document = richDocument();
    document.CodePage = 65001;
    document.Commentaire = "a\u2029b";
    document.Polygone[0].Entete |= 0x10;
    document.Polygone[0].Strings = hex("0D 04 61 E2 80 A9 00");
    document.Polyline[0].Strings = hex("0D 04 EF B7 91 62 00");
    const GeneratedText shown = generate(document);
    const std::string view = viewableText(shown.text);
    EXPECT_EQ(view.find("\u2029"), std::string::npos);
    const ParsedText same = parseText(view, document, {}, &shown);
    EXPECT_TRUE(same.document == document);
    EXPECT_TRUE(same.journal.entries().empty());

    const ParsedText edited =
        parseText(replaced(view, "LineWidth=3", "LineWidth=9"), document, {}, &shown);
    EXPECT_EQ(edited.document.Polygone, document.Polygone);
    EXPECT_EQ(edited.document.Commentaire, document.Commentaire);
    EXPECT_EQ(edited.document.Polyline.at(0).Strings, hex("0D 04 EF BF BD 62 00"));
    ASSERT_EQ(edited.journal.entries().size(), 1U) << "what is lost is told";
    EXPECT_EQ(edited.journal.warningCount(), 1);
}

TEST(Apply, LabelsAreEncodedAnewInAnotherCodePage) {
    Document document = richDocument();
    document.Polygone[0].Entete |= 0x10;
    document.Polygone[0].Strings = hex("07 04 E9 00");  // é
    const GeneratedText shown = generate(document);
    const std::string edited = replaced(shown.text, "CodePage=1252", "CodePage=65001");
    const ParsedText parsed = parseText(edited, document, {}, &shown);
    EXPECT_EQ(parsed.document.Polygone.at(0).Strings, hex("09 04 C3 A9 00"));
}

TEST(Apply, OneObject) {
    const Document document = richDocument();
    const std::string section = "[_polygon]\nType=0x05\nXpm=\"0 0 1 0\"\n\"1 c #FFFFFF\"\n[end]\n";
    struct Case {
        std::string text;
        ParseTarget target;
        int errors;
        std::string type;  // of the second polygon afterwards
    };
    const std::vector<Case> cases{
        {section, {ObjectKind::Polygone, 1}, 0, "005"},
        {section + section, {ObjectKind::Polygone, 1}, 1, "005"},
        {"[_line]\nType=1\n[end]\n" + section, {ObjectKind::Polygone, 1}, 1, "005"},
        {"[_line]\nType=1\n[end]\n", {ObjectKind::Polygone, 1}, 1, "003"},
        {"[_comments]\nother\n[end]\n[_drawOrder]\nType=0x01,1\n[end]\n" + section,
         {ObjectKind::Polygone, 1},
         2,
         "005"},
    };
    for (const Case& c : cases) {
        const ParsedText parsed = parseText(c.text, document, c.target);
        EXPECT_EQ(parsed.document.Polygone.at(1).Type, c.type) << c.text;
        EXPECT_EQ(parsed.document.Polygone.at(0), document.Polygone.at(0));
        EXPECT_EQ(parsed.document.Polygone.size(), 2U);
        EXPECT_EQ(parsed.journal.errorCount(), c.errors) << c.text;
        EXPECT_EQ(parsed.document.Commentaire, "note");
        EXPECT_EQ(parsed.document.ListDraworder, document.ListDraworder);
    }
    EXPECT_EQ(parseText(section, document, {ObjectKind::Polygone, 9}).document.Polygone.size(), 3U)
        << "an object that is gone comes back as a new one";
}

TEST(Apply, ALineThatChangesItsActivityMovesAmongTheLines) {
    Document document = richDocument();  // one line, of Active Routing
    document.Polyline.insert(document.Polyline.begin(), 2, document.Polyline[0]);
    document.Polyline[0].ActiveRouting = document.Polyline[1].ActiveRouting = {0, 0};
    document.Polyline.push_back(document.Polyline[2]);
    const std::string start = "[_line]\nType=0x08\nLineWidth=3\nXpm=\"0 0 1 0\"\n\"1 c #FFFFFF\"\n";
    const std::string activity = "Activity=Hiking\n";
    struct Case {
        std::string text;
        int from;
        int to;
    };
    for (const Case& c :
         {Case{start + "[end]\n", 3, 2}, Case{start + activity + "[end]\n", 0, 1},
          Case{start + "[end]\n", 0, 0}, Case{start + activity + "[end]\n", 3, 3}}) {
        const ParsedText parsed = parseText(c.text, document, {ObjectKind::Polyline, c.from});
        EXPECT_EQ(parsed.index, c.to) << c.text << c.from;
        const auto& lines = parsed.document.Polyline;
        EXPECT_EQ(lines.at(static_cast<std::size_t>(c.to)).Type, "008");
        EXPECT_TRUE(std::is_partitioned(lines.begin(), lines.end(),
                                        [](const auto& l) { return !l.isActiveRouting(); }));
    }
}

TEST(Apply, OneObjectThatNobodyEdited) {
    const Document document = richDocument();
    GeneratedText shown;
    AffichePolygone(document.Polygone[1], {}, 1252, shown.text, shown.journal);
    shown.sections = {
        {ObjectKind::Polygone, 1, 0,
         static_cast<int>(std::count(shown.text.begin(), shown.text.end(), '\n')) - 1}};
    const ParseTarget target{ObjectKind::Polygone, 1};
    EXPECT_TRUE(parseText(shown.text, document, target, &shown).document == document);
}

TEST(Apply, MemberOfAGroup) {
    const Document document = richDocument();
    const std::string section =
        "[_point]\nType=0x05\nDayXpm=\"1 1 1 1\"\n\"! c #112233\"\n\"!\"\n[end]\n";
    const ParsedText parsed = parseText(section, document, {ObjectKind::ExtraPOI, 0, 0});
    const POI& member = parsed.document.ExtraPOI.at(0).POI.at(0);
    EXPECT_EQ(member.Largeur, 1);
    EXPECT_EQ(member.Type, document.ExtraPOI[0].POI[0].Type);
    EXPECT_EQ(parsed.journal.errorCount(), 1) << "a member has no type to take";
    EXPECT_TRUE(parsed.document.POI.empty());

    Document empty = document;
    empty.ExtraPOI[0].POI.clear();
    const ParsedText ignored = parseText(section, empty, {ObjectKind::ExtraPOI, 0, 0});
    EXPECT_TRUE(ignored.document == empty);
    EXPECT_GT(ignored.journal.errorCount() + ignored.journal.warningCount(), 0)
        << "not without a word";
}

}  // namespace
}  // namespace quillmark
