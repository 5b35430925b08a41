// One list: which rows a filter leaves, what they are called, and where typed characters lead.
// Names are made when they are first asked for.
#pragma once

#include <optional>
#include <unordered_map>

#include "views/object_rows.h"

namespace quillmark {

class ObjectList {
  public:
    ObjectList(ListKind kind, RowSources sources) : kind_(kind), sources_(std::move(sources)) {}

    [[nodiscard]] ListKind kind() const { return kind_; }
    [[nodiscard]] const RowSources& sources() const { return sources_; }

    // Anything may have changed: the document, the program's language, that of the labels.
    void refresh(int LangueLabels);
    // One object alone changed.
    void refreshEntry(int index);

    // A number begins like the type, a word stands anywhere in a name; all words must be there.
    void setFilter(std::string_view text);
    [[nodiscard]] bool isFiltered() const { return !words_.empty(); }

    [[nodiscard]] int rowCount() const;
    // -1 beyond the rows, or for an entry that the document has no more.
    [[nodiscard]] int indexAt(int row) const;
    // -1 for what the filter hides.
    [[nodiscard]] int rowOf(int index) const;

    // Of entries, by index.
    [[nodiscard]] std::string text(int index) const { return rowText(sources_, kind_, index); }
    [[nodiscard]] const std::string& name(int index) const;
    // The row in full, with its activity, all its names and what is wrong with its pictures.
    [[nodiscard]] std::string tip(int index) const;
    // 0 to 5, -1 without.
    [[nodiscard]] int activity(int index) const;

    // The row that typed characters lead to, searched for from row `from` on and round the end: by
    // the digits of its type, then with the subtype, else by the start of a word of its name. -1
    // when there is none.
    [[nodiscard]] int typeAhead(std::string_view typed, int from) const;

  private:
    [[nodiscard]] std::vector<std::string> names(int index) const;
    [[nodiscard]] const std::string& searched(int index) const;
    [[nodiscard]] bool matches(int index) const;
    [[nodiscard]] int polygonOf(const RowNumber& number) const;
    void applyFilter();

    ListKind kind_;
    RowSources sources_;
    int LangueLabels_ = 1;
    int count_ = 0;
    std::vector<std::string> words_;
    std::vector<int> rows_;  // indexes that the filter leaves, ascending; unused without a filter
    mutable std::vector<std::optional<std::string>> names_;
    mutable std::vector<std::string> searched_;  // empty: not made yet
    // Polygons by their identity, for the draw order; made when a name is first asked for.
    mutable std::optional<std::unordered_map<int, int>> polygons_;
};

}  // namespace quillmark
