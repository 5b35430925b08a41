// Faults found while reading: a list of entries that is composed into one text when shown.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "core/records.h"

namespace quillmark {

class Traduction;

enum class JournalKind : std::uint8_t { error, warning };

struct JournalEntry {
    JournalKind kind = JournalKind::error;
    std::string context;  // the object that was being read, empty when none
    int line = 0;         // line of a text, from 1; 0 for a binary file
    std::string text;     // as shown, may hold line breaks (CR LF)
    // The object that was being read, for who wants to go there.
    ObjectKind object = ObjectKind::none;
    // Type shifted left by 5 plus subtype; of an Extra POI group its `BrandID`.
    std::uint32_t identity = 0;
    bool operator==(const JournalEntry&) const = default;
};

// Entries of a binary file are shown newest first, those of a text in the order of its lines.
class Journal {
  public:
    void add(JournalEntry entry);
    void error(std::string text, std::string context = {}, int line = 0);
    void warning(std::string text, std::string context = {}, int line = 0);
    // Takes over all entries of another journal, behind the own ones.
    void append(const Journal& other);
    // Names the object that the entries from `first` on are about.
    void setObject(std::size_t first, ObjectKind object, std::uint32_t identity);
    void clear();

    [[nodiscard]] const std::vector<JournalEntry>& entries() const noexcept { return entries_; }
    [[nodiscard]] bool ErreurFlag() const noexcept { return errors_ > 0; }
    [[nodiscard]] bool AvertissementFlag() const noexcept { return warnings_ > 0; }
    [[nodiscard]] int errorCount() const noexcept { return errors_; }
    [[nodiscard]] int warningCount() const noexcept { return warnings_; }
    // Entries of one kind in the order in which they are shown.
    [[nodiscard]] std::vector<const JournalEntry*> shown(JournalKind kind) const;
    // The text of one kind, each entry beginning with a line break.
    [[nodiscard]] std::string JournalErreurs() const;
    [[nodiscard]] std::string JournalAvertissements() const;

  private:
    std::vector<JournalEntry> entries_;
    int errors_ = 0;
    int warnings_ = 0;
};

// The caption of the journal's window.
[[nodiscard]] std::string lblErreurs(bool errors, const Traduction& traduction);
// Its whole text: the entries of each kind, journal after journal.
[[nodiscard]] std::string composeJournal(std::initializer_list<const Journal*> journals,
                                         const std::string& documentPath,
                                         const Traduction& traduction);

}  // namespace quillmark
