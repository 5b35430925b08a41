#include "session/save_target.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/paths.h"

namespace quillmark {
namespace {

bool hasSuffix(const std::string& name, const std::string& suffix) {
    return loweredAscii(name).ends_with(suffix);
}

}  // namespace

bool mayReplace(const std::filesystem::path& file, Dialogues& dialogues,
                const Traduction& traduction) {
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) {
        return true;
    }
    const std::string message =
        traduction.Trad("Main", "Le fichier", "msgFichierExiste1") + " " +
        utf8FromPath(file.filename()) + " " +
        traduction.Trad("Main", "existe déjà", "msgFichierExiste2") + "\r\n" +
        traduction.Trad("Main", "Voulez vous le remplacer?", "msgFichierExiste3");
    return dialogues.AfficheMessage(
               message, MessageStyle::yesNo | MessageStyle::warning,
               traduction.Trad("Main", "Ecraser le fichier ?", "msgFichierExiste4")) == Answer::yes;
}

std::optional<std::filesystem::path> chooseSaveTarget(const std::string& titre,
                                                      const FileFilter& filter,
                                                      const std::string& proposed,
                                                      Dialogues& dialogues,
                                                      const Traduction& traduction) {
    for (;;) {
        const auto chosen = dialogues.chooseFileToSave(titre, filter, proposed);
        if (!chosen || chosen->empty()) {
            return std::nullopt;
        }
        const std::string name = hasSuffix(*chosen, filter.suffixes.front())
                                     ? *chosen
                                     : *chosen + filter.suffixes.front();
        std::filesystem::path file = pathFromUtf8(name);
        if (mayReplace(file, dialogues, traduction)) {
            return file;
        }
    }
}

std::string nameToSaveAs(const std::filesystem::path& current) {
    std::string name = utf8FromPath(current.filename());
    if (hasSuffix(name, ".typ") || hasSuffix(name, ".txt")) {
        name.resize(name.size() - 4);
    }
    return name;
}

std::string typNameFor(const std::filesystem::path& current) {
    std::string name = utf8FromPath(current.filename());
    return name.empty() || hasSuffix(name, ".typ") ? name : name + ".typ";
}

FileFilter typFilter(const Traduction& traduction) {
    return {traduction.Trad("Main", "Fichiers TYP", "msgFiltreTyp") + " (*.typ)", {".typ"}};
}

FileFilter textFilter(const Traduction& traduction) {
    return {traduction.Trad("Main", "Fichiers texte", "msgFiltreTxt") + " (*.txt)", {".txt"}};
}

}  // namespace quillmark
