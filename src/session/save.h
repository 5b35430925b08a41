// The questions and refusals around saving, and the step that replaces the old file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/dialogues.h"
#include "core/document.h"
#include "core/journal.h"
#include "core/translation.h"
#include "text/code_pages.h"
#include "text/generator.h"
#include "typ/writer.h"

namespace quillmark {

enum class SaveStatus : std::uint8_t { saved, cancelled, failed };

struct SaveOutcome {
    SaveStatus status = SaveStatus::cancelled;
    std::filesystem::path file;  // what was written
};

// --- The parts of a save: questions, then work on values, then what to tell ---

// What stands against writing a TYP file: numbers that are missing or too large are refused, and
// what the header can't hold is given up or not.
[[nodiscard]] bool mayWriteTyp(const Document& document, Dialogues& dialogues,
                               const Traduction& traduction);
// Asks again and again until the file can be written; false when the user gives up.
[[nodiscard]] bool waitUntilWritable(const std::filesystem::path& file, Dialogues& dialogues,
                                     const Traduction& traduction);
// To be called within a catch block only.
void tellTypFailure(Dialogues& dialogues, const Traduction& traduction);

// Refused for points without palette while their pixels aren't written.
[[nodiscard]] bool mayWriteText(const Document& document, const TextSettings& settings,
                                Dialogues& dialogues, const Traduction& traduction);
// What a box lists before a text is written that can't hold all of the document.
[[nodiscard]] std::string lossesText(const TextLosses& losses, const Traduction& t);
// The bytes of a text file. Throws Failure (13 conversion) for a page that nobody knows.
[[nodiscard]] EncodedText encodeTextFile(const std::string& text, int codePage);
void tellTextFailure(Dialogues& dialogues, const Traduction& traduction);

// --- Whole saves, for who has no window to keep alive ---

// Saves as TYP. `AvecDialogue` asks for a name, else `FichierTYP` is written. On success
// `document` takes the order, offsets and header records of the file, and loses what the user
// agreed to give up; on anything else it stays as it was.
SaveOutcome CreerTYP(Document& document, const std::filesystem::path& FichierTYP, bool AvecDialogue,
                     Dialogues& dialogues, const Traduction& traduction);

// The questions of a save and then the bytes, for a target that isn't a file. Nothing when an
// answer or a failure, which is told, ends the save.
[[nodiscard]] std::optional<WrittenTyp> composeTyp(const Document& document, Dialogues& dialogues,
                                                   const Traduction& traduction);

}  // namespace quillmark
