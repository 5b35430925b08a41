// The five lists of the main window and what one row of them says.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/object_ref.h"
#include "core/profile.h"
#include "core/translation.h"

namespace quillmark {

enum class ListKind : std::uint8_t { Polygone, Polyline, POI, ExtraPOI, Draworder };
inline constexpr std::array<ListKind, 5> kLists{
    ListKind::Polygone, ListKind::Polyline, ListKind::POI, ListKind::ExtraPOI, ListKind::Draworder};

// None for the draw order, whose entries are no objects.
[[nodiscard]] ObjectKind objectKind(ListKind list);
// The list of a kind; polygons for none.
[[nodiscard]] ListKind listOf(ObjectKind kind);

[[nodiscard]] int entryCount(const Document& document, ListKind list);
// "Liste des polygones  (12)".
[[nodiscard]] std::string listCaption(const Document& document, ListKind list,
                                      const Traduction& traduction);

// What rows are made from.
struct RowSources {
    const Document& document;
    const Traduction& traduction;
    std::function<const Profile&()> types;  // `MPCTypes.txt`, asked only when a name needs it
};

// "Type=0x10d - SubType=0x1a", "Brand ID:    12" or the entry of the draw order.
[[nodiscard]] std::string rowText(const RowSources& sources, ListKind list, int index);
// As wide as a row of the list gets.
[[nodiscard]] std::string widestRowText(const RowSources& sources, ListKind list);

// The digits of an entry that are looked for: type, then subtype, or the number of a brand.
struct RowNumber {
    std::string type;     // 3 hexadecimal digits, or a decimal number
    std::string subtype;  // 2 hexadecimal digits, or empty
};
[[nodiscard]] RowNumber rowNumber(const Document& document, ListKind list, int index);

// What maps call a type; empty for one that has no name.
[[nodiscard]] std::string typeName(const RowSources& sources, ObjectKind kind,
                                   const RowNumber& number);
// All that names an object: the label in the chosen language, the type's name, other labels.
// Each on one line, none twice; the first is the one to show.
[[nodiscard]] std::vector<std::string> objectNames(const RowSources& sources, ObjectKind kind,
                                                   int index, int LangueLabels);

// Index of the colour and the icon of an Active Routing line, also where the activity is unknown;
// -1 without one.
[[nodiscard]] int activityIndex(const Polyline& line);
// "Vélo", or "Inconnue"; empty for an ordinary line.
[[nodiscard]] std::string activityText(const Polyline& line, const Traduction& traduction);

}  // namespace quillmark
