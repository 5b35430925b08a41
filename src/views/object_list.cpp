#include "views/object_list.h"

#include <algorithm>

#include "views/object_pictures.h"
#include "views/search_words.h"

namespace quillmark {
namespace {

std::string_view withoutZeros(std::string_view digits) {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

std::string_view withoutPrefix(std::string_view typed) {
    return typed.substr(typed.starts_with("0x") ? 2 : 0);
}

// A type may be typed with or without its leading zeros.
bool beginsLike(std::string_view digits, std::string_view typed) {
    return !digits.empty() &&
           (digits.starts_with(typed) || withoutZeros(digits).starts_with(typed));
}

// Fewer digits name a type: "10" isn't the type 001 with its subtype behind it.
constexpr std::size_t kDigitsOfType = 3;

// In a searched text, in front of a number, of a short one with its subtype, and of the names.
constexpr char kNumber = '\n';
constexpr char kShortWhole = '\v';
constexpr char kNames = '\t';

}  // namespace

void ObjectList::refresh(int LangueLabels) {
    LangueLabels_ = LangueLabels;
    count_ = entryCount(sources_.document, kind_);
    names_.assign(static_cast<std::size_t>(count_), std::nullopt);
    searched_.assign(static_cast<std::size_t>(count_), {});
    polygons_.reset();
    applyFilter();
}

void ObjectList::refreshEntry(int index) {
    if (index < 0 || index >= count_) {
        return;
    }
    names_[static_cast<std::size_t>(index)].reset();
    searched_[static_cast<std::size_t>(index)].clear();
    applyFilter();
}

void ObjectList::setFilter(std::string_view text) {
    words_ = wordsOf(foldedForSearch(text));
    applyFilter();
}

void ObjectList::applyFilter() {
    rows_.clear();
    for (int i = 0; isFiltered() && i < count_; ++i) {
        if (matches(i)) {
            rows_.push_back(i);
        }
    }
}

int ObjectList::rowCount() const {
    return isFiltered() ? static_cast<int>(rows_.size()) : count_;
}

int ObjectList::indexAt(int row) const {
    if (row < 0 || row >= rowCount()) {
        return -1;
    }
    const int index = isFiltered() ? rows_[static_cast<std::size_t>(row)] : row;
    // Between a change of the document and its notice the list is longer than the document.
    return index < entryCount(sources_.document, kind_) ? index : -1;
}

int ObjectList::rowOf(int index) const {
    if (index < 0 || index >= count_) {
        return -1;
    }
    if (!isFiltered()) {
        return index;
    }
    const auto found = std::lower_bound(rows_.begin(), rows_.end(), index);
    return found != rows_.end() && *found == index ? static_cast<int>(found - rows_.begin()) : -1;
}

int ObjectList::polygonOf(const RowNumber& number) const {
    const auto& polygons = sources_.document.Polygone;
    if (!polygons_) {
        polygons_.emplace();
        for (std::size_t i = 0; i < polygons.size(); ++i) {
            polygons_->try_emplace(identityValue(polygons[i].Type, polygons[i].SubType),
                                   static_cast<int>(i));
        }
    }
    const auto found = polygons_->find(identityValue(number.type, number.subtype));
    return found == polygons_->end() ? -1 : found->second;
}

std::vector<std::string> ObjectList::names(int index) const {
    ObjectKind kind = objectKind(kind_);
    if (kind_ == ListKind::Draworder) {
        const RowNumber number = rowNumber(sources_.document, kind_, index);
        kind = ObjectKind::Polygone;
        index = polygonOf(number);
        if (index < 0) {
            return {typeName(sources_, kind, number)};
        }
    }
    return objectNames(sources_, kind, index, LangueLabels_);
}

const std::string& ObjectList::name(int index) const {
    auto& name = names_[static_cast<std::size_t>(index)];
    if (!name) {
        const std::vector<std::string> all = names(index);
        name = all.empty() ? std::string() : all.front();
    }
    return *name;
}

std::string ObjectList::tip(int index) const {
    std::string tip = text(index);
    if (kind_ == ListKind::Polyline) {
        const auto& line = sources_.document.Polyline[static_cast<std::size_t>(index)];
        const std::string activity = activityText(line, sources_.traduction);
        tip += activity.empty() ? "" : "\n" + activity;
    }
    for (const std::string& name : names(index)) {
        tip += "\n" + name;
    }
    const ObjectRef object{objectKind(kind_), index, 0};
    const ObjectPictures pictures = afficheObjet(sources_.document, object, false);
    const std::string faults = faultTip(pictures.day.faults | pictures.night.faults,
                                        headByte(sources_.document, object), sources_.traduction);
    return faults.empty() ? tip : tip + "\n" + faults;
}

int ObjectList::activity(int index) const {
    return kind_ == ListKind::Polyline
               ? activityIndex(sources_.document.Polyline[static_cast<std::size_t>(index)])
               : -1;
}

const std::string& ObjectList::searched(int index) const {
    std::string& searched = searched_[static_cast<std::size_t>(index)];
    if (searched.empty()) {
        const RowNumber number = rowNumber(sources_.document, kind_, index);
        const std::string digits = number.type + number.subtype;
        (searched += kNumber) += digits;
        (searched += kNumber) += withoutZeros(number.type);
        (searched += kShortWhole) += withoutZeros(digits);
        searched += kNames;
        for (const std::string& name : names(index)) {
            searched.append(foldedForSearch(name)) += '\n';
        }
    }
    return searched;
}

bool ObjectList::matches(int index) const {
    const std::string& searched = this->searched(index);
    const std::size_t names = searched.find(kNames);
    const auto numbered = [&](char mark, std::string_view typed) {
        return std::string_view(searched).substr(0, names).find(mark + std::string(typed)) !=
               std::string_view::npos;
    };
    return std::all_of(words_.begin(), words_.end(), [&](const std::string& word) {
        const std::string_view typed = withoutPrefix(word);
        return numbered(kNumber, typed) ||
               (typed.size() > kDigitsOfType && numbered(kShortWhole, typed)) ||
               searched.find(word, names) != std::string::npos;
    });
}

int ObjectList::typeAhead(std::string_view typed, int from) const {
    const int rows = rowCount();
    std::string folded = foldedForSearch(typed);
    if (folded.empty() || rows == 0) {
        return -1;
    }
    const auto firstRow = [&](const auto& found) {
        for (int step = 0; step < rows; ++step) {
            const int row = (std::max(from, 0) + step) % rows;
            const int index = indexAt(row);
            if (index >= 0 && found(index)) {
                return row;
            }
        }
        return -1;
    };
    const std::string_view digits = withoutPrefix(folded);
    const auto numberOf = [this](int index) { return rowNumber(sources_.document, kind_, index); };
    int row = firstRow([&](int index) { return beginsLike(numberOf(index).type, digits); });
    if (row < 0 && digits.size() > kDigitsOfType) {
        row = firstRow([&](int index) {
            const RowNumber number = numberOf(index);
            return beginsLike(number.type + number.subtype, digits);
        });
    }
    return row >= 0 ? row : firstRow([&](int index) {
        return hasWordBeginning(foldedForSearch(name(index)), folded);
    });
}

}  // namespace quillmark
