// What the icon sheet says of an object: the lines below its picture and its tip.
#pragma once

#include <string>

#include "core/object_ref.h"
#include "core/translation.h"

namespace quillmark {

// Setting `Labels`.
enum class LabelMode : std::uint8_t { none = 1, text = 2, type = 3, typeAndText = 4 };
[[nodiscard]] constexpr bool showsType(LabelMode mode) {
    return mode == LabelMode::type || mode == LabelMode::typeAndText;
}
[[nodiscard]] constexpr bool showsText(LabelMode mode) {
    return mode == LabelMode::text || mode == LabelMode::typeAndText;
}
[[nodiscard]] constexpr int labelLines(LabelMode mode) {
    return (showsType(mode) ? 1 : 0) + (showsText(mode) ? 1 : 0);
}

// "10d/1a", with the name of its activity behind it for an Active Routing line; "003" for a
// subtype of 0; "12-1" for the first member of a brand.
[[nodiscard]] std::string sheetType(const Document& document, const ObjectRef& object,
                                    const Traduction& traduction);

// The label in the language asked for, else the one in language 0, else the first; on one line.
// Empty for an object without labels.
[[nodiscard]] std::string sheetLabel(const Document& document, const ObjectRef& object,
                                     int LangueLabels);

// Characters that a cell has room for at this zoom and font size in points.
[[nodiscard]] int labelCharacters(int factor, int fontSize);
// Shortened to that, with "…" where something is cut off.
[[nodiscard]] std::string cutLabel(const std::string& label, int factor, int fontSize);

[[nodiscard]] std::string sheetTip(const Document& document, const ObjectRef& object,
                                   int LangueLabels);

}  // namespace quillmark
