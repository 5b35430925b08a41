
#include "core/ascii.h"
#include "core/files.h"
#include "session/save.h"
#include "session/save_target.h"

namespace quillmark {
namespace {

constexpr const char* kProduct = "Quillmark";

// Header sizes, in bytes, from which on these are held.
constexpr std::int32_t kHoldsExtraPoi = 110;
constexpr std::int32_t kHoldsLabels = 156;
constexpr std::int32_t kHoldsBlock = 164;
constexpr std::int32_t kHoldsActiveRouting = 174;

constexpr int kLargestHeaderNumber = 65535;

void refuse(const std::string& message, const std::string& titre, Dialogues& dialogues) {
    dialogues.AfficheMessage(message, MessageStyle::ok | MessageStyle::warning, titre);
}

bool giveUp(const std::string& what, const std::string& remedy, const std::string& question,
            Dialogues& dialogues) {
    const std::string end = std::string(".") + kLineBreak;
    return dialogues.AfficheMessage(what + end + remedy + end + kLineBreak + question + " ?",
                                    MessageStyle::yesNo | MessageStyle::warning,
                                    kProduct) == Answer::yes;
}

bool isHeaderNumber(const std::string& text) {
    const auto value = wholeNumber<int>(text);
    return value && *value >= 0 && *value <= kLargestHeaderNumber;
}

bool mayLoseLabels(const Document& document, Dialogues& dialogues, const Traduction& traduction) {
    const bool labels = !document.LabelsStrings.empty() || !document.LabelsTableA.empty() ||
                        !document.LabelsTableB.empty();
    if (labels && document.TailleEntete < kHoldsLabels &&
        !giveUp(traduction.Trad("Main", "Le fichier typ contient des labels spéciaux",
                                "msgLabelsPerdus1"),
                traduction.Trad("Main",
                                "Pour ne pas les perdre, l'entête du fichier doit être réglé sur "
                                "au moins 156 octets",
                                "msgLabelsPerdus2"),
                traduction.Trad("Main",
                                "Voulez-vous continuer   (les labels spéciaux seront absents du "
                                "fichier)",
                                "msgLabelsPerdus3"),
                dialogues)) {
        return false;
    }
    return document.BlocBrut.empty() || document.TailleEntete >= kHoldsBlock ||
           giveUp(
               traduction.Trad("Main", "Le fichier typ contient un bloc de données inconnues",
                               "msgBlocPerdu1"),
               traduction.Trad("Main",
                               "Pour ne pas le perdre, l'entête du fichier doit être réglé sur "
                               "au moins 164 octets",
                               "msgBlocPerdu2"),
               traduction.Trad("Main", "Voulez-vous continuer   (le bloc sera absent du fichier)",
                               "msgBlocPerdu3"),
               dialogues);
}

}  // namespace

bool mayWriteTyp(const Document& document, Dialogues& dialogues, const Traduction& traduction) {
    if (document.FID.empty()) {
        refuse(traduction.Trad("Main", "Il faut indiquer le FID.", "msgFID1"),
               traduction.Trad("Main", "FID absent", "msgFID2"), dialogues);
        return false;
    }
    if (document.ProductCode.empty()) {
        refuse(traduction.Trad("Main", "Il faut indiquer le Product Code.", "msgPID1"),
               traduction.Trad("Main", "Product Code absent", "msgPID2"), dialogues);
        return false;
    }
    if (!isHeaderNumber(document.FID) || !isHeaderNumber(document.ProductCode)) {
        refuse(traduction.Trad("Main", "Il faut rentrer un entier compris entre 1 et 65535",
                               "msgErreurEntier"),
               traduction.Trad("Main", "Erreur de saisie", "msgErreurSaisie"), dialogues);
        return false;
    }
    if (document.TailleEntete < kHoldsActiveRouting && document.NbPolylinesAR() > 0 &&
        !giveUp(traduction.Trad("Main", "Le fichier typ contient des lignes d'Active Routing",
                                "msgActiveRouting1"),
                traduction.Trad(
                    "Main",
                    "Pour ne pas les perdre, l'entête du fichier doit être réglé sur au moins "
                    "174 octets",
                    "msgActiveRouting2"),
                traduction.Trad("Main", "Voulez-vous continuer   (l'Active Routing sera perdu)",
                                "msgActiveRouting3"),
                dialogues)) {
        return false;
    }
    if (document.TailleEntete < kHoldsExtraPoi && !document.ExtraPOI.empty() &&
        !giveUp(traduction.Trad("Main", "Le fichier typ contient des Extra POI", "msgExtraPOI1"),
                traduction.Trad(
                    "Main",
                    "Pour ne pas les perdre, l'entête du fichier doit être réglé sur au moins "
                    "110 octets",
                    "msgExtraPOI2"),
                traduction.Trad("Main", "Voulez-vous continuer   (les Extra POI seront perdus)",
                                "msgExtraPOI3"),
                dialogues)) {
        return false;
    }
    return mayLoseLabels(document, dialogues, traduction);
}

void tellTypFailure(Dialogues& dialogues, const Traduction& traduction) {
    const ErrorFacts failure = currentErrorFacts();
    dialogues.AfficheMessage(
        traduction.Trad("Main", "Il y a eu une erreur lors de la création du fichier.",
                        "msgErreurCreation") +
            kLineBreak + traduction.Trad("Main", "Erreur numéro", "msgErreurNumero") + ' ' +
            std::to_string(static_cast<int>(failure.number)) + ' ' + failure.description,
        MessageStyle::ok | MessageStyle::critical, {});
}

bool waitUntilWritable(const std::filesystem::path& file, Dialogues& dialogues,
                       const Traduction& traduction) {
    while (!isWritable(file)) {
        const std::string message =
            traduction.Trad("MsgBox", "Impossible d'enregistrer le fichier.", "MsgBoxErreur1") +
            kLineBreak +
            traduction.Trad("MsgBox", "Vérifier qu'il n'est pas utilisé par Mapsource/BaseCamp,",
                            "MsgBoxErreur2") +
            kLineBreak +
            traduction.Trad("MsgBox", "et qu'il n'a pas l'attribut \"Lecture Seule\".",
                            "MsgBoxErreur4") +
            kLineBreak +
            traduction.Trad(
                "MsgBox",
                "Fermer ces programmes s'ils sont ouverts puis cliquer sur \"Recommencer\" .",
                "MsgBoxErreur3");
        if (dialogues.AfficheMessage(message, MessageStyle::retryCancel, {}) != Answer::retry) {
            return false;
        }
    }
    return true;
}

std::optional<WrittenTyp> composeTyp(const Document& document, Dialogues& dialogues,
                                     const Traduction& traduction) {
    if (!mayWriteTyp(document, dialogues, traduction)) {
        return std::nullopt;
    }
    try {
        return CreerTYP(document, currentDateTime());
    } catch (const std::exception&) {
        tellTypFailure(dialogues, traduction);
        return std::nullopt;
    }
}

SaveOutcome CreerTYP(Document& document, const std::filesystem::path& FichierTYP, bool AvecDialogue,
                     Dialogues& dialogues, const Traduction& traduction) {
    if (!mayWriteTyp(document, dialogues, traduction)) {
        return {};
    }
    std::filesystem::path file = FichierTYP;
    if (AvecDialogue || file.empty()) {
        const auto chosen = chooseSaveTarget(
            traduction.Trad("Main", "Enregistrer sous", "dlgEnregistrerSous"),
            typFilter(traduction), nameToSaveAs(FichierTYP), dialogues, traduction);
        if (!chosen) {
            return {};
        }
        file = *chosen;
    }
    if (!waitUntilWritable(file, dialogues, traduction)) {
        return {};
    }
    try {
        WrittenTyp written = CreerTYP(document, currentDateTime());
        replaceFile(file, written.file);
        document = std::move(written.document);
    } catch (const std::exception&) {
        tellTypFailure(dialogues, traduction);
        return {SaveStatus::failed, file};
    }
    return {SaveStatus::saved, file};
}

}  // namespace quillmark
