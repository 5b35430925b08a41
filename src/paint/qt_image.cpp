#include "paint/qt_image.h"

#include "bitmap/layers.h"

namespace quillmark {

QImage toQImage(const Image& image) {
    QImage result(image.width(), image.height(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const Couleur pixel = image.pixel(x, y);
            row[x] = qPremultiply(
                qRgba(redOf(pixel), greenOf(pixel), blueOf(pixel), 255 - transparencyOf(pixel)));
        }
    }
    return result;
}

}  // namespace quillmark
