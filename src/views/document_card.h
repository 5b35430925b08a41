// What the document card and the title of the window say of the document.
#pragma once

#include <string>
#include <vector>

#include "core/profile.h"
#include "core/translation.h"
#include "session/session.h"

namespace quillmark {

// `Version` as in "v1.0.0".
[[nodiscard]] std::string windowTitle(const SessionFacts& facts, bool modified,
                                      const std::string& Version, const Traduction& traduction);

// The name of the file or "Nouveau TYP", empty without a document.
[[nodiscard]] std::string lblNomTyp(const SessionFacts& facts, const Traduction& traduction);

// "1 234 567 octets".
[[nodiscard]] std::string lengthText(std::size_t bytes, const Traduction& traduction);
// The length of the file, then whether it is held in UTF-8, then whether it was modified.
[[nodiscard]] std::string lblLongueur(const SessionFacts& facts, bool modified,
                                      const Traduction& traduction);
// When the file was compiled; empty for a document that never was.
[[nodiscard]] std::string lblDateCreation(const Document& document);

// A fault that the file has; a click on it opens the journal.
struct CardNotice {
    JournalKind kind = JournalKind::error;
    std::string text;
};
[[nodiscard]] std::vector<CardNotice> cardNotices(int errors, int warnings,
                                                  const Traduction& traduction);

// "FID:   0x15B3", empty for a text that is no number.
[[nodiscard]] std::string headerFieldTip(HeaderField field, const std::string& text);

// Items of a combo and the one that is selected. A value that isn't in its list stands behind it
// as an item of its own.
struct CardChoice {
    std::vector<std::string> items;
    std::vector<int> values;
    int index = 0;
};
[[nodiscard]] CardChoice cbbCodepage(int CodePage);
[[nodiscard]] CardChoice cbbHeadersize(int TailleEntete, const Traduction& traduction);
// What a header of this size may hold.
[[nodiscard]] std::string cbbHeadersizeTip(int TailleEntete, const Traduction& traduction);

// Names of the maps that have a FID, from `MapId.txt`; never empty.
[[nodiscard]] std::vector<std::string> lstFIDs(const std::string& FID, const Profile& mapIds,
                                               const Traduction& traduction);

}  // namespace quillmark
