#include "views/object_rows.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/draw_order.h"
#include "text/labels.h"
#include "views/object_labels.h"

namespace quillmark {
namespace {

const std::string& entryAt(const Document& document, int index) {
    return document.ListDraworder[static_cast<std::size_t>(index)];
}

template <typename Record>
std::string typeText(const Record& record) {
    return "Type=0x" + record.Type + " - SubType=0x" + record.SubType;
}

template <typename Record>
RowNumber typeNumber(const Record& record) {
    return {record.Type, record.SubType};
}

std::string brandText(const Document& document, int index) {
    const auto& group = document.ExtraPOI[static_cast<std::size_t>(index)];
    return std::to_string(static_cast<std::uint32_t>(group.BrandID));
}

std::string brandRow(const RowSources& sources, const std::string& number) {
    return sources.traduction.Trad("Icones", "Brand ID", "BrandID") + ":    " + number;
}

}  // namespace

ObjectKind objectKind(ListKind list) {
    constexpr std::array<ObjectKind, 5> kKinds{ObjectKind::Polygone, ObjectKind::Polyline,
                                               ObjectKind::POI, ObjectKind::ExtraPOI,
                                               ObjectKind::none};
    return kKinds[static_cast<std::size_t>(list)];
}

ListKind listOf(ObjectKind kind) {
    for (const ListKind list : kLists) {
        if (kind != ObjectKind::none && objectKind(list) == kind) {
            return list;
        }
    }
    return ListKind::Polygone;
}

int entryCount(const Document& document, ListKind list) {
    return list == ListKind::Draworder ? static_cast<int>(document.ListDraworder.size())
                                       : objectCount(document, objectKind(list));
}

std::string listCaption(const Document& document, ListKind list, const Traduction& traduction) {
    const std::string count = "  (" + std::to_string(entryCount(document, list)) + ")";
    switch (list) {
        case ListKind::Polygone:
            return traduction.Trad("Main", "Liste des polygones", "fraPolygone") + count;
        case ListKind::Polyline:
            return traduction.Trad("Main", "Liste des polylignes", "fraPolyligne") + "  (" +
                   std::to_string(document.NbPolylines()) + " - " +
                   std::to_string(document.NbPolylinesAR()) + ")";
        case ListKind::POI:
            return traduction.Trad("Main", "Liste des POI", "fraPOI") + count;
        case ListKind::ExtraPOI:
            return traduction.Trad("Main", "Liste des POI additionnels", "fraExtraPOI") + count;
        case ListKind::Draworder:
            break;
    }
    return traduction.Trad("Main", "DrawOrder", "fraDraworder") + count;
}

std::string rowText(const RowSources& sources, ListKind list, int index) {
    const auto i = static_cast<std::size_t>(index);
    switch (list) {
        case ListKind::Polygone:
            return typeText(sources.document.Polygone[i]);
        case ListKind::Polyline:
            return typeText(sources.document.Polyline[i]);
        case ListKind::POI:
            return typeText(sources.document.POI[i]);
        case ListKind::ExtraPOI:
            return brandRow(sources, brandText(sources.document, index));
        case ListKind::Draworder:
            break;
    }
    return entryAt(sources.document, index);
}

std::string widestRowText(const RowSources& sources, ListKind list) {
    switch (list) {
        case ListKind::ExtraPOI: {
            // Most brands are short numbers: no room is kept for ten digits that aren't there.
            std::size_t digits = 3;
            for (int i = 0; i < entryCount(sources.document, list); ++i) {
                digits = std::max(digits, brandText(sources.document, i).size());
            }
            return brandRow(sources, std::string(digits, '8'));
        }
        case ListKind::Draworder:
            return drawOrderEntry({88, 0x10d, 0x1d});
        default:
            return "Type=0x10d - SubType=0x1d";
    }
}

std::vector<std::string> objectNames(const RowSources& sources, ObjectKind kind, int index,
                                     int LangueLabels) {
    std::vector<std::string> names;
    const auto add = [&names](std::string name) {
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(std::move(name));
        }
    };
    const Bytes* strings = stringsOf(sources.document, {kind, index, 0});
    std::vector<Label> labels;
    if (strings != nullptr) {
        labels = decodeStrings(*strings, sources.document.CodePage);
    }
    for (const Label& label : labels) {
        if (label.language == LangueLabels) {
            add(onOneLine(label.text));
        }
    }
    if (kind != ObjectKind::ExtraPOI) {
        add(typeName(sources, kind, rowNumber(sources.document, listOf(kind), index)));
    }
    for (const Label& label : labels) {
        add(onOneLine(label.text));
    }
    return names;
}

RowNumber rowNumber(const Document& document, ListKind list, int index) {
    const auto i = static_cast<std::size_t>(index);
    switch (list) {
        case ListKind::Polygone:
            return typeNumber(document.Polygone[i]);
        case ListKind::Polyline:
            return typeNumber(document.Polyline[i]);
        case ListKind::POI:
            return typeNumber(document.POI[i]);
        case ListKind::ExtraPOI:
            return {brandText(document, index), {}};
        case ListKind::Draworder:
            break;
    }
    const auto item = parseDrawOrderEntry(entryAt(document, index));
    if (!item) {
        return {};
    }
    return {hexText(static_cast<std::uint32_t>(item->type), 3),
            hexText(static_cast<std::uint32_t>(item->subtype), 2)};
}

std::string typeName(const RowSources& sources, ObjectKind kind, const RowNumber& number) {
    const char* section = kind == ObjectKind::Polygone   ? "Polygons"
                          : kind == ObjectKind::Polyline ? "Polylines"
                                                         : "POI";
    const std::string found =
        sources.types().find(section, "0x" + number.type + number.subtype).value_or("");
    return std::string(trimmed(std::string_view(found).substr(0, found.find('/'))));
}

int activityIndex(const Polyline& line) {
    const int k = (line.ActiveRouting[0] - 4) * 3 + line.ActiveRouting[1];
    return line.isActiveRouting() && k >= 0 && k <= 5 ? k : -1;
}

std::string activityText(const Polyline& line, const Traduction& traduction) {
    if (!line.isActiveRouting()) {
        return {};
    }
    switch (line.ActiveRouting[0] << 8 | line.ActiveRouting[1]) {
        case 0x400:
            return traduction.Trad("Demarrage", "Marche à pied", "Activity1");
        case 0x401:
            return traduction.Trad("Demarrage", "Randonnée", "Activity2");
        case 0x402:
            return traduction.Trad("Demarrage", "Alpinisme", "Activity3");
        case 0x500:
            return traduction.Trad("Demarrage", "Vélo", "Activity4");
        case 0x501:
            return traduction.Trad("Demarrage", "Cyclotourisme", "Activity5");
        case 0x502:
            return traduction.Trad("Demarrage", "VTT", "Activity6");
        default:
            return traduction.Trad("Demarrage", "Inconnue", "ActivityOther");
    }
}

}  // namespace quillmark
