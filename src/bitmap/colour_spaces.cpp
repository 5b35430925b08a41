#include "bitmap/colour_spaces.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace quillmark {
namespace {

// The build adds that products and sums aren't fused.
static_assert(FLT_EVAL_METHOD == 0, "floats must be rounded to 32 bits after each operation");

std::uint8_t byteOf(float part) {
    return static_cast<std::uint8_t>(std::clamp(std::nearbyint(part * 255.0F), 0.0F, 255.0F));
}

int fieldOf(float part) {
    return static_cast<int>(static_cast<float>(kHlsFieldMax) * part);
}

}  // namespace

Hls RGBversHLS(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    const float r = static_cast<float>(red) / 255.0F;
    const float g = static_cast<float>(green) / 255.0F;
    const float b = static_cast<float>(blue) / 255.0F;
    const float max = std::max({r, g, b});
    const float min = std::min({r, g, b});
    Hls hls;
    hls.L = (max + min) / 2.0F;
    if (max == min) {
        return hls;
    }
    const float d = max - min;
    hls.S = hls.L <= 0.5F ? d / (max + min) : d / (2.0F - max - min);
    if (r == max) {
        hls.H = (g - b) / d;
        if (hls.H < 0.0F) {
            hls.H += 6.0F;
        }
    } else if (g == max) {
        hls.H = 2.0F + (b - r) / d;
    } else {
        hls.H = 4.0F + (r - g) / d;
    }
    hls.H /= 6.0F;
    return hls;
}

Composantes HLSversRGB(float H, float S, float L) {
    float h = H * 6.0F;
    if (h > 5.0F) {
        h -= 6.0F;
    }
    if (S == 0.0F) {
        return {byteOf(L), byteOf(L), byteOf(L)};
    }
    const float min = L <= 0.5F ? L - L * S : L - (1.0F - L) * S;
    const float max = 2.0F * L - min;
    const float d = max - min;
    float r = min;
    float g = min;
    float b = min;
    if (h < 0.0F) {
        r = max;
        b = min - h * d;
    } else if (h < 1.0F) {
        r = max;
        g = min + h * d;
    } else if (h < 2.0F) {
        r = min - (h - 2.0F) * d;
        g = max;
    } else if (h < 3.0F) {
        g = max;
        b = min + (h - 2.0F) * d;
    } else if (h < 4.0F) {
        g = min - (h - 4.0F) * d;
        b = max;
    } else {
        r = min + (h - 4.0F) * d;
        b = max;
    }
    return {byteOf(r), byteOf(g), byteOf(b)};
}

Hls hlsOf(Couleur colour) {
    const Composantes parts = SeparerCouleur(colour);
    return RGBversHLS(parts.red, parts.green, parts.blue);
}

Couleur couleurFromHls(const Hls& hls) {
    const Composantes parts = HLSversRGB(hls.H, hls.S, hls.L);
    return couleurFromRgb(parts.red, parts.green, parts.blue);
}

HlsFields fieldsFromHls(const Hls& hls) {
    return {fieldOf(hls.H), fieldOf(hls.S), fieldOf(hls.L)};
}

Hls hlsFromFields(const HlsFields& fields) {
    const auto part = [](int field) {
        return static_cast<float>(field) / static_cast<float>(kHlsFieldMax);
    };
    return {part(fields.hue), part(fields.lum), part(fields.sat)};
}

}  // namespace quillmark
