// Names of the controls of each list, and the words on them.
#pragma once

#include "views/object_rows.h"

namespace quillmark {

struct ListNames {
    const char* kind;     // in the names of buttons and filter, such as "cmdSupprimerPolygone"
    const char* list;     // of the rows
    const char* section;  // of the caption
    const char* drawing;
};
[[nodiscard]] const ListNames& listNames(ListKind kind);

struct ListTips {
    std::string create;
    std::string edit;
    std::string remove;
};
[[nodiscard]] ListTips listTips(ListKind kind, const Traduction& traduction);

// In the empty filter, where there is little room, and in full.
[[nodiscard]] std::string filterHint(const Traduction& traduction);
[[nodiscard]] std::string filterTip(const Traduction& traduction);
[[nodiscard]] std::string nothingFoundText(const Traduction& traduction);
// Of a command whose window isn't there yet.
[[nodiscard]] std::string laterText(const Traduction& traduction);

}  // namespace quillmark
