#include "views/document_card.h"

#include <algorithm>
#include <optional>

#include "core/ascii.h"
#include "text/generator.h"

namespace quillmark {
namespace {

constexpr std::string_view kUtf8Words = "Unicode (UTF-8)";

std::string modif(const Traduction& traduction) {
    return traduction.Trad("Main", "modifié", "modif");
}

bool isUtf8Text(const SessionFacts& facts) {
    return facts.OuvertEnTexte && facts.utf8;
}

template <std::size_t N>
CardChoice choiceOf(const std::array<std::int32_t, N>& values, int value,
                    const std::string& words) {
    CardChoice choice;
    choice.values.assign(values.begin(), values.end());
    for (const std::int32_t known : values) {
        choice.items.push_back(std::to_string(known));
    }
    const auto found = std::find(choice.values.begin(), choice.values.end(), value);
    choice.index = static_cast<int>(found - choice.values.begin());
    if (found == choice.values.end()) {
        choice.values.push_back(value);
        choice.items.push_back(std::to_string(value) + words);
    }
    return choice;
}

}  // namespace

std::string windowTitle(const SessionFacts& facts, bool modified, const std::string& Version,
                        const Traduction& traduction) {
    std::string title = "Quillmark " + Version;
    if (!facts.hasDocument) {
        return title;
    }
    if (facts.FichierTYP.empty()) {
        title += " - " + lblNomTyp(facts, traduction);
    } else {
        title += " - [" + facts.NomFichier();
        title += isUtf8Text(facts) ? " - " + std::string(kUtf8Words) + "]" : "]";
    }
    return modified ? title + " " + modif(traduction) : title;
}

std::string lblNomTyp(const SessionFacts& facts, const Traduction& traduction) {
    if (!facts.hasDocument) {
        return {};
    }
    return facts.FichierTYP.empty() ? traduction.Trad("Main", "Nouveau TYP", "nouveauTYP")
                                    : facts.NomFichier();
}

std::string lengthText(std::size_t bytes, const Traduction& traduction) {
    std::string digits = std::to_string(bytes);
    for (std::size_t i = digits.size(); i > 3; i -= 3) {
        digits.insert(i - 3, 1, ' ');
    }
    return digits + " " + traduction.Trad("Main", "octets", "octets");
}

std::string lblLongueur(const SessionFacts& facts, bool modified, const Traduction& traduction) {
    if (!facts.hasDocument) {
        return {};
    }
    std::string text = lengthText(facts.TailleFichier, traduction);
    if (isUtf8Text(facts)) {
        text += " - " + std::string(kUtf8Words);
    }
    return modified ? text + " - " + modif(traduction) : text;
}

std::string lblDateCreation(const Document& document) {
    return document.EnteteTYP.headerSize == 0
               ? std::string()
               : std::string(trimmed(creationDateText(document.EnteteTYP)));
}

std::vector<CardNotice> cardNotices(int errors, int warnings, const Traduction& traduction) {
    std::vector<CardNotice> notices;
    if (errors > 0) {
        notices.push_back(
            {JournalKind::error,
             traduction.Trad("Main", "Erreurs: cliquer pour afficher le journal des messages",
                             "msgWarning2")});
    }
    if (warnings > 0) {
        notices.push_back(
            {JournalKind::warning,
             traduction.Trad("Main",
                             "Avertissements: cliquer pour afficher le journal des messages",
                             "msgWarning1")});
    }
    return notices;
}

std::string headerFieldTip(HeaderField field, const std::string& text) {
    const std::optional<std::uint32_t> value = wholeNumber<std::uint32_t>(trimmed(text));
    if (!value) {
        return {};
    }
    return (field == HeaderField::FID ? "FID:   0x" : "PID:   0x") + hexTextUpper(*value, 1);
}

CardChoice cbbCodepage(int CodePage) {
    return choiceOf(kCodePages, CodePage, {});
}

CardChoice cbbHeadersize(int TailleEntete, const Traduction& traduction) {
    return choiceOf(kHeaderSizes, TailleEntete,
                    " " + traduction.Trad("Main", "octets : format inconnu", "cbbHeaderInconnu"));
}

std::string cbbHeadersizeTip(int TailleEntete, const Traduction& traduction) {
    const std::array<std::string, 5> reached{
        traduction.Trad("Main", "des POI supplémentaires", "cbbHeadersizeTip4"),
        traduction.Trad("Main", "des labels supplémentaires", "cbbHeadersizeTip5"),
        traduction.Trad("Main", "des données encore inconnues", "cbbHeadersizeTip6"),
        traduction.Trad("Main", "des polylignes pour l'active routing", "cbbHeadersizeTip7"),
        traduction.Trad("Main", "d'autres données encore inconnues...", "cbbHeadersizeTip8")};
    const auto index = static_cast<std::size_t>(cbbHeadersize(TailleEntete, traduction).index);
    std::string tip = traduction.Trad("Main", "La taille de l'entête est de", "cbbHeadersizeTip1") +
                      " " + std::to_string(TailleEntete) + " " +
                      traduction.Trad("Main", "octets", "cbbHeadersizeTip2") + ".";
    if (index > 0) {
        tip += "\n" +
               traduction.Trad("Main",
                               "Ce fichier TYP peut donc contenir, en plus des polygones, "
                               "polylignes et POI habituels",
                               "cbbHeadersizeTip3") +
               " :";
    }
    for (std::size_t i = 0; i < index; ++i) {
        tip += "\n\t" + reached[i];
    }
    return tip;
}

std::vector<std::string> lstFIDs(const std::string& FID, const Profile& mapIds,
                                 const Traduction& traduction) {
    std::vector<std::string> names;
    const std::optional<std::uint32_t> number = wholeNumber<std::uint32_t>(trimmed(FID));
    const std::string found =
        number ? mapIds.find("Normal", std::to_string(*number)).value_or("") : "";
    for (std::string_view rest = found; !rest.empty();) {
        const std::size_t end = std::min(rest.find('%'), rest.size());
        const std::string_view name = trimmed(rest.substr(0, end));
        if (!name.empty()) {
            names.emplace_back(name);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (names.empty()) {
        names.push_back(traduction.Trad("Main", "FID Inconnu", "msgFIDInconnu"));
    }
    return names;
}

}  // namespace quillmark
