#include "core/checks.h"

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/ascii.h"

namespace quillmark {
namespace {

constexpr int kLegal = -1;
constexpr int kRefused = 0;

std::optional<std::int32_t> number(std::string_view text, int base) {
    const auto value = wholeNumber<std::int32_t>(trimmed(text), base);
    return value && *value >= 0 ? value : std::nullopt;
}

int refuse(const std::string& message, const std::string& field, Dialogues& dialogues,
           const Traduction& traduction) {
    dialogues.AfficheMessage(
        message, MessageStyle::ok,
        traduction.Trad("Editer", "Erreur de saisie dans le champ", "ErreurSaisie1") + "  \"" +
            field + '"');
    return kRefused;
}

std::string hexRange(const char* last, const Traduction& traduction) {
    return traduction.Trad("Editer", "Il faut rentrer une valeur héxadécimale  comprise entre",
                           "msgHexa") +
           " 0x00 " + traduction.Trad("Editer", "et", "et") + last;
}

}  // namespace

int ControleType(const std::string& texte, Dialogues& dialogues, const Traduction& traduction) {
    const auto value = number(texte, 16);
    if (value && (*value <= 0x7F || (*value >= 0x100 && *value <= 0x17F))) {
        return kLegal;
    }
    return refuse(hexRange(" 0x7F ", traduction) + traduction.Trad("Editer", "ou", "ou") + ' ' +
                      traduction.Trad("Editer", "entre", "entre") + " 0x100 " +
                      traduction.Trad("Editer", "et", "et") + " 0x17F",
                  traduction.Trad("Editer", "Type", "Type"), dialogues, traduction);
}

int ControleSubType(const std::string& texte, Dialogues& dialogues, const Traduction& traduction) {
    const auto value = number(texte, 16);
    if (value && *value <= 0x1F) {
        return kLegal;
    }
    return refuse(hexRange(" 0x1F", traduction), traduction.Trad("Editer", "SubType", "SubType"),
                  dialogues, traduction);
}

int ControleDraworder(const std::string& texte, Dialogues& dialogues,
                      const Traduction& traduction) {
    const auto value = number(texte, 10);
    if (value && *value > 0) {
        return kLegal;
    }
    return refuse(
        traduction.Trad("Editer", "Il faut rentrer un nombre entier supérieur à 0", "msgEntier"),
        traduction.Trad("Editer", "Draworder", "Draworder"), dialogues, traduction);
}

}  // namespace quillmark
