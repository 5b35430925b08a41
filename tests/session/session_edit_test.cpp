#include "session_fixture.h"

namespace quillmark {
namespace {

using namespace testing;

class SessionEdit : public SessionTest {
  protected:
    void type(HeaderField field, const std::string& text) {
        for (std::size_t length = 1; length <= text.size(); ++length) {
            session.typeHeaderField(field, text.substr(0, length));
        }
    }
    int remove(const ObjectRef& object) {
        return run([&](Session::Then t) { session.deleteObject(object, std::move(t)); });
    }
    static Document numbered() {
        Document document = sample();
        document.ProductCode = "0";
        return document;
    }
};

TEST_F(SessionEdit, HeaderFieldsAreCheckedWhenTheUserTyped) {
    struct Case {
        const char* typed;
        bool accepted;
    };
    open(typFile("a.typ", numbered()));
    EXPECT_TRUE(session.leaveHeaderField(HeaderField::ProductCode)) << "0 from the file stays";
    EXPECT_EQ(document.ProductCode, "0");
    EXPECT_EQ(save(), 1);
    type(HeaderField::ProductCode, "5");
    session.typeHeaderField(HeaderField::ProductCode, "0");
    EXPECT_TRUE(session.leaveHeaderField(HeaderField::ProductCode)) << "as it came";
    EXPECT_EQ(document.ProductCode, "0");
    for (const Case& c : {Case{"1", true}, Case{"65535", true}, Case{"0", false},
                          Case{"65536", false}, Case{"70000", false}}) {
        type(HeaderField::ProductCode, c.typed);
        const std::size_t asked = dialogues.shown.size();
        EXPECT_EQ(session.leaveHeaderField(HeaderField::ProductCode), c.accepted) << c.typed;
        EXPECT_EQ(document.ProductCode, c.accepted ? c.typed : "");
        EXPECT_EQ(dialogues.shown.size() - asked, c.accepted ? 0U : 1U);
        EXPECT_TRUE(session.leaveHeaderField(HeaderField::ProductCode)) << "told once";
    }
    EXPECT_EQ(lastMessage(), "Il faut rentrer un entier compris entre 1 et 65535");
    EXPECT_EQ(dialogues.shown.back().titre, "Erreur de saisie");
    type(HeaderField::ProductCode, "8");
    session.typeHeaderField(HeaderField::ProductCode, "");
    EXPECT_TRUE(session.leaveHeaderField(HeaderField::ProductCode)) << "empty is accepted";
    EXPECT_EQ(save(), 0) << "but not saved";
    EXPECT_EQ(lastMessage(), "Il faut indiquer le Product Code.");

    type(HeaderField::ProductCode, "70000");
    EXPECT_EQ(save(), 0) << "a shortcut leaves no field, so the save checks";
    EXPECT_EQ(document.ProductCode, "");
}

TEST_F(SessionEdit, TypingInOneFieldIsOneStep) {
    open(typFile("a.typ"));
    const std::size_t texts = static_cast<std::size_t>(pane.shows);
    type(HeaderField::FID, "123");
    EXPECT_EQ(document.FID, "123");
    EXPECT_NE(pane.typed.find("\r\nFID=123\r\n"), std::string::npos);
    EXPECT_EQ(pane.typed.find("5555"), std::string::npos);
    EXPECT_EQ(static_cast<std::size_t>(pane.shows) - texts, 3U);
    EXPECT_EQ(changes.back().what, Change::What::header);
    session.undo();
    EXPECT_EQ(document.FID, "5555");
    EXPECT_FALSE(session.changed() || session.canUndo());
    EXPECT_NE(pane.typed.find("\r\nFID=5555\r\n"), std::string::npos);
    session.redo();
    EXPECT_EQ(document.FID, "123");
    session.undo();

    // Another field, a field that was left, and a save begin a new step.
    type(HeaderField::FID, "1");
    type(HeaderField::ProductCode, "2");
    session.leaveHeaderField(HeaderField::ProductCode);
    session.typeHeaderField(HeaderField::ProductCode, "23");
    EXPECT_EQ(save(), 1);
    session.typeHeaderField(HeaderField::ProductCode, "234");
    std::vector<std::string> states;
    while (session.canUndo()) {
        session.undo();
        states.push_back(document.FID + "/" + document.ProductCode +
                         (session.changed() ? "" : " saved"));
    }
    EXPECT_EQ(states, (std::vector<std::string>{"1/23 saved", "1/2", "1/1", "5555/1"}));

    // So do a slider's values.
    for (const char* comment : {"a", "b", "c"}) {
        session.edit(
            {Change::What::content, {}, nullptr, {}},
            [&](Document& edited) { edited.Commentaire = comment; }, "slider");
    }
    session.undo();
    EXPECT_EQ(document.Commentaire, "");

    // What is typed back to where it began is no step.
    EXPECT_EQ(save(), 1);
    const bool could = session.canUndo();
    type(HeaderField::FID, "77");
    EXPECT_TRUE(session.changed());
    type(HeaderField::FID, "5555");
    session.leaveHeaderField(HeaderField::FID);
    EXPECT_EQ(session.canUndo(), could);
    EXPECT_FALSE(session.changed());
}

TEST_F(SessionEdit, AnEditThatChangesNothingOrFailsLeavesNoStep) {
    open(typFile("a.typ"));
    const Document before = document;
    session.edit({}, [](Document&) {});
    EXPECT_THROW(session.edit({},
                              [](Document& edited) {
                                  edited.POI.clear();
                                  throw std::runtime_error("edit");
                              }),
                 std::runtime_error);
    EXPECT_EQ(document, before);
    EXPECT_FALSE(session.canUndo() || session.changed() || session.busy());
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(SessionEdit, CodePageAndHeaderSizeAreSteps) {
    open(typFile("a.typ"));
    session.setCodePage(1252);
    session.setHeaderSize(174);
    EXPECT_FALSE(session.canUndo());
    session.setCodePage(1251);
    EXPECT_EQ(told, std::vector<std::string>{
                        "Labels qui se lisent autrement dans cette page de code : 1"});
    EXPECT_EQ(firstLabel(), "Forкt") << "the bytes stay";
    EXPECT_NE(pane.typed.find("Forкt"), std::string::npos);
    session.setHeaderSize(164);
    EXPECT_TRUE(session.changed());
    session.undo();
    EXPECT_EQ(document.TailleEntete, 174);
    session.undo();
    EXPECT_EQ(firstLabel(), "Forêt");
    EXPECT_FALSE(session.changed());
    session.setCodePage(1254);
    EXPECT_EQ(told.size(), 1U) << "no label differs";
}

TEST_F(SessionEdit, DeletingAsksSelectsTheNextAndComesBack) {
    struct Case {
        ObjectKind kind;
        const char* box;
        const char* titre;
    };
    open(typFile("a.typ"));
    const Document whole = document;
    const std::string ask = "Voulez-vous réellement supprimer ";
    for (const Case& c : {Case{ObjectKind::Polygone, "le polygone Type:0x010  SubType:0x00 ?",
                               "Supprimer définitivement le polygone ?"},
                          Case{ObjectKind::Polyline, "la polyligne Type:0x001  SubType:0x00 ?",
                               "Supprimer définitivement la polyligne ?"},
                          Case{ObjectKind::POI, "le POI Type:0x02a  SubType:0x01 ?",
                               "Supprimer définitivement le POI ?"},
                          Case{ObjectKind::ExtraPOI, "l'Extra POI Brand ID: 12 ?",
                               "Supprimer définitivement l'Extra POI ?"}}) {
        SCOPED_TRACE(c.box);
        const ObjectRef object{c.kind, 0, 0};
        const int count = objectCount(document, c.kind);
        dialogues.answers = {Answer::no};
        EXPECT_EQ(remove(object), 0);
        EXPECT_EQ(document, whole);
        EXPECT_EQ(lastMessage(), ask + c.box);
        EXPECT_EQ(dialogues.shown.back().titre, c.titre);
        EXPECT_EQ(dialogues.shown.back().style,
                  MessageStyle::yesNo | MessageStyle::question | MessageStyle::secondIsDefault);
        const std::string text = pane.typed;
        dialogues.answers = {Answer::yes};
        EXPECT_EQ(remove(object), 1);
        EXPECT_EQ(objectCount(document, c.kind), count - 1);
        EXPECT_EQ(changes.back().what, Change::What::removed);
        EXPECT_EQ(changes.back().select, count > 1 ? object : ObjectRef{});
        EXPECT_EQ(pane.typed == text, c.kind == ObjectKind::ExtraPOI);
        EXPECT_EQ(document.ListDraworder, whole.ListDraworder);
        session.undo();
        EXPECT_EQ(document, whole);
        EXPECT_EQ(changes.back().select, object);
        EXPECT_EQ(pane.typed, text);
        EXPECT_FALSE(session.changed());
        session.redo();
        EXPECT_EQ(changes.back().select, count > 1 ? object : ObjectRef{});
        session.undo();
    }
    dialogues.answers = {Answer::yes, Answer::yes};
    remove({ObjectKind::Polygone, 1, 0});
    EXPECT_EQ(changes.back().select, (ObjectRef{ObjectKind::Polygone, 0, 0})) << "the new last one";
    session.undo();
    EXPECT_EQ(changes.back().select, (ObjectRef{ObjectKind::Polygone, 1, 0}));
    const std::size_t asked = dialogues.shown.size();
    EXPECT_EQ(remove({ObjectKind::Polygone, 2, 0}), 0);
    EXPECT_EQ(remove({}), 0);
    EXPECT_EQ(dialogues.shown.size(), asked);

    session.showObject({ObjectKind::POI, 0, 0});
    remove({ObjectKind::POI, 0, 0});
    EXPECT_EQ(pane.typed, "") << "none is left to show";
    session.undo();
    EXPECT_NE(pane.typed.find("[_point]"), std::string::npos);
}

TEST(UndoHistoryTest, IsBoundByMemoryAndKeepsTheNewestStep) {
    Document document;
    document.BlocBrut.resize(1000);
    const std::size_t one = memoryOf(document);
    UndoHistory history(3 * one + one / 2);
    const auto edit = [&](std::size_t growth) {
        history.record(document, {});
        document.BlocBrut.resize(document.BlocBrut.size() + growth);
    };
    const auto countUndo = [&] {
        int steps = 0;
        while (history.canUndo()) {
            history.undo(document);
            ++steps;
        }
        return steps;
    };
    for (int i = 0; i < 10; ++i) {
        edit(1);
    }
    EXPECT_FALSE(history.isSaved());
    EXPECT_EQ(countUndo(), 3);
    EXPECT_EQ(document.BlocBrut.size(), 1007U);
    EXPECT_FALSE(history.isSaved()) << "the saved state is out of reach";
    history.redo(document);
    history.markSaved();
    history.redo(document);
    EXPECT_FALSE(history.isSaved());
    history.undo(document);
    EXPECT_TRUE(history.isSaved());
    edit(20 * one);
    EXPECT_FALSE(history.canRedo());
    edit(1);
    EXPECT_EQ(countUndo(), 1) << "larger than all memory, but the newest";
    history.clear();
    EXPECT_TRUE(history.isSaved());
    EXPECT_FALSE(history.canUndo() || history.canRedo());
}

}  // namespace
}  // namespace quillmark
