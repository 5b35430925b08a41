#include "bitmap/tint.h"

#include <algorithm>

#include "bitmap/layers.h"

namespace quillmark {

std::uint8_t teinterOctet(std::uint8_t value, int slider) {
    const int v = std::clamp(slider, 0, kTintMax);
    const int tinted = v > kTintMiddle ? value + ((255 - value) * (v - kTintMiddle) + 64) / 128
                                       : (value * v + 63) / kTintMiddle;
    return static_cast<std::uint8_t>(tinted);
}

Image teinter(const Image& picture, int ScrollRouge, int ScrollVert, int ScrollBleu) {
    Image tinted(picture.width(), picture.height());
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Couleur pixel = picture.pixel(x, y);
            const Couleur colour = couleurFromRgb(teinterOctet(redOf(pixel), ScrollRouge),
                                                  teinterOctet(greenOf(pixel), ScrollVert),
                                                  teinterOctet(blueOf(pixel), ScrollBleu));
            tinted.setPixel(x, y, seenThrough(colour, transparencyOf(pixel)));
        }
    }
    return tinted;
}

}  // namespace quillmark
