#include "core/journal.h"

#include <algorithm>

#include "core/dialogues.h"
#include "core/translation.h"

namespace quillmark {
namespace {

std::string composeKind(const std::vector<const JournalEntry*>& entries) {
    std::string text;
    for (const JournalEntry* entry : entries) {
        if (entry->text.empty() || (entry->text[0] != '\r' && entry->text[0] != '\n')) {
            text += kLineBreak;
        }
        text += entry->text;
    }
    return text;
}

}  // namespace

void Journal::add(JournalEntry entry) {
    ++(entry.kind == JournalKind::error ? errors_ : warnings_);
    entries_.push_back(std::move(entry));
}

void Journal::error(std::string text, std::string context, int line) {
    add({JournalKind::error, std::move(context), line, std::move(text), ObjectKind::none, 0});
}

void Journal::warning(std::string text, std::string context, int line) {
    add({JournalKind::warning, std::move(context), line, std::move(text), ObjectKind::none, 0});
}

void Journal::append(const Journal& other) {
    // By index up to the old size, so that a journal can be appended to itself.
    const std::size_t count = other.entries_.size();
    entries_.reserve(entries_.size() + count);
    for (std::size_t i = 0; i < count; ++i) {
        add(other.entries_[i]);
    }
}

void Journal::setObject(std::size_t first, ObjectKind object, std::uint32_t identity) {
    for (std::size_t i = first; i < entries_.size(); ++i) {
        entries_[i].object = object;
        entries_[i].identity = identity;
    }
}

void Journal::clear() {
    *this = {};
}

std::vector<const JournalEntry*> Journal::shown(JournalKind kind) const {
    std::vector<const JournalEntry*> order;
    for (std::size_t i = entries_.size(); i-- > 0;) {
        const JournalEntry& entry = entries_[i];
        if (entry.kind == kind && entry.line == 0) {
            order.push_back(&entry);
        }
    }
    const auto binaryEntries = static_cast<std::ptrdiff_t>(order.size());
    for (const JournalEntry& entry : entries_) {
        if (entry.kind == kind && entry.line != 0) {
            order.push_back(&entry);
        }
    }
    std::stable_sort(
        order.begin() + binaryEntries, order.end(),
        [](const JournalEntry* a, const JournalEntry* b) { return a->line < b->line; });
    return order;
}

std::string Journal::JournalErreurs() const {
    return composeKind(shown(JournalKind::error));
}

std::string Journal::JournalAvertissements() const {
    return composeKind(shown(JournalKind::warning));
}

std::string lblErreurs(bool errors, const Traduction& traduction) {
    return errors ? traduction.Trad("Erreurs", "Erreurs", "lblErreurs")
                  : traduction.Trad("Erreurs", "Messages", "lblMessages");
}

std::string composeJournal(std::initializer_list<const Journal*> journals,
                           const std::string& documentPath, const Traduction& traduction) {
    const std::string rule(150, '-');
    std::string errors;
    std::string warnings;
    for (const Journal* journal : journals) {
        errors += journal->JournalErreurs();
        warnings += journal->JournalAvertissements();
    }
    std::string text = documentPath + kLineBreak + kLineBreak;
    if (!errors.empty()) {
        text += rule + kLineBreak +
                traduction.Trad("Erreurs", "Erreurs rencontrées dans le fichier", "msgErreur") +
                kLineBreak + rule + errors + kLineBreak + kLineBreak;
    }
    if (!warnings.empty()) {
        text += kLineBreak + rule + kLineBreak +
                traduction.Trad("Erreurs", "Avertissements", "msgWarning") + kLineBreak + rule +
                warnings;
    }
    return text;
}

}  // namespace quillmark
