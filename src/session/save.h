// The questions and refusals around saving, and the step that replaces the old file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/dialogues.h"
#include "core/document.h"
#include "core/journal.h"
#include "core/translation.h"
#include "text/generator.h"
#include "typ/writer.h"

namespace quillmark {

enum class SaveStatus : std::uint8_t { saved, cancelled, failed };

struct SaveOutcome {
    SaveStatus status = SaveStatus::cancelled;
    std::filesystem::path file;  // what was written
};

// Saves as TYP. `AvecDialogue` asks for a name, else `FichierTYP` is written. On success
// `document` takes the order, offsets and header records of the file, and loses what the user
// agreed to give up; on anything else it stays as it was.
SaveOutcome CreerTYP(Document& document, const std::filesystem::path& FichierTYP, bool AvecDialogue,
                     Dialogues& dialogues, const Traduction& traduction);

// The questions of a save and then the bytes, for a target that isn't a file. Nothing when an
// answer or a failure, which is told, ends the save.
[[nodiscard]] std::optional<WrittenTyp> composeTyp(const Document& document, Dialogues& dialogues,
                                                   const Traduction& traduction);

struct TextSaveRequest {
    std::filesystem::path FichierTYP;
    bool askForName = true;
    bool utf8 = false;
};
// Saves `text` in the code page of the document or as UTF-8.
SaveOutcome EnregistrerTxt(const Document& document, const std::string& text,
                           const TextSettings& settings, const TextSaveRequest& request,
                           Dialogues& dialogues, const Traduction& traduction);

}  // namespace quillmark
