// The special labels of a document, as rows: each text with the bytes of its entries.
#pragma once

#include <string>
#include <vector>

#include "core/document.h"
#include "core/translation.h"

namespace quillmark {

struct SpecialLabel {
    std::string text;    // UTF-8
    std::string tableA;  // "0A 1B ", with the last blank; empty beyond the table's entries
    std::string tableB;
    [[nodiscard]] std::string line() const { return text + '\t' + tableA + '\t' + tableB; }
};

class SpecialLabels {
  public:
    explicit SpecialLabels(const Document& document);

    // As many as there are texts or whole entries of either table.
    [[nodiscard]] const std::vector<SpecialLabel>& rows() const { return rows_; }
    [[nodiscard]] std::string title(const Traduction& traduction) const;

  private:
    std::vector<SpecialLabel> rows_;
    int texts_ = 0;  // rows with a text of their own, be it an empty one
};

}  // namespace quillmark
