#include <algorithm>

#include "session/save.h"

namespace quillmark {
namespace {

// Pictures without palette are nothing but pixels, which a text without them would lose.
bool hasTrueColours(const Document& document) {
    const auto isTrueColour = [](const POI& poi, std::size_t i) {
        return poi.Largeur > 0 && poi.Hauteur > 0 && poi.Image[i].NbCouleurs == 0;
    };
    return std::any_of(document.POI.begin(), document.POI.end(), [&](const POI& poi) {
        return isTrueColour(poi, 0) ||
               ((poi.Entete & point_bits::kNight) != 0 && isTrueColour(poi, 1));
    });
}

void refuseTrueColours(Dialogues& dialogues, const Traduction& traduction) {
    dialogues.AfficheMessage(
        traduction.Trad("Main", "Impossible d'enregistrer", "msgAppliquerModif1") + "\r\n" +
            traduction.Trad("Main",
                            "car l'écriture des couleurs des POI True Colors a été désactivée",
                            "msgAppliquerModif2") +
            "\r\n" +
            traduction.Trad("Main", "dans le menu \"Préférences\". ", "msgAppliquerModif3"),
        MessageStyle::ok | MessageStyle::warning, {});
}

}  // namespace

bool mayWriteText(const Document& document, const TextSettings& settings, Dialogues& dialogues,
                  const Traduction& traduction) {
    if (settings.EcrireTrueColors || !hasTrueColours(document)) {
        return true;
    }
    refuseTrueColours(dialogues, traduction);
    return false;
}

std::string lossesText(const TextLosses& losses, const Traduction& t) {
    std::string text = t.Trad("Main", "Le format texte ne peut pas contenir :", "msgPertesTexte1");
    const auto line = [&](const std::string& what) { text += kLineBreak + ("\t" + what); };
    const auto counted = [&](int count, const std::string& what) {
        if (count > 0) {
            line(what + " : " + std::to_string(count));
        }
    };
    if (losses.extraPoi) {
        line(t.Trad("Main", "les Extra POI", "msgPertesTexte2"));
    }
    if (losses.specialLabels) {
        line(t.Trad("Main", "les labels spéciaux", "msgPertesTexte3"));
    }
    if (losses.rawBlock) {
        line(t.Trad("Main", "le bloc de données inconnues", "msgPertesTexte4"));
    }
    if (losses.betweenSections) {
        line(t.Trad("Main", "les données entre l'entête et les sections", "msgPertesTexte5"));
    }
    counted(losses.subtypes,
            t.Trad("Main", "sous-types de polygones et de polylignes", "msgPertesTexte6"));
    counted(losses.labels, t.Trad("Main", "labels qui seront raccourcis", "msgPertesTexte7"));
    counted(losses.activities, t.Trad("Main", "activités de polylignes", "msgPertesTexte8"));
    return text + kLineBreak + kLineBreak +
           t.Trad("Main", "Enregistrer quand même au format texte ?", "msgPertesTexte9");
}

EncodedText encodeTextFile(const std::string& text, int codePage) {
    EncodedText encoded = textToBytes(text, codePage);
    if (encoded.bytes.empty() && !text.empty()) {
        throw Failure(ErrorNumber::conversion, "page de code " + std::to_string(codePage));
    }
    return encoded;
}

void tellTextFailure(Dialogues& dialogues, const Traduction& traduction) {
    dialogues.AfficheMessage(
        traduction.Trad("MsgBox", "Impossible d'enregistrer le fichier.", "MsgBoxErreur1") +
            "\r\n" +
            traduction.Trad("MsgBox", "Vérifier qu'il n'a pas l'attribut \"Ecriture Seule\".",
                            "MsgBoxErreur5"),
        MessageStyle::ok | MessageStyle::critical,
        traduction.Trad("MsgBox", "Erreur", "MsgBoxErreurTitre"));
}

}  // namespace quillmark
