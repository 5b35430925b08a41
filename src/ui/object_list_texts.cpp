#include "ui/object_list_texts.h"

namespace quillmark {

const ListNames& listNames(ListKind kind) {
    static constexpr std::array<ListNames, 5> kNames{{
        {"Polygone", "ListPolygone", "fraPolygone", "polygon"},
        {"Polyline", "lstvPolyline", "fraPolyligne", "line"},
        {"POI", "ListPOI", "fraPOI", "point"},
        {"ExtraPOI", "ListExtraPOI", "fraExtraPOI", "object"},
        {"Draworder", "ListDraworder", "fraDraworder", "order"},
    }};
    return kNames.at(static_cast<std::size_t>(kind));
}

ListTips listTips(ListKind kind, const Traduction& traduction) {
    const auto& t = traduction;
    const std::string remove = t.Trad("Main", "Supprimer définitivement", "msgSupprimer2") + " ";
    switch (kind) {
        case ListKind::Polygone:
            return {t.Trad("Editer", "Nouveau polygone", "NouveauPolygone"),
                    t.Trad("Editer", "Modifier le polygone", "ModifierPolygone"),
                    remove + t.Trad("Main", "le polygone", "msgpolygone")};
        case ListKind::Polyline:
            return {t.Trad("Editer", "Nouvelle polyligne", "NouvellePolyligne"),
                    t.Trad("Editer", "Modifier la polyligne", "ModifierLigne"),
                    remove + t.Trad("Main", "la polyligne", "msgpolyligne")};
        case ListKind::POI:
            return {t.Trad("Editer", "Nouveau POI", "NouveauPOI"),
                    t.Trad("Editer", "Modifier le POI", "ModifierPOI"),
                    remove + t.Trad("Main", "le POI", "msgPOI")};
        case ListKind::ExtraPOI:
            return {t.Trad("Editer", "Nouvel Extra POI", "NouvelExtraPOI"),
                    t.Trad("Editer", "Modifier l'Extra POI", "ModifierGroupe"),
                    remove + t.Trad("Main", "l'Extra POI", "msgGroupeExtraPOI")};
        case ListKind::Draworder:
            break;
    }
    return {{}, t.Trad("Editer", "Priorité d'affichage des polygones", "frmDraworderCaption"), {}};
}

std::string filterHint(const Traduction& traduction) {
    return traduction.Trad("Main", "Type ou nom", "txtFiltre");
}

std::string filterTip(const Traduction& traduction) {
    return traduction.Trad("Main", "Filtrer par type ou par nom", "txtFiltreTip");
}

std::string nothingFoundText(const Traduction& traduction) {
    return traduction.Trad("Main", "Rien ne correspond à ce filtre.", "txtFiltreVide");
}

std::string laterText(const Traduction& traduction) {
    return traduction.Trad("Main", "Cette commande arrivera dans une prochaine version.",
                           "tipPlusTard");
}

}  // namespace quillmark
