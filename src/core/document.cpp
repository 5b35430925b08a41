#include "core/document.h"

#include <algorithm>

namespace quillmark {
namespace {

int entryCount(std::size_t tableSize, std::uint32_t entrySize) {
    return entrySize == 0 ? 0 : static_cast<int>((tableSize + entrySize / 2) / entrySize);
}

}  // namespace

int Document::NbPolylinesAR() const {
    return static_cast<int>(std::count_if(Polyline.begin(), Polyline.end(),
                                          [](const auto& line) { return line.isActiveRouting(); }));
}

int Document::NbPolylines() const {
    return static_cast<int>(Polyline.size()) - NbPolylinesAR();
}

int Document::NbLabelsA() const {
    return entryCount(LabelsTableA.size(), EnteteLabels.entrySizeA);
}

int Document::NbLabelsB() const {
    return entryCount(LabelsTableB.size(), EnteteLabels.entrySizeB);
}

int codePageIndex(std::int32_t codePage) {
    const auto* found = std::find(kCodePages.begin(), kCodePages.end(), codePage);
    return found == kCodePages.end() ? -1 : static_cast<int>(found - kCodePages.begin());
}

}  // namespace quillmark
