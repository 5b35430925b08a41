#include <gtest/gtest.h>

#include "core/files.h"
#include "core/paths.h"
#include "session/save.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using namespace testing;

SaveOutcome save(const Document& document, const TextSaveRequest& request, Dialogues& dialogues,
                 TextSettings settings = {}) {
    return EnregistrerTxt(document, "é\r\n", settings, request, dialogues, Traduction());
}

TEST(SaveText, AsksForANameUntilItMayBeReplaced) {
    const TemporaryFolder folder;
    const auto old = folder.path() / "old.txt";
    writePlain(old, bytesOf("old"));
    ScriptedDialogues dialogues;
    dialogues.files = {utf8FromPath(old), utf8FromPath(folder.path() / "new")};
    dialogues.answers = {Answer::no};
    const SaveOutcome outcome = save({}, {folder.path() / "map.TYP", true, false}, dialogues);
    EXPECT_EQ(outcome.status, SaveStatus::saved);
    EXPECT_EQ(outcome.file, folder.path() / "new.txt") << "the suffix is added";
    EXPECT_EQ(readFile(outcome.file), hex("E9 0D 0A"));
    EXPECT_EQ(readFile(old), bytesOf("old"));
    EXPECT_EQ(dialogues.proposed.at(0), "map");
    EXPECT_EQ(dialogues.shown.at(0).message,
              "Le fichier old.txt existe déjà\r\nVoulez vous le remplacer?");
    EXPECT_EQ(dialogues.shown.at(0).titre, "Ecraser le fichier ?");

    dialogues.files = {std::nullopt};
    EXPECT_EQ(save({}, {{}, false, false}, dialogues).status, SaveStatus::cancelled)
        << "without a path there is always a question";
}

TEST(SaveText, EncodingAndFailure) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "a.txt";
    ScriptedDialogues dialogues;
    EXPECT_EQ(save({}, {file, false, true}, dialogues).status, SaveStatus::saved);
    EXPECT_EQ(readFile(file), hex("C3 A9 0D 0A"));

    EXPECT_EQ(save({}, {folder.path() / "none" / "a.txt", false, false}, dialogues).status,
              SaveStatus::failed);
    EXPECT_EQ(dialogues.shown.at(0).message,
              "Impossible d'enregistrer le fichier.\r\nVérifier qu'il n'a pas l'attribut "
              "\"Ecriture Seule\".");
    EXPECT_EQ(dialogues.shown.at(0).titre, "Erreur");
}

TEST(SaveText, StopsWhenPixelsWouldBeLeftOut) {
    const TemporaryFolder folder;
    Document document;
    document.POI.resize(1);
    document.POI[0].Largeur = 1;
    document.POI[0].Hauteur = 1;
    ScriptedDialogues dialogues;
    const TextSaveRequest request{folder.path() / "a.txt", false, false};
    EXPECT_EQ(save(document, request, dialogues, {true, false}).status, SaveStatus::cancelled);
    EXPECT_EQ(dialogues.shown.at(0).message,
              "Impossible d'enregistrer\r\ncar l'écriture des couleurs des POI True Colors a été "
              "désactivée\r\ndans le menu \"Préférences\". ");
    EXPECT_FALSE(std::filesystem::exists(request.FichierTYP));
    document.POI[0].Image[0].NbCouleurs = 1;
    EXPECT_EQ(save(document, request, dialogues, {true, false}).status, SaveStatus::saved);
}

}  // namespace
}  // namespace quillmark
