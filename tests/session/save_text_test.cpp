#include <gtest/gtest.h>

#include "core/files.h"
#include "core/paths.h"
#include "session/save.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using namespace testing;

class SaveText : public ::testing::Test {
  protected:
    SaveStatus save(const TextSaveRequest& request, bool EcrireTrueColors = true) {
        const SaveOutcome outcome = EnregistrerTxt(document, "é\r\n", {true, EcrireTrueColors},
                                                   request, dialogues, Traduction());
        written = outcome.file;
        return outcome.status;
    }
    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "a.txt";
    Document document;
    ScriptedDialogues dialogues;
    std::filesystem::path written;
};

TEST_F(SaveText, AsksForANameUntilItMayBeReplaced) {
    writePlain(file, bytesOf("old"));
    dialogues.files = {utf8FromPath(file), utf8FromPath(folder.path() / "new"), std::nullopt};
    dialogues.answers = {Answer::no};
    EXPECT_EQ(save({folder.path() / "map.TYP", true, false}), SaveStatus::saved);
    EXPECT_EQ(written, folder.path() / "new.txt") << "the suffix is added";
    EXPECT_EQ(readFile(written), hex("E9 0D 0A"));
    EXPECT_EQ(readFile(file), bytesOf("old"));
    EXPECT_EQ(dialogues.proposed.at(0), "map");
    EXPECT_EQ(dialogues.shown.at(0).message,
              "Le fichier a.txt existe déjà\r\nVoulez vous le remplacer?");
    EXPECT_EQ(dialogues.shown.at(0).titre, "Ecraser le fichier ?");
    EXPECT_EQ(save({{}, false, false}), SaveStatus::cancelled) << "a path is always needed";
}

TEST_F(SaveText, EncodingAndFailure) {
    EXPECT_EQ(save({file, false, true}), SaveStatus::saved);
    EXPECT_EQ(readFile(file), hex("C3 A9 0D 0A"));
    EXPECT_EQ(save({folder.path() / "none" / "a.txt", false, false}), SaveStatus::failed);
    EXPECT_EQ(dialogues.shown.at(0).message,
              "Impossible d'enregistrer le fichier.\r\nVérifier qu'il n'a pas l'attribut "
              "\"Ecriture Seule\".");
}

TEST_F(SaveText, StopsWhenPixelsWouldBeLeftOut) {
    document.POI.resize(1);
    document.POI[0].Largeur = document.POI[0].Hauteur = 1;
    EXPECT_EQ(save({file, false, false}, false), SaveStatus::cancelled);
    EXPECT_EQ(dialogues.shown.at(0).message,
              "Impossible d'enregistrer\r\ncar l'écriture des couleurs des POI True Colors a été "
              "désactivée\r\ndans le menu \"Préférences\". ");
    EXPECT_FALSE(std::filesystem::exists(file));
    document.POI[0].Image[0].NbCouleurs = 1;
    EXPECT_EQ(save({file, false, false}, false), SaveStatus::saved);
}

}  // namespace
}  // namespace quillmark
