// The journal as rows: what was wrong, where, and where a double click leads.
#pragma once

#include <string>
#include <vector>

#include "core/journal.h"
#include "core/object_ref.h"
#include "session/session.h"

namespace quillmark {

struct JournalRow {
    JournalKind kind = JournalKind::error;
    std::string place;  // "Ligne 12", "0x10f/04", "Brand ID: 12", empty when none is known
    std::string text;   // line ends LF, without rules and empty lines around it
    int line = 0;       // of the text view, from 1; 0 when none, or of a text it doesn't hold
    ObjectKind object = ObjectKind::none;
    std::uint32_t identity = 0;
    bool operator==(const JournalRow&) const = default;
};

class JournalList {
  public:
    JournalList(const Session& session, const Traduction& traduction)
        : session_(session), traduction_(traduction) {}

    // Reads the session's journal: errors first, each kind in its order.
    void refresh();
    [[nodiscard]] const std::vector<JournalRow>& rows() const { return rows_; }
    // "Erreurs" or "Messages".
    [[nodiscard]] std::string lblErreurs() const;
    // The whole journal as text, as it is copied; empty without a document.
    [[nodiscard]] std::string text() const;
    // The first object that a row is about, none when it isn't there any more.
    [[nodiscard]] ObjectRef objectOf(const JournalRow& row) const;

  private:
    const Session& session_;
    void add(const Journal& journal, JournalKind kind, bool ofView);

    const Traduction& traduction_;
    std::vector<JournalRow> rows_;
};

}  // namespace quillmark
