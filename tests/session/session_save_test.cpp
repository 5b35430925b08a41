#include "session_fixture.h"
#include "typ/reader.h"

namespace quillmark {
namespace {

using namespace testing;

constexpr const char* kExists = " existe déjà\r\nVoulez vous le remplacer?";
constexpr const char* kDamaged =
    "Le fichier n'a pas pu être lu en entier. Ce qui n'a pas été lu sera perdu. "
    "Enregistrer quand même ?";

class SessionSave : public SessionTest {
  protected:
    int saveAsTyp(const std::string& name) {
        dialogues.files.emplace_back(utf8FromPath(path(name)));
        return run([&](Session::Then t) { session.mnuEnregistrerTyp_Click(std::move(t)); });
    }
    int saveAsText(const std::string& name, bool utf8 = false) {
        dialogues.files.emplace_back(utf8FromPath(path(name)));
        return run([&](Session::Then t) { session.mnuEnregistrerTxt_Click(utf8, std::move(t)); });
    }
    [[nodiscard]] std::string content(const std::string& name) const {
        const Bytes bytes = readFile(path(name));
        return {bytes.begin(), bytes.end()};
    }
    // A text that a code page holds whole, with the point's picture, and no more.
    std::filesystem::path plainText(const std::string& name) {
        return textFile(name,
                        "[_id]\nProductCode=1\nFID=5555\nCodePage=1252\n[end]\n"
                        "[_polygon]\nType=0x010\nString1=0x01,Bois\n"
                        "Xpm=\"0 0 1 0\"\n\"1 c #107020\"\n[end]\n");
    }
};

TEST_F(SessionSave, TheEndingOfTheFileDecides) {
    struct Case {
        const char* name;
        bool asksForName;
        const char* proposed;
    };
    for (const Case& c : {Case{"a.typ", false, ""}, Case{"b.TYP", false, ""},
                          Case{"c", true, "c.typ"}, Case{"d.bak", true, "d.bak.typ"},
                          Case{"e.typ", true, "e.typ"}, Case{"f.TXT", false, ""}}) {
        SCOPED_TRACE(c.name);
        const bool text = c.name == std::string("f.TXT");
        const auto file = text ? plainText(c.name) : typFile(c.name);
        if (c.name == std::string("e.typ")) {
            Bytes bytes = readFile(file);
            bytes.at(2) = 'X';  // of "GARMIN TYP"
            writePlain(file, bytes);
        }
        open(file);
        change();
        const Bytes old = readFile(file);
        if (c.asksForName) {
            dialogues.files = {utf8FromPath(path("new"))};
        }
        EXPECT_EQ(save(), 1);
        EXPECT_FALSE(session.changed());
        EXPECT_EQ(readFile(file) == old, c.asksForName);
        EXPECT_EQ(session.facts().NomFichier(), c.asksForName ? "new.typ" : c.name);
        EXPECT_EQ(session.facts().OuvertEnTexte, text);
        EXPECT_EQ(session.facts().TailleFichier,
                  std::filesystem::file_size(session.facts().FichierTYP));
        EXPECT_EQ(session.recentFiles().paths().at(0), utf8FromPath(session.facts().FichierTYP));
        if (c.asksForName) {
            EXPECT_EQ(dialogues.proposed.back(), c.proposed);
        }
        std::filesystem::remove(path("new.typ"));
    }
}

TEST_F(SessionSave, ANameIsAskedForUntilItMayBeReplaced) {
    open(typFile("map.TYP"));
    textFile("a.txt", "old");
    dialogues.files = {utf8FromPath(path("a.txt"))};
    dialogues.answers = {Answer::ok, Answer::no};  // to the losses, to replacing
    EXPECT_EQ(saveAsText("new"), 1);
    EXPECT_EQ(session.facts().NomFichier(), "new.txt") << "the suffix is added";
    EXPECT_EQ(content("a.txt"), "old");
    EXPECT_EQ(dialogues.proposed, (std::vector<std::string>{"map", "map"}));
    EXPECT_EQ(lastMessage(), std::string("Le fichier a.txt") + kExists);
    EXPECT_EQ(dialogues.shown.back().titre, "Ecraser le fichier ?");
}

TEST_F(SessionSave, ADamagedFileIsAskedAboutAndKept) {
    const Bytes whole = readFile(typFile("a.typ"));
    const Bytes cut(whole.begin(), whole.end() - 20);
    textFile("a.typ~", "of another program");
    const auto reopen = [&] {
        writePlain(path("a.typ"), cut);
        open(path("a.typ"));
        ASSERT_FALSE(session.facts().damagedFile.empty());
    };
    reopen();
    dialogues.answers = {Answer::no};
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(lastMessage(), kDamaged);
    EXPECT_EQ(buttonsOf(dialogues.shown.back().style), MessageStyle::yesNo);
    EXPECT_EQ(readFile(path("a.typ")), cut);

    dialogues.answers = {Answer::yes};
    EXPECT_EQ(save(), 1);
    EXPECT_EQ(readFile(path("a.typ~~")), cut);
    EXPECT_EQ(content("a.typ~"), "of another program");
    EXPECT_NE(readFile(path("a.typ")), cut);
    EXPECT_EQ(save(), 1) << "asked once";

    reopen();
    const std::size_t asked = dialogues.shown.size();
    EXPECT_EQ(saveAsTyp("b"), 1);
    EXPECT_EQ(dialogues.shown.size(), asked) << "another file loses nothing";
    dialogues.answers = {Answer::yes, Answer::no};
    EXPECT_EQ(saveAsTyp("a.typ"), 0) << "it isn't saved by having a copy of its rest";
    EXPECT_EQ(lastMessage(), kDamaged);

    reopen();
    std::filesystem::create_symlink(path("a.typ"), path("link.typ"));
    dialogues.answers = {Answer::yes, Answer::no};
    EXPECT_EQ(saveAsTyp("link.typ"), 0) << "the same file by another name";
    EXPECT_EQ(readFile(path("a.typ")), cut);
}

TEST_F(SessionSave, AFileThatAnotherProgramChangedIsAskedAbout) {
    open(typFile("a.typ"));
    change();
    textFile("a.typ", "theirs");
    dialogues.answers = {Answer::no};
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(lastMessage(), std::string("Le fichier a.typ") + kExists);
    EXPECT_EQ(content("a.typ"), "theirs");
    EXPECT_TRUE(session.showsModified());
    dialogues.answers = {Answer::yes};
    EXPECT_EQ(saveAsTyp("a.typ"), 1);
    EXPECT_EQ(dialogues.shown.size(), 2U) << "the dialog has asked";
    EXPECT_EQ(save(), 1);
    EXPECT_EQ(dialogues.shown.size(), 2U);
}

TEST_F(SessionSave, EditsInTheViewAreAppliedFirst) {
    open(typFile("a.typ"));
    pane.replace("Forêt", "Bois");
    EXPECT_EQ(save(), 1);
    EXPECT_EQ(labelOf(ouvrir(readFile(path("a.typ")), traduction).document.Polygone.at(1), 1252),
              "Bois");
    EXPECT_FALSE(session.changed() || pane.isEdited());
    EXPECT_TRUE(session.canUndo());

    // Faults are asked about, and the text stays for them.
    const Bytes before = readFile(path("a.typ"));
    pane.replace("#107020", "#1070zz");
    for (const Answer answer : {Answer::no, Answer::yes}) {
        dialogues.answers = {answer};
        EXPECT_EQ(save(), answer == Answer::yes ? 1 : 0);
        EXPECT_EQ(lastMessage(),
                  "Le texte appliqué contient des erreurs : voir le journal des messages.\r\n"
                  "Enregistrer quand même ?");
        EXPECT_GT(session.errorCount(), 0);
        EXPECT_NE(pane.typed.find("#1070zz"), std::string::npos);
        EXPECT_EQ(readFile(path("a.typ")) == before, answer == Answer::no);
        EXPECT_TRUE(session.changed());
    }
}

TEST_F(SessionSave, WhatTextCantHoldIsListedAndStillCountsAsChanged) {
    open(typFile("a.typ"));
    EXPECT_NE(pane.typed.find("; Longueur: "), std::string::npos);
    dialogues.answers = {Answer::cancel};
    EXPECT_EQ(run([&](Session::Then t) { session.mnuEnregistrerTxt_Click(false, std::move(t)); }),
              0);
    EXPECT_EQ(lastMessage(),
              "Le format texte ne peut pas contenir :\r\n\tles Extra POI\r\n\r\n"
              "Enregistrer quand même au format texte ?");
    EXPECT_EQ(buttonsOf(dialogues.shown.back().style), MessageStyle::okCancel);
    EXPECT_FALSE(session.changed());

    dialogues.answers = {Answer::ok};
    EXPECT_EQ(saveAsText("a"), 1);
    EXPECT_EQ(session.facts().FichierTYP, path("a.txt"));
    EXPECT_TRUE(session.facts().OuvertEnTexte && session.facts().incompleteText);
    EXPECT_TRUE(session.changed());
    EXPECT_EQ(content("a.txt").rfind("; ", 0), 0U) << "with its origin above";
    EXPECT_EQ(pane.typed.rfind("[_id]", 0), 0U) << "it isn't a TYP file's text any more";

    dialogues.answers = {Answer::yes, Answer::ok};
    EXPECT_EQ(close(), 1) << "to the text, with its losses agreed to";
    EXPECT_EQ(content("a.txt").rfind("[_id]", 0), 0U);
}

TEST_F(SessionSave, ATextKeepsItsEncoding) {
    open(plainText("a.txt"));
    pane.replace("Bois", "Forêt");
    EXPECT_EQ(save(), 1);
    EXPECT_NE(content("a.txt").find("For\xEAt"), std::string::npos);
    EXPECT_FALSE(session.facts().utf8 || session.changed());
    EXPECT_EQ(saveAsText("b.txt", true), 1);
    EXPECT_TRUE(session.facts().utf8);
    change();
    EXPECT_EQ(save(), 1);
    EXPECT_NE(content("b.txt").find("Forêt"), std::string::npos);
    EXPECT_EQ(session.facts().NomFichier(), "b.txt");
}

TEST_F(SessionSave, CharactersThatThePageCantHoldAreAskedAbout) {
    for (const Answer answer : {Answer::cancel, Answer::no, Answer::yes}) {
        open(plainText("a.txt"));
        session.edit({Change::What::content, {}, nullptr, {}},
                     [](Document& edited) { edited.Commentaire = "Лес"; });
        const std::string old = content("a.txt");
        dialogues.answers = {answer};
        EXPECT_EQ(save(), answer == Answer::cancel ? 0 : 1);
        EXPECT_EQ(lastMessage(),
                  "Caractères absents de la page de code : 3\r\n"
                  "Enregistrer en UTF-8 ? (\"Non\" les remplace par \"?\")");
        EXPECT_EQ(buttonsOf(dialogues.shown.back().style), MessageStyle::yesNoCancel);
        EXPECT_EQ(content("a.txt") == old, answer == Answer::cancel);
        EXPECT_EQ(session.facts().utf8, answer == Answer::yes);
        EXPECT_EQ(session.changed(), answer == Answer::cancel);
        EXPECT_EQ(content("a.txt").find("\r\n???\r\n") != std::string::npos, answer == Answer::no);
        EXPECT_EQ(content("a.txt").find("Лес") != std::string::npos, answer == Answer::yes);
        if (answer == Answer::cancel) {
            dialogues.answers = {Answer::no};
            close();
        }
    }
}

TEST_F(SessionSave, RefusalsAndFailuresLeaveFileAndDocument) {
    const auto file = plainText("a.txt");
    open(file);
    change();
    document.FID = "70000";  // as a text may say
    const Document before = document;
    EXPECT_EQ(run([&](Session::Then t) { session.mnuEnregistrerTyp_Click(std::move(t)); }), 0);
    EXPECT_EQ(lastMessage(), "Il faut rentrer un entier compris entre 1 et 65535");

    const std::string old = content("a.txt");
    {
        const FullDevice full(16);
        EXPECT_EQ(save(), 0);
    }
    EXPECT_EQ(lastMessage(),
              "Impossible d'enregistrer le fichier.\r\nVérifier qu'il n'a pas l'attribut "
              "\"Ecriture Seule\".");
    EXPECT_EQ(content("a.txt"), old);

    document.POI = sample().POI;
    document.POI.at(0).Image[0].NbCouleurs = 0;
    store.write("Paramètres", "MasquerTextePOI", "1");
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(lastMessage(),
              "Impossible d'enregistrer\r\ncar l'écriture des couleurs des POI True Colors a été "
              "désactivée\r\ndans le menu \"Préférences\". ");
    document.POI.clear();
    EXPECT_EQ(document, before);
    EXPECT_TRUE(session.showsModified());
    EXPECT_EQ(fileCount(folder.path()), 2U) << "the file and the backups";
}

TEST_F(SessionSave, TheNewOrderIsToldAndWhatIsShownStaysTheSame) {
    open(typFile("a.typ"));
    session.edit({Change::What::content, {}, nullptr, {}},
                 [](Document& edited) { std::swap(edited.Polygone[0], edited.Polygone[1]); });
    session.showObject({ObjectKind::Polygone, 0, 0});
    EXPECT_NE(pane.typed.find("Forêt"), std::string::npos);
    const auto shown = [this] {
        EXPECT_NE(pane.typed.find("Type=0x50"), std::string::npos) << pane.typed;
        return session.textView().shown.index;
    };
    EXPECT_EQ(save(), 1);
    ASSERT_EQ(changes.back().what, Change::What::reordered);
    EXPECT_EQ(changes.back().reordering->follow({ObjectKind::Polygone, 0, 0}).index, 1);
    EXPECT_EQ(shown(), 1);
    pane.replace("Forêt", "Bois");
    session.cmdAppliquerModif_Click();
    EXPECT_EQ(labelOf(document.Polygone.at(1), 1252), "Bois");
    EXPECT_EQ(document.Polygone.size(), 2U);
    session.undo();
    EXPECT_EQ(shown(), 1);
    EXPECT_FALSE(session.changed());
    session.undo();
    EXPECT_EQ(shown(), 1) << "as it was opened";
    session.redo();
    session.redo();
    EXPECT_EQ(shown(), 1);
}

TEST_F(SessionSave, WhatTheHeaderCantHoldGoesWithTheSaveAsAStep) {
    open(typFile("a.typ"));
    session.setHeaderSize(91);
    const Document before = document;
    dialogues.answers = {Answer::yes};
    dialogues.files = {std::nullopt};
    EXPECT_EQ(run([&](Session::Then t) { session.mnuEnregistrerTyp_Click(std::move(t)); }), 0);
    EXPECT_EQ(document, before) << "given up, but not saved";
    dialogues.answers = {Answer::yes};
    EXPECT_EQ(save(), 1);
    EXPECT_TRUE(document.ExtraPOI.empty());
    EXPECT_FALSE(session.changed());
    session.undo();
    EXPECT_EQ(document.ExtraPOI.size(), 1U);
    EXPECT_TRUE(session.changed());
    session.redo();
    EXPECT_FALSE(session.changed());
}

TEST_F(SessionSave, NothingElseRunsMeanwhileAndACancelChangesNothing) {
    open(typFile("a.typ"));
    change();
    const Document before = document;
    const Bytes old = readFile(path("a.typ"));
    tasks.hold = true;
    auto ended = start([&](Session::Then t) { session.mnuEnregistrer_Click(std::move(t)); });
    EXPECT_EQ(*ended, -1);
    EXPECT_TRUE(session.busy());
    EXPECT_FALSE(pane.editable);
    const std::size_t told = changes.size();
    session.undo();
    session.typeHeaderField(HeaderField::FID, "1");
    EXPECT_TRUE(session.leaveHeaderField(HeaderField::FID));
    session.deleteObject({ObjectKind::Polygone, 0, 0});
    session.setCodePage(1250);
    session.showObject({ObjectKind::Polygone, 0, 0});
    session.cmdAppliquerModif_Click();
    for (const Command& other : {Command([&](auto t) { session.mnuNouveau_Click(t); }),
                                 Command([&](auto t) { session.mnuouvrir_Click(t); }),
                                 Command([&](auto t) { session.ouvrir(path("a.typ"), t); }),
                                 Command([&](auto t) { session.mnufermer_Click(t); }),
                                 Command([&](auto t) { session.mnuEnregistrerTyp_Click(t); }),
                                 Command([&](auto t) { session.Form_QueryUnload(t); })}) {
        EXPECT_EQ(run(other), 0);
    }
    EXPECT_EQ(changes.size(), told);
    EXPECT_EQ(tasks.held.size(), 1U);
    tasks.cancel();
    EXPECT_EQ(*ended, 0);
    EXPECT_EQ(document, before);
    EXPECT_EQ(readFile(path("a.typ")), old);
    EXPECT_TRUE(pane.editable && session.changed());
    EXPECT_FALSE(session.busy());

    ended = start([&](Session::Then t) { session.mnuEnregistrer_Click(std::move(t)); });
    tasks.finish();
    ASSERT_EQ(tasks.held.size(), 1U);
    EXPECT_FALSE(tasks.held.front().cancellable) << "the file is being replaced";
    EXPECT_EQ(readFile(path("a.typ")), old);
    tasks.finish();
    EXPECT_EQ(*ended, 1);
    EXPECT_FALSE(session.changed());

    ended = start([&](Session::Then t) { session.ouvrir(path("a.typ"), std::move(t)); });
    tasks.finish();
    tasks.cancel();
    EXPECT_EQ(*ended, 0);
    EXPECT_TRUE(session.facts().hasDocument);
}

TEST_F(SessionSave, AFailureOfAnObserverFreesTheSession) {
    open(typFile("a.typ"));
    const auto failing = session.documentChanged.connect(
        [](const Change&) { throw std::runtime_error("observer"); });
    EXPECT_THROW(save(), std::runtime_error);
    EXPECT_FALSE(session.busy());
}

}  // namespace
}  // namespace quillmark
