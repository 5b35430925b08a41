#include "session_fixture.h"
#include "text/labels.h"

namespace quillmark {
namespace {

using namespace testing;

const ObjectRef kFirstPolygon{ObjectKind::Polygone, 0, 0};
const ObjectRef kForest{ObjectKind::Polygone, 1, 0};
constexpr const char* kEditsQuestion =
    "Le texte contient des modifications non appliquées. Les appliquer ?";
constexpr const char* kFaultsTold =
    "Le texte appliqué contient des erreurs : voir le journal des messages.";

class SessionText : public SessionTest {
  protected:
    void SetUp() override { open(typFile("a.typ")); }
    int apply() {
        return run([this](Session::Then t) { session.cmdAppliquerModif_Click(std::move(t)); });
    }
    [[nodiscard]] std::string forest() const {
        return labelOf(document.Polygone.at(1), document.CodePage);
    }
    [[nodiscard]] bool holds(const std::string& what) const {
        return pane.typed.find(what) != std::string::npos;
    }
};

TEST_F(SessionText, UnchangedTextMakesNoStep) {
    const Document before = document;
    const std::string text = pane.typed;
    EXPECT_EQ(apply(), 1);
    pane.typed += "\r\n; a remark that nothing keeps\r\n";
    EXPECT_TRUE(session.changed() && session.textEdited());
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(document, before) << "records are kept byte for byte";
    EXPECT_EQ(pane.typed, text);
    EXPECT_FALSE(session.canUndo() || session.changed());
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(SessionText, ACleanTextIsRegeneratedAndOneStep) {
    pane.replace("Forêt", "  Bois");
    pane.replace("#107020", "#A0b0c0");
    EXPECT_EQ(apply(), 1);
    EXPECT_FALSE(pane.isEdited());
    EXPECT_TRUE(holds("#A0B0C0")) << "as the generator writes it";
    EXPECT_EQ(changes.back().what, Change::What::content);
    session.undo();
    EXPECT_EQ(forest(), "Forêt");
    EXPECT_TRUE(holds("#107020"));
    EXPECT_FALSE(session.changed() || session.canUndo());
}

TEST_F(SessionText, AFaultyTextStaysWithItsEntriesUntilTheNextApply) {
    EXPECT_EQ(close(), 1);
    open(textFile("b.txt",
                  "[_id]\nCodePage=1252\n[end]\n[_polygon]\nType=0x10\nString1=0x01,Bois\n"
                  "Xpm=\"0 0 1 0\"\n\"1 c #10zz20\"\n[end]\n"));
    const int ofTheOpen = session.errorCount();
    EXPECT_GT(ofTheOpen, 0);
    pane.replace("Bois", "Forêt");
    pane.replace("\"1 c #", "\"1 c #zz");
    pane.typed += "[_line]\r\nType=0x1\r\nXpm=\"0 0 1 0\"\r\n\"1 c #zz0000\"\r\n[end]\r\n";
    const std::string typed = pane.typed;
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(told, std::vector<std::string>{kFaultsTold});
    const int withFaults = session.errorCount();
    EXPECT_GT(withFaults, ofTheOpen + 1);
    EXPECT_GT(session.applyJournal().entries().back().line, 0);
    EXPECT_EQ(pane.typed, typed);
    EXPECT_TRUE(pane.isEdited() && session.textEdited());
    EXPECT_EQ(document.Polyline.size(), 1U) << "what could be had";

    pane.replace("#zz", "#");
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(session.errorCount(), withFaults - 1) << "those of the open stay";
    pane.replace("#zz0000", "#ff0000");
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(session.errorCount(), ofTheOpen);
    EXPECT_FALSE(pane.isEdited());
    int steps = 0;
    for (; session.canUndo() && steps < 9; ++steps) {
        session.undo();
    }
    EXPECT_EQ(steps, 3);
    EXPECT_FALSE(session.changed());
}

TEST_F(SessionText, ASingleObjectIsFollowed) {
    session.showObject(kForest);
    EXPECT_EQ(pane.typed.rfind("[_polygon]", 0), 0U);
    EXPECT_EQ(session.textView().ObjetVisualise(), ObjectKind::Polygone);
    document.Commentaire = "note";
    dialogues.answers = {Answer::yes};
    session.deleteObject(kFirstPolygon);
    EXPECT_EQ(session.textView().shown.index, 0);
    pane.replace("Forêt", "Bois");
    EXPECT_EQ(apply(), 1);
    ASSERT_EQ(document.Polygone.size(), 1U);
    EXPECT_EQ(firstLabel(), "Bois");
    EXPECT_EQ(document.Commentaire, "note");
    EXPECT_EQ(changes.back().select, kFirstPolygon);

    // It is gone, and so is every other one: the first section becomes a new object.
    dialogues.answers = {Answer::yes};
    session.deleteObject(kFirstPolygon);
    EXPECT_EQ(pane.typed, "");
    pane.typed = "[_polygon]\r\nType=0x33\r\nXpm=\"0 0 1 0\"\r\n\"1 c #010203\"\r\n[end]\r\n";
    EXPECT_EQ(apply(), 1);
    ASSERT_EQ(document.Polygone.size(), 1U);
    EXPECT_EQ(document.Polygone[0].Type, "033");
    EXPECT_EQ(document.POI.size(), 1U) << "nothing else went";
    EXPECT_EQ(changes.back().select, kFirstPolygon);
    EXPECT_TRUE(holds("Type=0x33"));
}

TEST_F(SessionText, WithoutAnObjectASectionIsANewOne) {
    session.showObject({});
    EXPECT_EQ(pane.typed, "");
    pane.typed =
        "[_line]\r\nType=0x5\r\nLineWidth=1\r\nXpm=\"0 0 1 0\"\r\n\"1 c #010203\"\r\n"
        "[end]\r\n";
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(document.Polyline.size(), 2U);
    EXPECT_EQ(document.Polygone.size(), 2U) << "the rest of the document stays";
    EXPECT_EQ(changes.back().select, (ObjectRef{ObjectKind::Polyline, 1, 0}));
}

TEST_F(SessionText, OtherSectionsOfASingleObjectAreIgnoredAndTold) {
    const std::string point =
        "[_point]\r\nType=0x2a\r\nDayXpm=\"1 1 1 1\"\r\n\"a c #0000FF\"\r\n"
        "\"a\"\r\n[end]\r\n";
    const POI other = document.ExtraPOI.at(0).POI.at(0);
    session.showObject({ObjectKind::ExtraPOI, 0, 1});
    pane.typed = point + "[_polygon]\r\nType=0x1\r\n[end]\r\n" + point;
    EXPECT_EQ(apply(), 1);
    const auto& members = document.ExtraPOI.at(0).POI;
    ASSERT_EQ(members.size(), 2U);
    EXPECT_EQ(members[0], other);
    EXPECT_EQ(members[1].Image[0].Couleurs, hex("FF 00 00"));
    EXPECT_EQ(members[1].Type + members[1].SubType, other.Type + other.SubType);
    EXPECT_EQ(document.POI.size(), 1U);
    const Journal& journal = session.applyJournal();
    EXPECT_EQ(journal.entries().size(), 3U) << "its type, and two sections";
    for (const JournalEntry& entry : journal.entries()) {
        const bool type = entry.line == 2;
        EXPECT_NE(entry.text.find(type ? "type ignoré" : "section ignorée"), std::string::npos)
            << entry.text;
    }
}

TEST_F(SessionText, IsRefusedWhereItLacksPixels) {
    document.POI.at(0).Image[0].NbCouleurs = 0;
    store.write("Paramètres", "MasquerTextePOI", "1");
    session.refreshText();
    ASSERT_TRUE(holds("pas de palette"));
    pane.replace("Forêt", "Bois");
    const Document before = document;
    EXPECT_EQ(apply(), 0);
    EXPECT_EQ(lastMessage(),
              "Impossible d'enregistrer les modifications\r\ncar l'écriture des couleurs des POI "
              "True Colors a été désactivée\r\ndans le menu \"Préférences\". ");
    EXPECT_EQ(document, before);
    EXPECT_TRUE(pane.isEdited());
    EXPECT_EQ(save(), 0);
}

// Every action that replaces the view's text, met by every answer about the edits in it.
TEST_F(SessionText, EditsAreSettledBeforeTheyWouldBeReplaced) {
    struct Action {
        const char* what;
        bool object;  // the view shows one object
        std::function<void()> act;
        std::deque<Answer> answers;  // to its own question
    };
    const auto touch = [](Document& edited) { edited.Commentaire += "x"; };
    const std::vector<Action> actions{
        {"another row", true, [&] { session.selectInText(kFirstPolygon); }, {}},
        {"an object", true, [&] { session.showObject(kFirstPolygon); }, {}},
        {"an object, of all", false, [&] { session.showObject(kFirstPolygon); }, {}},
        {"all, of an object", true, [&] { session.showWholeDocument(); }, {}},
        {"code page", false, [&] { session.setCodePage(1250); }, {}},
        {"header size", false, [&] { session.setHeaderSize(164); }, {}},
        {"FID", false, [&] { session.typeHeaderField(HeaderField::FID, "7"); }, {}},
        {"editor", true, [&] { session.edit({}, touch); }, {}},
        {"delete", false, [&] { session.deleteObject(kFirstPolygon); }, {Answer::yes}},
        {"undo", false, [&] { session.undo(); }, {}},
        {"preferences",
         false,
         [&] { session.settleEdits([&](bool on) { on ? change() : void(); }); },
         {}},
    };
    for (const Action& action : actions) {
        for (const Answer answer : {Answer::cancel, Answer::no, Answer::yes, Answer::ok}) {
            // The last answer stands for yes to a text with faults.
            const bool faulty = answer == Answer::ok;
            SCOPED_TRACE(std::string(action.what) + ", answer " +
                         std::to_string(static_cast<int>(answer)));
            open(path("a.typ"));
            session.edit({}, [](Document& edited) { edited.ProductCode = "9"; });
            action.object ? session.showObject(kForest) : void();
            const Document before = document;
            pane.replace("Forêt", "Bois");
            if (faulty) {
                pane.replace("#107020", "#1070zz");
            }
            const std::string typed = pane.typed;
            told.clear();
            dialogues.answers = {faulty ? Answer::yes : answer};
            if (answer == Answer::yes || answer == Answer::no) {
                dialogues.answers.insert(dialogues.answers.end(), action.answers.begin(),
                                         action.answers.end());
            }
            const std::size_t asked = dialogues.shown.size();
            action.act();
            ASSERT_LT(asked, dialogues.shown.size());
            EXPECT_EQ(dialogues.shown[asked].message, kEditsQuestion);
            EXPECT_EQ(buttonsOf(dialogues.shown[asked].style), MessageStyle::yesNoCancel);
            const bool done = answer == Answer::yes || answer == Answer::no;
            if (!done) {
                EXPECT_EQ(pane.typed, typed);
            }
            EXPECT_EQ(pane.isEdited(), !done);
            EXPECT_EQ(!told.empty() && told[0] == kFaultsTold, faulty);
            const bool undone = done && action.what == std::string("undo");
            if (answer == Answer::cancel) {
                EXPECT_EQ(document, before);
            } else {
                EXPECT_EQ(firstLabel().substr(0, 2), answer == Answer::no || undone ? "Fo" : "Bo");
            }
            EXPECT_EQ(document.ProductCode, undone && answer == Answer::no ? "1" : "9");
            dialogues.answers = {Answer::no};
            close();
        }
    }
}

TEST_F(SessionText, SelectingInTheWholeTextOnlyMarks) {
    pane.replace("Forêt", "Bois");
    session.selectInText(kForest);
    const TextSection* section = session.textView().sectionOf(kForest);
    ASSERT_NE(section, nullptr);
    EXPECT_EQ(pane.marked, std::pair(section->firstLine, section->lastLine));

    session.selectInText({});
    EXPECT_EQ(pane.marked.first, -1) << "no mark is left where nothing is selected";
    session.showWholeDocument();
    EXPECT_TRUE(pane.isEdited()) << "it is shown already, so nothing is asked";
    EXPECT_TRUE(dialogues.shown.empty());
}

TEST_F(SessionText, ADeleteFollowsTheObjectThroughTheApplyBeforeIt) {
    const std::string kept = document.Polygone.at(0).Type;
    pane.replace("[_polygon]",
                 "[_polygon]\r\nType=0x03\r\nXpm=\"0 0 1 0\"\r\n\"1 c #112233\""
                 "\r\n[end]\r\n\r\n[_polygon]");
    dialogues.answers = {Answer::yes, Answer::yes};
    EXPECT_EQ(run([&](Session::Then t) { session.deleteObject(kForest, std::move(t)); }), 1);
    ASSERT_EQ(document.Polygone.size(), 2U);
    EXPECT_EQ(document.Polygone[1].Type, kept);
}

TEST_F(SessionText, AnotherCodePageAndCommentsLoseNothingThatTextCantHold) {
    session.edit({}, [](Document& edited) {
        Polygone& polygon = edited.Polygone.at(1);
        const auto before = static_cast<std::int32_t>(polygon.Strings.size());
        polygon.Strings = encodeStrings({{4, "For\u00EAt; 0x1"}}, 1252).Strings;
        polygon.Longueur += static_cast<std::int32_t>(polygon.Strings.size()) - before;
        edited.ExtraPOI.at(0).POI.at(0).Strings = encodeStrings({{4, "caf\u00E9"}}, 1252).Strings;
        edited.Commentaire = "a,,";
    });
    pane.replace("CodePage=1252", "CodePage=65001");
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(labelOf(document.Polygone.at(1), 65001), "For\u00EAt; 0x1");
    EXPECT_EQ(decodeStrings(document.ExtraPOI.at(0).POI.at(0).Strings, 65001).at(0).text,
              "caf\u00E9")
        << "which the text doesn't show";
    EXPECT_EQ(document.Commentaire, "a,,");
    const Document saved = document;
    ASSERT_EQ(save(), 1);
    open(path("a.typ"));
    EXPECT_EQ(document.Polygone, saved.Polygone) << "lengths and bytes agree";
}

TEST_F(SessionText, WhatBelongsToNoSectionIsToldBeforeItGoes) {
    pane.replace("[_point]", "x[_point]");
    EXPECT_EQ(apply(), 1);
    ASSERT_EQ(session.applyJournal().entries().size(), 1U) << "once for all its lines";
    EXPECT_TRUE(holds("x[_point]"));
    EXPECT_TRUE(session.showsApplied());
    pane.replace("x[_point]", "[_point]");
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(document.POI.size(), 1U);
    EXPECT_FALSE(session.showsApplied());

    session.showObject(kForest);
    pane.typed = "[_polygone]\r\nType=0x10\r\n[end]";
    EXPECT_EQ(apply(), 1);
    EXPECT_EQ(session.applyJournal().entries().size(), 2U) << "and that there is no section";
}

TEST_F(SessionText, IsMadeWhenItIsSeenAndWhenPreferencesChange) {
    pane.visible = false;
    const int shows = pane.shows;
    change();
    session.setCodePage(1250);
    EXPECT_EQ(pane.shows, shows);
    pane.visible = true;
    session.refreshText();
    EXPECT_EQ(pane.shows, shows + 1);
    EXPECT_TRUE(holds("CodePage=1250"));
    session.refreshText();
    EXPECT_EQ(pane.shows, shows + 1);
    const std::string text = pane.typed;
    store.write("Paramètres", "FormatPOI", "False");
    session.refreshText();
    EXPECT_NE(pane.typed, text);
    EXPECT_FALSE(pane.isEdited());
    // Whoever works elsewhere in the text stays there.
    session.selectInText(kForest);
    pane.marked = {-1, -1};
    session.settingsChanged();
    EXPECT_EQ(pane.marked.first, -1);
}

TEST_F(SessionText, AnApplyThatIsCancelledLeavesTextAndDocument) {
    const Document before = document;
    pane.replace("Forêt", "Bois");
    const std::string typed = pane.typed;
    tasks.hold = true;
    auto ended = start([&](Session::Then t) { session.mnuEnregistrer_Click(std::move(t)); });
    EXPECT_FALSE(pane.editable);
    tasks.cancel();
    EXPECT_EQ(*ended, 0);
    EXPECT_EQ(document, before);
    EXPECT_EQ(pane.typed, typed);
    EXPECT_TRUE(pane.editable && session.changed());
    EXPECT_TRUE(tasks.held.empty());
}

class SessionBackups : public SessionTest {
  protected:
    explicit SessionBackups(bool ownsFile = true) : SessionTest(ownsFile) {}
    [[nodiscard]] std::string newest() const { return backups.text(backups.count() - 1); }
    [[nodiscard]] std::string file() const {
        const Bytes bytes = std::filesystem::exists(backupFile) ? readFile(backupFile) : Bytes();
        return {bytes.begin(), bytes.end()};
    }
};

TEST_F(SessionBackups, KeepEachStateOfTheWholeTextOnce) {
    session.sauvegardertexte();
    EXPECT_EQ(backups.count(), 0U) << "without a document";
    open(typFile("a.typ"));
    EXPECT_EQ(backups.count(), 1U);
    EXPECT_EQ(newest(), pane.typed);
    session.sauvegardertexte();
    pane.visible = false;
    session.refreshText();
    session.sauvegardertexte();
    EXPECT_EQ(backups.count(), 1U);
    change();
    EXPECT_EQ(backups.count(), 1U) << "text doesn't hold the header's size";
    dialogues.answers = {Answer::yes};
    session.deleteObject(kFirstPolygon);
    EXPECT_EQ(backups.count(), 2U);
    EXPECT_EQ(newest().find("Type=0x10\r\n"), std::string::npos) << "though the view is hidden";
    session.undo();
    EXPECT_EQ(backups.count(), 3U);
    EXPECT_EQ(newest(), backups.text(0));

    pane.visible = true;
    session.refreshText();
    pane.replace("Forêt", "Bois");
    session.sauvegardertexte();
    EXPECT_EQ(newest(), pane.typed) << "with the edits in the view";
    pane.visible = false;
    pane.replace("Bois", "Taillis");
    const std::string typed = pane.typed;
    session.cmdAppliquerModif_Click();
    EXPECT_EQ(backups.text(backups.count() - 1).find("Forêt"), std::string::npos);
    EXPECT_EQ(backups.text(4), typed) << "before the Apply";

    pane.visible = true;
    session.showObject(kForest);
    const std::string whole = newest();
    session.sauvegardertexte();
    EXPECT_EQ(newest(), whole) << "also while one object is shown";
    pane.replace("Taillis", "Bosquet");
    session.sauvegardertexte();
    std::string edited = whole;
    edited.replace(edited.find("Taillis"), 7, "Bosquet");
    EXPECT_EQ(newest(), edited) << "with what was typed for it";
    pane.replace("Bosquet", "Taillis");

    const std::string blocks = file();
    std::size_t headers = 0;
    for (std::size_t at = 0; (at = blocks.find("a.typ Sauvegarde n°", at)) != std::string::npos;
         ++at) {
        ++headers;
    }
    EXPECT_EQ(headers, backups.count());
    store.write("Paramètres", "Sauvegarde automatique", "0");
    session.undo();
    EXPECT_GT(backups.count(), headers) << "in memory all the same";
    EXPECT_EQ(file(), blocks);
    session.backUpNow();
    EXPECT_NE(file(), blocks) << "at the end of the process, where nobody can be asked";
}

TEST_F(SessionBackups, AtTheEndOfTheProcessWhatChangedIsWritten) {
    open(typFile("a.typ"));
    session.backUpNow();
    EXPECT_EQ(backups.count(), 1U);
    pane.replace("Forêt", "Bois");
    session.backUpNow();
    EXPECT_EQ(backups.count(), 2U);
    EXPECT_NE(file().find("Bois"), std::string::npos);

    // A folder in its place can't be written.
    std::filesystem::remove(backupFile);
    std::filesystem::create_directories(backupFile / "in the way");
    pane.replace("Bois", "Taillis");
    session.sauvegardertexte();
    EXPECT_EQ(told, std::vector<std::string>{"La sauvegarde automatique n'a pas pu être écrite."});
    pane.replace("Taillis", "Futaie");
    EXPECT_NO_THROW(session.backUpNow());
    EXPECT_EQ(backups.count(), 4U);
}

class SessionWithoutBackupFile : public SessionBackups {
  protected:
    SessionWithoutBackupFile() : SessionBackups(false) {}
};

TEST_F(SessionWithoutBackupFile, BackupsStayInMemory) {
    open(typFile("a.typ"));
    EXPECT_EQ(backups.count(), 1U);
    EXPECT_FALSE(std::filesystem::exists(backupFile));
}

}  // namespace
}  // namespace quillmark
