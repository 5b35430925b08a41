#include "bitmap/colour.h"

#include "core/records.h"

namespace quillmark {

std::string colourText(Couleur colour) {
    return '#' + hexTextUpper(static_cast<std::uint32_t>(EchangeRB(colour)), 6);
}

}  // namespace quillmark
