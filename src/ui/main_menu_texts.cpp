#include "ui/main_menu_texts.h"

#include <QKeySequence>

#include "ui/qt_text.h"

namespace quillmark {
namespace {

std::string withKey(const std::string& text, QKeySequence::StandardKey key) {
    return text + '\t' + fromQt(QKeySequence(key).toString(QKeySequence::NativeText));
}

// People who opened the program in a language they can't read look for this one word.
std::string withLanguage(const std::string& text) {
    std::string plain = text;
    std::erase(plain, '&');
    return plain.find("Language") == std::string::npos ? text + " (Language)" : text;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> mainMenuTexts(const Traduction& t) {
    return {
        {"mnuFichier", t.Trad("Main", "&Fichier", "mnuFichier")},
        {"mnuNouveau", t.Trad("Main", "&Nouveau", "mnuNouveau")},
        {"mnuOuvrirTYP", t.Trad("Main", "&Ouvrir un fichier .TYP...", "mnuOuvrirTYP")},
        {"mnuouvrirtxt", t.Trad("Main", "Ouvrir un fichier &texte...", "mnuouvrirtxt")},
        {"mnuouvrirtxtUTF8",
         t.Trad("Main", "Ouvrir un fichier texte UTF-&8...", "mnuouvrirtxtUTF8")},
        {"mnuOuvrirTypMapset",
         t.Trad("Main", "Ouvrir le typ associé à un &mapset...", "mnuOuvrirTypMapset")},
        {"mnuMRU", t.Trad("Main", "Fichiers &récents", "mnuMRU")},
        {"mnuEnregistrer", t.Trad("Main", "&Enregistrer", "mnuEnregistrer")},
        {"mnuEnregistrerTyp",
         t.Trad("Main", "Enregistrer &sous un fichier .TYP...", "mnuEnregistrerTyp")},
        {"mnuEnregistrerTxt",
         t.Trad("Main", "Enregistrer au format te&xte...", "mnuEnregistrerTxt")},
        {"mnuEnregistrerTxtUTF8",
         t.Trad("Main", "Enregistrer au format texte &UTF-8...", "mnuEnregistrerTxtUTF8")},
        {"mnufermer", t.Trad("Main", "&Fermer le fichier", "mnufermer")},
        {"mnuQuitter", t.Trad("Main", "&Quitter", "mnuQuitter")},

        {"mnuEdition", t.Trad("Main", "&Edition", "mnuEdition")},
        {"mnuAnnulerDocument",
         t.Trad("Main", "Annuler la &modification du document", "mnuAnnulerDocument")},
        {"mnuRetablirDocument",
         t.Trad("Main", "&Rétablir la modification du document", "mnuRetablirDocument")},
        {"mnuAnnuler", withKey(t.Trad("Main", "&Annuler", "mnuAnnuler"), QKeySequence::Undo)},
        {"mnuCouper", withKey(t.Trad("Main", "Cou&per", "mnuCouper"), QKeySequence::Cut)},
        {"mnuCopier", withKey(t.Trad("Main", "&Copier", "mnuCopier"), QKeySequence::Copy)},
        {"mnuColler", withKey(t.Trad("Main", "C&oller", "mnuColler"), QKeySequence::Paste)},
        {"mnuSupprimer",
         withKey(t.Trad("Main", "&Supprimer", "mnuSupprimer"), QKeySequence::Delete)},
        {"mnuSelectionnerTout", withKey(t.Trad("Main", "&Tout sélectionner", "mnuSelectionnerTout"),
                                        QKeySequence::SelectAll)},
        {"mnuRecherche", t.Trad("Main", "Rec&hercher et remplacer...", "mnuRecherche")},
        {"mnuFiltrer", t.Trad("Main", "&Filtrer les listes", "mnuFiltrer")},
        {"mnuPreferences", t.Trad("Main", "Préfére&nces...", "mnuPreferences")},

        {"mnuAffichage", t.Trad("Main", "&Affichage", "mnuAffichage")},
        {"mnuTexte", t.Trad("Main", "&Texte", "mnuTexte")},
        {"mnuIcones", t.Trad("Main", "&Icônes", "mnuIcones")},
        {"mnuListesObjets", t.Trad("Main", "&Listes des objets", "mnuListesObjets")},
        {"mnuApercu", t.Trad("Main", "&Aperçu", "mnuApercu")},
        {"mnuMessages", t.Trad("Main", "&Journal des messages", "mnuMessages")},
        {"mnuChoixLangue", withLanguage(t.Trad("Main", "Lan&gue (Language)...", "mnuChoixLangue"))},

        {"mnuObjets", t.Trad("Main", "&Objets", "mnuObjets")},
        {"cmdModifier", t.Trad("Main", "&Modifier...", "cmdModifier")},
        {"cmdSupprimer", t.Trad("Main", "&Supprimer...", "cmdSupprimer")},
        {"cmdDraworder", t.Trad("Main", "&Ordre d'affichage...", "cmdDraworder")},
        {"cmdLabels", t.Trad("Main", "&Labels spéciaux...", "cmdLabels")},

        {"mnuOutils", t.Trad("Main", "O&utils", "mnuOutils")},
        {"mnuSauvegardeAuto",
         t.Trad("Main", "Sauvegarde &automatique du texte", "mnuSauvegardeAuto")},
        {"mnusauvegardetexte", t.Trad("Main", "&Sauvegardes du texte...", "mnusauvegardetexte")},
        {"mnuInstallerTyp", t.Trad("Main", "&Installer un fichier TYP...", "mnuInstallerTyp")},
        {"mnuEffacerCache",
         t.Trad("Main", "&Effacer le cache de Mapsource/BaseCamp/HomePort", "mnuEffacerCache")},
        {"mnuShading", t.Trad("Main", "Activer/Désactiver l'&ombrage dans BC ou MS", "mnuShading")},
        {"mnucompiler", t.Trad("Main", "&Compiler un fichier avec cGPSmapper...", "mnucompiler")},
        {"mnuTypSpeciaux",
         t.Trad("Main", "&Typ spéciaux pour l'identification des objets...", "mnuTypSpeciaux")},

        {"mnuAide", t.Trad("Main", "A&ide", "mnuAide")},
        {"mnuMiseAJour", t.Trad("Main", "&Rechercher une mise à jour...", "mnuMiseAJour")},
        {"mnuAProposDe", t.Trad("Main", "À &propos de Quillmark", "mnuAProposDe")},
    };
}

}  // namespace quillmark
