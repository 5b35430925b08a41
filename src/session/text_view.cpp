#include "session/text_view.h"

#include <algorithm>

namespace quillmark {

ObjectKind TextView::ObjetVisualise() const {
    return wholeDocument ? ObjectKind::none : shown.kind;
}

ParseTarget TextView::target() const {
    ParseTarget target;
    if (!wholeDocument) {
        target.ObjetVisualise = shown.kind;
        target.index = shown.index;
        target.member = shown.member;
    }
    return target;
}

const TextSection* TextView::sectionOf(const ObjectRef& object) const {
    const auto found = std::find_if(
        generated.sections.begin(), generated.sections.end(), [&](const TextSection& section) {
            return section.kind == object.kind && section.index == object.index;
        });
    return wholeDocument && found != generated.sections.end() ? &*found : nullptr;
}

}  // namespace quillmark
