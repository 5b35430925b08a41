#include "views/journal_list.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/paths.h"

namespace quillmark {
namespace {

// A row begins where its entry's words begin; inside, one kind of line end.
std::string shownText(const std::string& text) {
    std::string shown;
    shown.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(shown),
                 [](char c) { return c != '\r'; });
    const auto isRule = [](std::string_view line) {
        return line.find_first_not_of("- ") == std::string_view::npos;
    };
    std::string_view rest = shown;
    for (std::size_t end = 0; !rest.empty(); rest.remove_prefix(end)) {
        end = std::min(rest.find('\n'), rest.size() - 1) + 1;
        if (!isRule(trimmed(rest.substr(0, end), "\n"))) {
            break;
        }
    }
    while (!rest.empty()) {
        const std::size_t line = rest.rfind('\n');
        const std::size_t start = line == std::string_view::npos ? 0 : line;
        if (!isRule(trimmed(rest.substr(start), "\n"))) {
            break;
        }
        rest = rest.substr(0, start);
    }
    return std::string(trimmed(rest, " "));
}

std::string identityOf(std::uint16_t identity) {
    std::string Type;
    std::string SubType;
    setIdentity(Type, SubType, identity);
    return "0x" + Type + '/' + SubType;
}

template <typename Record>
int indexOf(const std::vector<Record>& records, std::uint32_t identity) {
    const auto found = std::find_if(records.begin(), records.end(), [&](const Record& record) {
        if constexpr (std::is_same_v<Record, ExtraPOI>) {
            return static_cast<std::uint32_t>(record.BrandID) == identity;
        } else {
            return identityValue(record.Type, record.SubType) == static_cast<int>(identity);
        }
    });
    return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}

}  // namespace

void JournalList::refresh() {
    rows_.clear();
    for (const JournalKind kind : {JournalKind::error, JournalKind::warning}) {
        add(session_.openJournal(), kind, false);
        add(session_.applyJournal(), kind, session_.showsApplied());
    }
}

void JournalList::add(const Journal& journal, JournalKind kind, bool ofView) {
    for (const JournalEntry* entry : journal.shown(kind)) {
        JournalRow row;
        row.kind = kind;
        row.line = ofView ? entry->line : 0;
        row.object = entry->object;
        row.identity = entry->identity;
        if (entry->line > 0) {
            row.place =
                traduction_.Trad("Main", "Ligne", "msgLigne") + ' ' + std::to_string(entry->line);
        } else if (entry->object != ObjectKind::none) {
            row.place = entry->object == ObjectKind::ExtraPOI
                            ? traduction_.Trad("Icones", "Brand ID", "BrandID") + ": " +
                                  std::to_string(entry->identity)
                            : identityOf(static_cast<std::uint16_t>(entry->identity));
        }
        row.text = shownText(entry->text);
        rows_.push_back(std::move(row));
    }
}

std::string JournalList::lblErreurs() const {
    return quillmark::lblErreurs(session_.errorCount() > 0, traduction_);
}

std::string JournalList::text() const {
    return session_.facts().hasDocument
               ? composeJournal({&session_.openJournal(), &session_.applyJournal()},
                                utf8FromPath(session_.facts().FichierTYP), traduction_)
               : std::string();
}

ObjectRef JournalList::objectOf(const JournalRow& row) const {
    const Document& document = session_.document();
    int index = -1;
    switch (row.object) {
        case ObjectKind::Polygone:
            index = indexOf(document.Polygone, row.identity);
            break;
        case ObjectKind::Polyline:
            index = indexOf(document.Polyline, row.identity);
            break;
        case ObjectKind::POI:
            index = indexOf(document.POI, row.identity);
            break;
        case ObjectKind::ExtraPOI:
            index = indexOf(document.ExtraPOI, row.identity);
            break;
        default:
            break;
    }
    return index < 0 ? ObjectRef{} : ObjectRef{row.object, index, 0};
}

}  // namespace quillmark
