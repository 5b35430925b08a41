#include "session_fixture.h"

namespace quillmark {
namespace {

using namespace testing;

constexpr const char* kSaveQuestion = "Voulez-vous enregistrer le fichier ?";

class SessionOpen : public SessionTest {
  protected:
    int openByDialog() {
        return run([this](Session::Then then) { session.mnuouvrir_Click(std::move(then)); });
    }
    int tryOpen(const std::filesystem::path& file) {
        return run([&](Session::Then then) { session.ouvrir(file, std::move(then)); });
    }
};

TEST_F(SessionOpen, AFileTakesThePlaceOfAllThatStood) {
    const auto typ = typFile("a.TYP");
    const auto text = textFile("b.TXT",
                               "[_id]\nCodePage=1251\n[end]\n[_polygon]\nType=0x7\n"
                               "String1=0x04,\xCB\xE5\xF1\nXpm=\"0 0 1 0\"\n"
                               "\"1 c #112233\"\n[end]\n");
    dialogues.files = {utf8FromPath(typ), utf8FromPath(text), std::nullopt};
    EXPECT_EQ(openByDialog(), 1);
    ASSERT_EQ(dialogues.offered.at(0).size(), 2U);
    EXPECT_EQ(dialogues.offered[0][0].description, "Fichiers TYP (*.typ)");
    EXPECT_EQ(dialogues.offered[0][1].suffixes, (std::vector<std::string>{".typ", ".txt"}));
    EXPECT_EQ(session.facts().NomFichier(), "a.TYP");
    EXPECT_EQ(session.facts().TailleFichier, std::filesystem::file_size(typ));
    EXPECT_FALSE(session.facts().OuvertEnTexte || session.facts().isNew || session.changed());
    EXPECT_EQ(firstLabel(), "Forêt");
    EXPECT_NE(pane.typed.find("Forêt"), std::string::npos);
    EXPECT_TRUE(pane.editable);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].what, Change::What::replaced);

    EXPECT_EQ(openByDialog(), 1) << "the second filter, by the ending of what was chosen";
    EXPECT_TRUE(session.facts().OuvertEnTexte);
    EXPECT_EQ(firstLabel(), "Лес");
    EXPECT_TRUE(document.ExtraPOI.empty());
    EXPECT_FALSE(session.changed() || session.canUndo());
    EXPECT_EQ(session.recentFiles().paths(),
              (std::vector<std::string>{utf8FromPath(text), utf8FromPath(typ)}));

    EXPECT_EQ(openByDialog(), 0);
    EXPECT_EQ(session.facts().NomFichier(), "b.TXT");
    EXPECT_TRUE(dialogues.shown.empty());
}

TEST_F(SessionOpen, TextCommandsDecodeAsTold) {
    const std::string text =
        "[_id]\nCodePage=1252\n[end]\n[_polygon]\nType=0x7\nString1=0x01,é\n"
        "Xpm=\"0 0 1 0\"\n\"1 c #112233\"\n[end]\n";
    const auto file = utf8FromPath(textFile("a.txt", text));
    const auto nameless = utf8FromPath(textFile("b.txt", "[_polygon]\nType=0x7\n[end]\n"));
    const auto strange = utf8FromPath(textFile("c.txt", "[_id]\nCodePage=437\n[end]\n"));
    const auto unknown = utf8FromPath(textFile("d.txt", "[_id]\nCodePage=60001\n[end]\n"));
    dialogues.files = {file, file, nameless, strange, unknown};
    const auto openText = [this](bool utf8) {
        return run([&](Session::Then then) { session.mnuouvrirtxt_click(utf8, std::move(then)); });
    };
    EXPECT_EQ(openText(true), 1);
    EXPECT_EQ(firstLabel(), "é");
    EXPECT_TRUE(session.facts().utf8);
    EXPECT_EQ(dialogues.offered.at(0).at(0).description, "Fichiers texte (*.txt)");
    EXPECT_EQ(openText(false), 1);
    EXPECT_EQ(firstLabel(), "Ã©");
    EXPECT_FALSE(session.facts().utf8);
    EXPECT_TRUE(dialogues.shown.empty());

    EXPECT_EQ(openText(false), 1);
    EXPECT_EQ(lastMessage(),
              "Le fichier txt ne contient pas d'indication de CodePage.\r\n"
              "Le CodePage sera alors réglé à 1252.");
    EXPECT_EQ(dialogues.shown.back().style, MessageStyle::ok | MessageStyle::information);

    EXPECT_EQ(openText(false), 1);
    EXPECT_EQ(document.CodePage, 437) << "outside the list, but the platform has it";
    EXPECT_EQ(session.errorCount(), 0);
    EXPECT_EQ(openText(false), 1);
    EXPECT_EQ(document.CodePage, 1252);
    EXPECT_GT(session.errorCount() + session.warningCount(), 0) << "told in the journal";
}

TEST_F(SessionOpen, WhatCantBeOpenedLeavesTheDocument) {
    open(typFile("a.typ"));
    const Document before = document;
    session.recentFiles().add(path("gone.typ"));
    std::filesystem::create_directory(path("folder.typ"));
    for (const char* name : {"gone.typ", "folder.typ", "none/a.txt"}) {
        EXPECT_EQ(tryOpen(path(name)), 0) << name;
        EXPECT_EQ(lastMessage(), "Fichier introuvable\r\n\r\n" + utf8FromPath(path(name)));
        EXPECT_EQ(document, before);
        EXPECT_EQ(session.facts().NomFichier(), "a.typ");
    }
    EXPECT_EQ(session.recentFiles().paths(), std::vector<std::string>{utf8FromPath(path("a.typ"))});
    if (std::filesystem::exists("/dev/zero")) {
        EXPECT_EQ(tryOpen("/dev/zero"), 0);
    }
}

TEST_F(SessionOpen, AnyContentOpensAndIsNeverWrittenBack) {
    const Bytes photo = hex("FF D8 FF E0 00 10 4A 46 49 46 00 01");
    writePlain(path("photo.jpg"), photo);
    EXPECT_EQ(tryOpen(path("photo.jpg")), 1);
    EXPECT_FALSE(session.facts().hasMagic);
    EXPECT_FALSE(session.facts().damagedFile.empty());
    document.FID = document.ProductCode = "1";
    dialogues.files = {std::nullopt};
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(dialogues.proposed, std::vector<std::string>{"photo.jpg.typ"});
    EXPECT_EQ(readFile(path("photo.jpg")), photo);
}

TEST_F(SessionOpen, TheSaveQuestionComesBeforeAndKeepsWhatStands) {
    const auto a = typFile("a.typ");
    const auto b = typFile("b.typ", Document(sample()));
    open(a);
    change();
    const Document changed = document;
    const Bytes file = readFile(a);

    EXPECT_EQ(tryOpen(path("gone.typ")), 0);
    EXPECT_EQ(dialogues.shown.size(), 1U) << "nothing is asked for a file that isn't there";
    dialogues.answers = {Answer::cancel};
    EXPECT_EQ(tryOpen(b), 0);
    EXPECT_EQ(lastMessage(), kSaveQuestion);
    EXPECT_EQ(dialogues.shown.back().titre, "Quillmark");
    EXPECT_EQ(document, changed);
    EXPECT_EQ(session.facts().NomFichier(), "a.typ");
    EXPECT_TRUE(session.canUndo());

    dialogues.answers = {Answer::no};
    EXPECT_EQ(tryOpen(b), 1);
    EXPECT_EQ(readFile(a), file);

    change();
    dialogues.answers = {Answer::yes};
    EXPECT_EQ(tryOpen(a), 1);
    EXPECT_NE(readFile(b), file) << "saved on the way";
}

TEST_F(SessionOpen, NewIsAskedAboutThoughNothingWasAdded) {
    document.CodePage = 1250;
    EXPECT_EQ(run([&](Session::Then t) { session.mnuNouveau_Click(std::move(t)); }), 1);
    EXPECT_TRUE(session.facts().isNew && session.facts().hasDocument);
    EXPECT_TRUE(session.changed());
    EXPECT_FALSE(session.showsModified() || session.canUndo());
    EXPECT_EQ(document, Document()) << "1252 and 91, no numbers";
    EXPECT_NE(pane.typed.find("ProductCode=\r\nFID=\r\nCodePage=1252\r\n[End]"), std::string::npos);
    EXPECT_TRUE(pane.editable);
    change();
    EXPECT_TRUE(session.showsModified());

    dialogues.answers = {Answer::cancel};
    EXPECT_EQ(run([&](Session::Then t) { session.mnuNouveau_Click(std::move(t)); }), 0);
    EXPECT_TRUE(session.canUndo());
    dialogues.answers = {Answer::no};
    EXPECT_EQ(run([&](Session::Then t) { session.mnuNouveau_Click(std::move(t)); }), 1);
    EXPECT_FALSE(session.canUndo() || session.showsModified());
    dialogues.answers = {Answer::no};
    EXPECT_EQ(close(), 1);
}

TEST_F(SessionOpen, ClosePutsAFreshDocumentInPlace) {
    open(textFile("a.txt",
                  "[_id]\nCodePage=1251\n[end]\n[_comments]\nnote\n[end]\nfaulty\n"
                  "[_polygon]\nType=0xzz\n[end]\n"));
    EXPECT_EQ(document.Commentaire, "note");
    EXPECT_FALSE(session.facts().damagedFile.empty());
    EXPECT_EQ(close(), 1);
    Document fresh;
    fresh.CodePage = 1251;
    EXPECT_EQ(document, fresh) << "only the code page is kept";
    EXPECT_FALSE(session.facts().hasDocument || session.changed() ||
                 !session.facts().damagedFile.empty());
    EXPECT_TRUE(session.facts().FichierTYP.empty());
    EXPECT_TRUE(session.openJournal().entries().empty());
    EXPECT_EQ(pane.typed, "");
    EXPECT_FALSE(pane.editable);
    EXPECT_EQ(close(), 1) << "nothing to ask about";
    EXPECT_EQ(save(), 0) << "nothing to save";
}

// Every way out of the question, with the document's own file and with a new document.
TEST_F(SessionOpen, LeavingWithUnsavedChanges) {
    struct Case {
        const char* what;
        bool ownFile, hasFid;
        std::deque<Answer> answers;
        std::deque<std::optional<std::string>> files;
        int leaves;
        bool written;
    };
    const std::string there = utf8FromPath(path("b.typ"));
    const std::vector<Case> cases{
        {"no", true, true, {Answer::no}, {}, 1, false},
        {"cancel", true, true, {Answer::cancel}, {}, 0, false},
        {"yes", true, true, {Answer::yes}, {}, 1, true},
        {"no, FID missing", true, false, {Answer::no}, {}, 1, false},
        {"yes, FID missing", true, false, {Answer::yes}, {}, 0, false},
        {"yes, name given", false, true, {Answer::yes}, {there}, 1, true},
        {"yes, no name given", false, true, {Answer::yes}, {std::nullopt}, 0, false},
    };
    for (const Case& c : cases) {
        for (const bool exit : {true, false}) {
            SCOPED_TRACE(std::string(c.what) + (exit ? ", exit" : ", close"));
            std::filesystem::remove(path("b.typ"));
            typFile("a.typ");
            if (c.ownFile) {
                open(path("a.typ"));
            } else {
                ASSERT_EQ(run([&](Session::Then t) { session.mnuNouveau_Click(std::move(t)); }), 1);
            }
            session.edit({Change::What::header, {}, nullptr, {}}, [&](Document& edited) {
                edited.ProductCode = "77";
                edited.FID = c.hasFid ? "78" : "";
            });
            const Document before = document;
            dialogues.answers = c.answers;
            dialogues.files = c.files;
            const std::size_t asked = dialogues.shown.size();
            EXPECT_EQ(run([&](Session::Then then) {
                          exit ? session.Form_QueryUnload(std::move(then))
                               : session.mnufermer_Click(std::move(then));
                      }),
                      c.leaves);
            ASSERT_LT(asked, dialogues.shown.size());
            EXPECT_EQ(dialogues.shown[asked].message, kSaveQuestion);
            EXPECT_EQ(buttonsOf(dialogues.shown[asked].style), MessageStyle::yesNoCancel);
            const auto file = c.ownFile ? path("a.typ") : path("b.typ");
            const Bytes bytes = std::filesystem::exists(file) ? readFile(file) : Bytes();
            EXPECT_EQ(!bytes.empty() && bytes.at(0x2F) == 78, c.written);
            EXPECT_EQ(session.facts().hasDocument, exit || c.leaves == 0);
            if (c.leaves == 0) {
                EXPECT_EQ(document, before);
                EXPECT_TRUE(session.showsModified());
            }
            if (session.facts().hasDocument && session.changed()) {
                dialogues.answers.push_back(Answer::no);
                close();
            }
        }
    }
}

TEST_F(SessionOpen, AFailedSaveKeepsTheProgramOpen) {
    open(typFile("a.typ"));
    change();
    const Bytes old = readFile(path("a.typ"));
    dialogues.answers = {Answer::yes};
    {
        const FullDevice full(16);
        EXPECT_EQ(run([&](Session::Then t) { session.Form_QueryUnload(std::move(t)); }), 0);
    }
    EXPECT_NE(lastMessage().find("Il y a eu une erreur lors de la création du fichier."),
              std::string::npos);
    EXPECT_EQ(readFile(path("a.typ")), old);
    EXPECT_TRUE(session.showsModified());
    EXPECT_FALSE(session.busy());
}

TEST_F(SessionOpen, RecentFilesAreEightAndEachOnce) {
    const auto names = [this] {
        std::string all;
        for (const std::string& path : session.recentFiles().paths()) {
            all += pathFromUtf8(path).filename().string();
        }
        return all;
    };
    RecentFiles& recent = session.recentFiles();
    recent.add(path("a"));
    EXPECT_EQ(names(), "a");
    recent.clear();
    for (const char* name : {"b", "a", "b"}) {
        recent.add(path(name));
    }
    EXPECT_EQ(names(), "ba");
    recent.clear();
    for (const char* name : {"h", "g", "f", "e", "d", "c", "b", "a"}) {
        recent.add(path(name));
    }
    EXPECT_EQ(names(), "abcdefgh");
    recent.add(path("sub/../h"));
    EXPECT_EQ(names(), "habcdefg");
    recent.add(path("i"));
    EXPECT_EQ(names(), "ihabcdef");
    RecentFiles(store).add(path("z"));  // another process
    recent.remove(path("h"));
    EXPECT_EQ(names(), "ziabcde");
    EXPECT_EQ(store.read("MRUFiles", "1"), utf8FromPath(path("z")));
    EXPECT_EQ(store.read("mrufiles", "7"), utf8FromPath(path("e")));
    EXPECT_EQ(store.read("mrufiles", "8"), "");
}

}  // namespace
}  // namespace quillmark
