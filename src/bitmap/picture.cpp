#include "bitmap/picture.h"

#include <array>
#include <string_view>

#include "bitmap/layers.h"

namespace quillmark {

Image faultMark() {
    constexpr std::array<std::string_view, 9> kRows{
        "....#....", "...###...", "...#!#...", "..##!##..", "..##!##..",
        ".###!###.", ".#######.", "####!####", "#########",
    };
    Image mark(static_cast<int>(kRows[0].size()), static_cast<int>(kRows.size()), kTransparent);
    for (int y = 0; y < mark.height(); ++y) {
        for (int x = 0; x < mark.width(); ++x) {
            const char sign = kRows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
            if (sign != '.') {
                mark.setPixel(x, y,
                              sign == '#' ? couleurFromRgb(0xE0, 0x6C, 0x00)
                                          : couleurFromRgb(0xFF, 0xFF, 0xFF));
            }
        }
    }
    return mark;
}

}  // namespace quillmark
