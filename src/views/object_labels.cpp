#include "views/object_labels.h"

#include "core/ascii.h"
#include "views/object_pictures.h"

namespace quillmark {

const Bytes* stringsOf(const Document& document, const ObjectRef& object) {
    const auto when = [](bool has, const Bytes& strings) { return has ? &strings : nullptr; };
    if (const POI* point = pointOf(document, object)) {
        return when((point->Entete & point_bits::kStrings) != 0, point->Strings);
    }
    if (!exists(document, object)) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(object.index);
    if (object.kind == ObjectKind::Polygone) {
        const Polygone& polygon = document.Polygone[index];
        return when((polygon.Entete & polygon_bits::kStrings) != 0, polygon.Strings);
    }
    if (object.kind == ObjectKind::Polyline) {
        const Polyline& line = document.Polyline[index];
        return when((line.Entete2 & line_bits::kStrings) != 0, line.Strings);
    }
    return nullptr;
}

std::string onOneLine(std::string_view label) {
    std::string line;
    for (std::size_t i = 0; i < label.size(); ++i) {
        const auto c = static_cast<unsigned char>(label[i]);
        const bool secondHalf = c == '\n' && i > 0 && label[i - 1] == '\r';
        if (!secondHalf) {
            line += c < 0x20 || c == 0x7F ? ' ' : label[i];
        }
    }
    return std::string(trimmed(line));
}

}  // namespace quillmark
