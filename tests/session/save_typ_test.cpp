#include <gtest/gtest.h>

#include "core/files.h"
#include "core/paths.h"
#include "session/save.h"
#include "support/generated_document.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"
#include "typ/reader.h"

namespace quillmark {
namespace {

using namespace testing;

class SaveTyp : public ::testing::Test {
  protected:
    SaveTyp() { document.FID = "7"; }
    SaveStatus save(bool AvecDialogue = false) {
        return CreerTYP(document, file, AvecDialogue, dialogues, Traduction()).status;
    }
    Document onDisk() const { return ouvrir(readFile(file), Traduction()).document; }

    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "carte.typ";
    Document document = generatedDocument(3);
    ScriptedDialogues dialogues;
};

TEST_F(SaveTyp, RefusesWithoutNumbers) {
    document.ProductCode.clear();
    EXPECT_EQ(save(), SaveStatus::cancelled);
    document.FID.clear();
    EXPECT_EQ(save(), SaveStatus::cancelled);
    EXPECT_EQ(dialogues.shown.at(0).message, "Il faut indiquer le Product Code.");
    EXPECT_EQ(dialogues.shown.at(1).message, "Il faut indiquer le FID.");
    EXPECT_EQ(dialogues.shown[1].titre, "FID absent");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(SaveTyp, WhatAShortHeaderLosesIsAskedAndLostOnlyOnceWritten) {
    document.TailleEntete = 100;
    const Document unsaved = document;
    std::filesystem::create_directory(file);  // nothing can be written there
    for (const std::deque<Answer>& answers :
         {std::deque{Answer::no},
          {Answer::yes, Answer::no},
          {Answer::yes, Answer::yes, Answer::no},
          {Answer::yes, Answer::yes, Answer::yes, Answer::no},
          {Answer::yes, Answer::yes, Answer::yes, Answer::yes, Answer::cancel}}) {
        dialogues.answers = answers;
        EXPECT_EQ(save(), SaveStatus::cancelled);
        EXPECT_EQ(document, unsaved);
    }
    std::filesystem::remove(file);

    dialogues.shown.clear();
    dialogues.answers = {Answer::yes, Answer::yes, Answer::yes, Answer::yes};
    EXPECT_EQ(save(), SaveStatus::saved);
    EXPECT_EQ(dialogues.shown.at(0).message,
              "Le fichier typ contient des lignes d'Active Routing.\r\nPour ne pas les perdre, "
              "l'entête du fichier doit être réglé sur au moins 174 octets.\r\n\r\nVoulez-vous "
              "continuer   (l'Active Routing sera perdu) ?");
    EXPECT_EQ(dialogues.shown.at(1).message,
              "Le fichier typ contient des Extra POI.\r\nPour ne pas les perdre, l'entête du "
              "fichier doit être réglé sur au moins 110 octets.\r\n\r\nVoulez-vous continuer   "
              "(les Extra POI seront perdus) ?");
    EXPECT_EQ(buttonsOf(dialogues.shown[0].style), MessageStyle::yesNo);
    EXPECT_EQ(document.NbPolylinesAR(), 0);
    EXPECT_EQ(document.NbPolylines(), unsaved.NbPolylines());
    EXPECT_TRUE(document.ExtraPOI.empty());
    EXPECT_EQ(onDisk().Polyline, document.Polyline);
}

TEST_F(SaveTyp, AsksForANameAndReplaces) {
    writePlain(file, bytesOf("old"));
    dialogues.files = {utf8FromPath(file), std::nullopt};
    dialogues.answers = {Answer::yes};
    EXPECT_EQ(save(true), SaveStatus::saved);
    EXPECT_EQ(dialogues.proposed.at(0), "carte");
    EXPECT_EQ(onDisk(), document) << "the document stands as the file has it";
    EXPECT_EQ(save(true), SaveStatus::cancelled);
}

TEST_F(SaveTyp, WaitsForAFileThatCannotBeWritten) {
    file = folder.path() / "nowhere" / "carte.typ";
    dialogues.answers = {Answer::retry, Answer::cancel};
    EXPECT_EQ(save(), SaveStatus::cancelled);
    ASSERT_EQ(dialogues.shown.size(), 2U);
    EXPECT_EQ(dialogues.shown[0].message,
              "Impossible d'enregistrer le fichier.\r\nVérifier qu'il n'est pas utilisé par "
              "Mapsource/BaseCamp,\r\net qu'il n'a pas l'attribut \"Lecture Seule\".\r\nFermer ces "
              "programmes s'ils sont ouverts puis cliquer sur \"Recommencer\" .");
    EXPECT_EQ(dialogues.shown[0].style, MessageStyle::retryCancel);
}

TEST_F(SaveTyp, AFailureLeavesFileAndDocument) {
    writePlain(file, bytesOf("old"));
    document.FID = "70000";
    EXPECT_EQ(save(), SaveStatus::cancelled) << "refused before the file is touched";
    document.FID = "65535";
    document.ExtraPOI.at(0).POI.resize(256);
    const Document before = document;
    EXPECT_EQ(save(), SaveStatus::failed);
    EXPECT_EQ(
        dialogues.shown.at(1).message,
        "Il y a eu une erreur lors de la création du fichier.\r\nErreur numéro 6 plus de 255 POI "
        "dans un Extra POI");
    EXPECT_EQ(document, before);
    EXPECT_EQ(readFile(file), bytesOf("old"));
    EXPECT_FALSE(composeTyp(document, dialogues, Traduction()).has_value());
    document.ExtraPOI[0].POI.resize(2);
    const auto written = composeTyp(document, dialogues, Traduction());
    ASSERT_TRUE(written.has_value());
    EXPECT_EQ(ouvrir(written->file, Traduction()).document, written->document);
}

}  // namespace
}  // namespace quillmark
