#include "views/sheet_texts.h"

#include <algorithm>

#include "text/code_pages.h"
#include "text/format.h"
#include "text/graphemes.h"
#include "text/labels.h"
#include "views/object_labels.h"
#include "views/object_pictures.h"
#include "views/object_rows.h"

namespace quillmark {
namespace {

constexpr int kRoomAtFactorOne = 72;  // in points

const Polygone* polygonOf(const Document& document, const ObjectRef& object) {
    return object.kind == ObjectKind::Polygone && exists(document, object)
               ? &document.Polygone[static_cast<std::size_t>(object.index)]
               : nullptr;
}

const Polyline* lineOf(const Document& document, const ObjectRef& object) {
    return object.kind == ObjectKind::Polyline && exists(document, object)
               ? &document.Polyline[static_cast<std::size_t>(object.index)]
               : nullptr;
}

std::string brandOf(const Document& document, const ObjectRef& object) {
    const auto& group = document.ExtraPOI[static_cast<std::size_t>(object.index)];
    return std::to_string(static_cast<std::uint32_t>(group.BrandID));
}

template <typename Record>
std::string fullType(const Record& record) {
    return record.Type + "/" + record.SubType;
}

template <typename Record>
std::string shortType(const Record& record) {
    return record.SubType == "00" ? record.Type : fullType(record);
}

std::string_view englishActivity(const Polyline& line) {
    const auto* found = std::find_if(format::kWrittenActivities.begin(),
                                     format::kWrittenActivities.end(), [&](const auto& activity) {
                                         return activity.first == line.ActiveRouting[0] &&
                                                activity.second == line.ActiveRouting[1];
                                     });
    return found == format::kWrittenActivities.end() ? format::kUnknownActivity : found->name;
}

}  // namespace

std::string sheetType(const Document& document, const ObjectRef& object,
                      const Traduction& traduction) {
    if (const Polygone* polygon = polygonOf(document, object)) {
        return shortType(*polygon);
    }
    if (const Polyline* line = lineOf(document, object)) {
        return line->isActiveRouting() ? shortType(*line) + " " + activityText(*line, traduction)
                                       : shortType(*line);
    }
    const POI* point = pointOf(document, object);
    if (point == nullptr) {
        return {};
    }
    return object.kind == ObjectKind::POI
               ? shortType(*point)
               : brandOf(document, object) + "-" + std::to_string(object.member + 1);
}

std::string sheetLabel(const Document& document, const ObjectRef& object, int LangueLabels) {
    const Bytes* strings = stringsOf(document, object);
    if (strings == nullptr) {
        return {};
    }
    const std::vector<RawLabel> labels = splitStrings(*strings);
    if (labels.empty()) {
        return {};
    }
    const auto in = [&labels](int language) {
        return std::find_if(labels.begin(), labels.end(), [language](const RawLabel& label) {
            return label.language == language;
        });
    };
    auto found = in(LangueLabels);
    found = found == labels.end() ? in(0) : found;
    found = found == labels.end() ? labels.begin() : found;
    return onOneLine(bytesToText(found->text, document.CodePage));
}

int labelCharacters(int factor, int fontSize) {
    return std::max(1, kRoomAtFactorOne * factor / std::max(1, fontSize));
}

std::string cutLabel(const std::string& label, int factor, int fontSize) {
    const auto count = static_cast<std::size_t>(labelCharacters(factor, fontSize));
    const std::size_t end = platform::behindCharacters(label, count);
    return end < label.size() ? label.substr(0, end) + "…" : label;
}

std::string sheetTip(const Document& document, const ObjectRef& object, int LangueLabels) {
    const std::string label = sheetLabel(document, object, LangueLabels);
    const auto behind = [&label](const char* between) {
        return label.empty() ? std::string() : between + label;
    };
    if (const Polygone* polygon = polygonOf(document, object)) {
        return fullType(*polygon) + behind("\n");
    }
    if (const Polyline* line = lineOf(document, object)) {
        const std::string tip = fullType(*line) + behind("\n");
        return line->isActiveRouting() ? tip + "\n" + std::string(englishActivity(*line)) : tip;
    }
    const POI* point = pointOf(document, object);
    if (point == nullptr) {
        return {};
    }
    return (object.kind == ObjectKind::POI ? fullType(*point) : brandOf(document, object)) +
           behind(" ");
}

}  // namespace quillmark
