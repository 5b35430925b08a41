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
        return isTrueColour(poi, 0) || ((poi.Entete & 0x02U) != 0 && isTrueColour(poi, 1));
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
