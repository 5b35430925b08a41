#include "ui/screen_portal.h"

namespace quillmark {

std::unique_ptr<ScreenColour> portalScreenColour() {
    return nullptr;
}

}  // namespace quillmark
