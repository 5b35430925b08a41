#include "support/colour_checks.h"

#include <sstream>

namespace quillmark::testing {
namespace {

// Colour; red, green, blue and hue, saturation, lightness shown; indices of the levels; nearest;
// marked swatch; colour and red, green, blue when this hue, saturation and lightness are typed.
constexpr const char* kRows = R"(
#000000  0 0 0     0 0 0        0 0 0  #000000  261  #000000  0 0 0
#FFFFFF  31 63 31  0 0 240      3 4 6  #FFFFFF  267  #FFFFFF  31 63 31
#7B3041  14 11 7   230 105 80   1 0 1  #7B3041  267  #7A3042  15 12 8
#7C3041  15 11 7   231 106 80   2 0 1  #7B3041  268  #7B2F40  15 11 8
#101010  1 3 1     0 0 15       0 0 0  #101010    0  #101010  2 4 2
#111111  2 4 2     0 0 16       0 0 0  #101010    0  #111111  2 4 2
#808080  15 31 15  0 0 120      2 2 3  #838383    0  #808080  16 32 16
#FF0000  31 0 0    0 240 120    3 0 0  #FF0000  262  #FF0000  31 0 0
#00FF00  0 63 0    80 240 120   0 4 0  #00FF00  264  #00FF00  0 63 0
#0000FF  0 0 31    160 240 120  0 0 6  #0000FF  265  #0000FF  0 0 31
#FFFF00  31 63 0   40 240 120   3 4 0  #FFFF00  263  #FFFF00  31 63 0
#00FFFF  0 63 31   120 240 120  0 4 6  #00FFFF  268  #00FFFF  0 63 31
#FF00FF  31 0 31   200 240 120  3 0 6  #FF00FF  266  #FF00FF  31 0 31
#9C0000  18 0 0    0 240 73     2 0 0  #7B0000  261  #9B0000  19 0 0
#000010  0 0 1     160 240 7    0 0 0  #000000  261  #00000F  0 0 1
#000011  0 0 2     160 240 8    0 0 0  #000020  265  #000011  0 0 2
#FF8000  31 31 0   20 240 120   3 2 0  #FF9500  263  #FF8000  31 32 0
#102030  1 7 5     140 119 30   0 0 1  #202020    0  #102030  2 8 6
#A0B0C0  19 43 23  140 48 165   2 3 5  #B4B4B4    0  #9FAFBF  19 43 23
#335577  6 21 14   140 95 80    0 1 3  #39656A  263  #335577  6 21 14
#3A6EA5  7 27 20   140 115 104  1 2 4  #3965B4  265  #3A6EA3  7 27 20
#EFAA2F  29 42 5   25 205 134   3 3 1  #FF9520  262  #EFA62E  29 41 5
#469646  8 37 8    80 87 103    1 3 2  #399541  261  #469546  8 37 8
)";

std::vector<ColourRow> readRows() {
    std::istringstream text(kRows);
    const auto readThree = [&text](auto& values) { text >> values[0] >> values[1] >> values[2]; };
    std::vector<ColourRow> rows;
    ColourRow row;
    while (text >> row.colour) {
        readThree(row.rgbFields);
        readThree(row.hslFields);
        readThree(row.indices);
        text >> row.nearest >> row.marked >> row.typedBack;
        readThree(row.typedFields);
        rows.push_back(row);
    }
    return rows;
}

}  // namespace

const std::vector<ColourRow>& colourRows() {
    static const std::vector<ColourRow> rows = readRows();
    return rows;
}

Crc32::Crc32() {
    for (std::uint32_t i = 0; i < table_.size(); ++i) {
        std::uint32_t entry = i;
        for (int bit = 0; bit < 8; ++bit) {
            entry = (entry & 1U) != 0 ? 0xEDB88320U ^ entry >> 1 : entry >> 1;
        }
        table_[i] = entry;
    }
}

}  // namespace quillmark::testing
