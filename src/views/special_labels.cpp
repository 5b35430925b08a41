#include "views/special_labels.h"

#include <algorithm>

#include "text/code_pages.h"

namespace quillmark {
namespace {

// The last text counts also where its zero is missing.
std::vector<std::string> texts(ByteView strings, int CodePage) {
    std::vector<std::string> found;
    std::size_t start = 0;
    while (start < strings.size()) {
        const auto rest = strings.subspan(start);
        const auto zero = std::find(rest.begin(), rest.end(), std::uint8_t{0});
        const auto length = static_cast<std::size_t>(zero - rest.begin());
        found.push_back(bytesToText(rest.first(length), CodePage));
        start += length + 1;
    }
    return found;
}

// Whole entries only; none without a size.
std::vector<std::string> entries(ByteView table, std::size_t entrySize) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::vector<std::string> found;
    if (entrySize == 0) {
        return found;
    }
    for (std::size_t at = 0; table.size() - at >= entrySize; at += entrySize) {
        std::string bytes;
        for (const std::uint8_t byte : table.subspan(at, entrySize)) {
            bytes += {kDigits[byte >> 4U], kDigits[byte & 0x0FU], ' '};
        }
        found.push_back(std::move(bytes));
    }
    return found;
}

}  // namespace

SpecialLabels::SpecialLabels(const Document& document) {
    std::vector<std::string> words = texts(document.LabelsStrings, document.CodePage);
    std::vector<std::string> a = entries(document.LabelsTableA, document.EnteteLabels.entrySizeA);
    std::vector<std::string> b = entries(document.LabelsTableB, document.EnteteLabels.entrySizeB);
    if (document.LabelsStrings.empty()) {
        return;
    }
    texts_ = static_cast<int>(words.size());
    rows_.resize(std::max({words.size(), a.size(), b.size()}));
    const auto put = [this](std::vector<std::string>& from, std::string SpecialLabel::*to) {
        for (std::size_t i = 0; i < from.size(); ++i) {
            rows_[i].*to = std::move(from[i]);
        }
    };
    put(words, &SpecialLabel::text);
    put(a, &SpecialLabel::tableA);
    put(b, &SpecialLabel::tableB);
}

std::string SpecialLabels::title(const Traduction& traduction) const {
    return traduction.Trad("Main", "Labels spéciaux", "frmLabels") + "  (" +
           std::to_string(texts_) + ')';
}

}  // namespace quillmark
