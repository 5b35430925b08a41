// Pictures of the engine as the toolkit's.
#pragma once

#include <QImage>

#include "bitmap/image.h"

namespace quillmark {

[[nodiscard]] QImage toQImage(const Image& image);

[[nodiscard]] inline QRgb toQRgb(Couleur colour) {
    return qRgb(redOf(colour), greenOf(colour), blueOf(colour));
}
[[nodiscard]] inline Couleur toCouleur(QRgb colour) {
    return couleurFromRgb(static_cast<std::uint8_t>(qRed(colour)),
                          static_cast<std::uint8_t>(qGreen(colour)),
                          static_cast<std::uint8_t>(qBlue(colour)));
}

}  // namespace quillmark
