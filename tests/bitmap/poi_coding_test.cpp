#include "bitmap/poi_coding.h"

#include <gtest/gtest.h>

#include <random>

#include "bitmap/poi_editing.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using testing::hex;
using testing::ScriptedDialogues;

Couleur rgb(std::uint32_t rrggbb) {
    return EchangeRB(static_cast<Couleur>(rrggbb));
}

ImagePOI encode(const PoiWorkingForm& form) {
    ScriptedDialogues dialogues;
    ImagePOI image;
    bool erreur = true;
    ecriture_bitmap(form, image, erreur, dialogues, Traduction());
    EXPECT_FALSE(erreur);
    return image;
}

TEST(PoiCoding, BitsPerPixelFollowTheTableForEveryCount) {
    struct Range {
        int last;  // of the counts that take so many bits
        int bits;
    };
    const auto expected = [](const std::vector<Range>& ranges, int count) {
        for (const Range& range : ranges) {
            if (count <= range.last) {
                return range.bits;
            }
        }
        return 8;
    };
    for (int count = 0; count < 256; ++count) {
        const int opaque = expected({{1, 1}, {3, 2}, {15, 4}}, count);
        EXPECT_EQ(NbBitsParPixel(0x00, count), opaque) << count;
        EXPECT_EQ(NbBitsParPixel(0x20, count), opaque) << count;
        EXPECT_EQ(NbBitsParPixel(0x10, count), expected({{0, 1}, {2, 2}, {14, 4}}, count)) << count;
    }
    for (const int unknown : {-1, 1, 0x0F, 0x11, 0x30, 0xFF}) {
        EXPECT_EQ(NbBitsParPixel(unknown, 4), std::nullopt);
        EXPECT_EQ(TaillePalette(4, unknown), std::nullopt);
    }
}

TEST(PoiCoding, SizesInBytes) {
    struct Case {
        int NbCouleurs;
        int ColorMode;
        std::int16_t Retente;
        int width;
        int height;
        std::optional<std::size_t> palette;
        std::optional<std::size_t> bitmap;
    };
    for (const Case& c : std::vector<Case>{
             {3, 0x00, 0, 5, 2, 9, 4},
             {1, 0x20, 0, 1, 1, 4, 1},
             {2, 0x20, 0, 9, 3, 7, 9},
             {3, 0x20, 0, 8, 1, 11, 2},
             {255, 0x20, 0, 255, 255, 893, 65025},
             {16, 0x10, 0, 1, 7, 48, 7},
             {0, 0x00, 0, 255, 255, 0, 195075},
             {0, 0x10, 0, 2, 1, 0, 9},
             {0, 0x20, 0, 1, 1, 0, 4},
             {0, 0x20, 0, 3, 1, 0, 11},
             {0, 0x20, 0, 3, 3, 0, 32},
             {0, 0x10, -1, 9, 2, 0, 4},
             {0, 0x00, 0, 0, 5, 0, 0},
             {0, 0x30, 0, 2, 2, std::nullopt, std::nullopt},
             {5, 0x01, 0, 2, 2, std::nullopt, std::nullopt},
         }) {
        ImagePOI image;
        image.NbCouleurs = static_cast<std::uint8_t>(c.NbCouleurs);
        image.ColorMode = static_cast<std::uint8_t>(c.ColorMode);
        image.Retente = c.Retente;
        EXPECT_EQ(TaillePalette(c.NbCouleurs, c.ColorMode), c.palette) << c.NbCouleurs;
        EXPECT_EQ(TailleBitmap(image, c.width, c.height), c.bitmap) << c.NbCouleurs;
    }
}

// A picture, the working form it decodes to, and the bytes that form is encoded to.
struct WorkedExample {
    const char* name;
    int ColorMode;
    int width;
    int height;
    std::vector<std::uint32_t> palette;  // #RRGGBB, alpha in the top byte
    std::vector<int> pixels;             // indices, 255 transparent
    std::vector<std::uint32_t> colours;  // of true colours, alpha in the top byte
    std::string paletteBytes;
    std::string pixelBytes;
    Couleur CouleurTransparente = -1;
};

const std::vector<WorkedExample>& workedExamples() {
    static const std::vector<WorkedExample> examples{
        {"two bits, opaque",
         0x00,
         5,
         2,
         {0xFF0000, 0x00FF00, 0x0000FF},
         {0, 1, 2, 0, 1, 2, 2, 1, 1, 0},
         {},
         "00 00 FF 00 FF 00 FF 00 00",
         "24 01 5A 00"},
        {"two bits, transparent in the middle",
         0x10,
         3,
         1,
         {0, 0xFFFFFF},
         {0, 255, 1},
         {},
         "00 00 00 FF FF FF",
         "18"},
        {"one bit", 0x00, 10, 1, {0}, {1, 0, 1, 1, 0, 0, 1, 0, 1, 1}, {}, "00 00 00", "4D 03"},
        {"four bits",
         0x00,
         5,
         1,
         {1, 2, 3, 4, 5},
         {0, 1, 2, 3, 4},
         {},
         "01 00 00 02 00 00 03 00 00 04 00 00 05 00 00",
         "10 32 04"},
        {"two colours with alpha",
         0x20,
         1,
         1,
         {0x05112233, 0x0F445566},
         {0},
         {},
         "33 22 11 65 56 45 F4",
         "00"},
        {"three colours with alpha",
         0x20,
         1,
         1,
         {0x05112233, 0x0F445566, 0x00ABCDEF},
         {1},
         {},
         "33 22 11 65 56 45 F4 EF CD AB 00",
         "01"},
        {"true colours", 0x00, 2, 1, {}, {0, 0}, {0x102030, 0x405060}, "", "30 20 10 60 50 40"},
        {"true colours, one transparent",
         0x10,
         2,
         1,
         {},
         {255, 0},
         {0, 0x102030},
         "",
         "FF 00 FF FF 00 FF 30 20 10",
         couleurFromRgb(255, 0, 255)},
        {"true colours with alpha",
         0x20,
         2,
         1,
         {},
         {0, 0},
         {0x00102030, 0x0F405060},
         "",
         "30 20 10 00 06 05 F4"},
    };
    return examples;
}

TEST(PoiCoding, WorkedExamplesGoBothWays) {
    for (const WorkedExample& example : workedExamples()) {
        SCOPED_TRACE(example.name);
        ImagePOI image;
        image.NbCouleurs = static_cast<std::uint8_t>(example.palette.size());
        image.ColorMode = static_cast<std::uint8_t>(example.ColorMode);
        image.Couleurs = hex(example.paletteBytes);
        image.Bitmap = hex(example.pixelBytes);

        PoiWorkingForm form;
        chargement_bitmap(form, image, example.width, example.height, Traduction());
        for (std::size_t i = 0; i < example.palette.size(); ++i) {
            EXPECT_EQ(form.lblpalette[i].colour, rgb(example.palette[i] & 0xFFFFFF));
            EXPECT_TRUE(form.lblpalette[i].filled);
            if (example.ColorMode == 0x20) {
                EXPECT_EQ(form.AlphaPalette.at(i), example.palette[i] >> 24U);
            }
        }
        EXPECT_FALSE(form.lblpalette[example.palette.size()].visible);
        EXPECT_EQ(form.CouleurTransparente, example.CouleurTransparente);
        for (std::size_t i = 0; i < example.pixels.size(); ++i) {
            const int x = static_cast<int>(i) % example.width;
            const int y = static_cast<int>(i) / example.width;
            const int index = example.pixels[i];
            if (!(example.palette.size() == 1 && index == 1)) {  // the count itself: transparent
                EXPECT_EQ(form.Pixels(x, y), index) << i;
            }
            if (index == 255) {
                EXPECT_EQ(form.image.pixel(x, y), form.background);
            } else if (!example.colours.empty()) {
                EXPECT_EQ(form.image.pixel(x, y), rgb(example.colours[i] & 0xFFFFFF));
                EXPECT_EQ(form.AlphaPixels(x, y), example.colours[i] >> 24U);
            }
            form.Pixels(x, y) = static_cast<std::uint8_t>(index);
        }
        EXPECT_EQ(encode(form), image);
    }
}

// Pixels one bit after the other, as slow and plain as can be.
Bytes packedBitByBit(const std::vector<std::uint8_t>& values, int width, int height, int bits) {
    const auto rowBytes = static_cast<std::size_t>((width * bits + 7) / 8);
    Bytes bytes(rowBytes * static_cast<std::size_t>(height));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto x = i % static_cast<std::size_t>(width);
        const auto y = i / static_cast<std::size_t>(width);
        for (std::size_t bit = 0; bit < static_cast<std::size_t>(bits); ++bit) {
            if ((values[i] >> bit & 1) != 0) {
                const std::size_t place = x * static_cast<std::size_t>(bits) + bit;
                bytes[y * rowBytes + place / 8] |= static_cast<std::uint8_t>(1U << place % 8);
            }
        }
    }
    return bytes;
}

void expectRoundTrip(int ColorMode, int count, int width) {
    SCOPED_TRACE(width);
    const int height = 3;
    std::mt19937 random(static_cast<unsigned>(ColorMode * 10000 + count * 40 + width));
    const auto byte = [&random](unsigned below) {
        return static_cast<std::uint8_t>(random() % below);
    };

    PoiWorkingForm form;
    form.Largeur = width;
    form.Hauteur = height;
    form.NbCouleurs = count;
    form.ColorMode = ColorMode;
    ajuster_bitmap(form);
    const bool transparent = ColorMode == 0x10;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        form.lblpalette[i].colour = rgb(random() & 0xFFFFFFU);
        form.AlphaPalette.push_back(byte(16));
    }
    std::vector<std::uint8_t> values;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint8_t value =
                count == 0 ? std::uint8_t{0} : byte(static_cast<unsigned>(count) + transparent);
            values.push_back(value);
            const bool clear = transparent && (count == 0 ? byte(3) == 0 : value == count);
            form.Pixels(x, y) = clear ? kTransparentPixel : value;
            form.image.setPixel(x, y,
                                clear        ? form.background
                                : count == 0 ? rgb(random() & 0xFFFFFFU)
                                             : form.lblpalette[value].colour);
            form.AlphaPixels(x, y) = ColorMode == 0x20 && count == 0 ? byte(16) : 0;
        }
    }
    const ImagePOI image = encode(form);
    ASSERT_EQ(image.Bitmap.size(), TailleBitmap(image, width, height));
    if (count > 0) {
        EXPECT_EQ(image.Bitmap,
                  packedBitByBit(values, width, height, *NbBitsParPixel(ColorMode, count)));
    }

    PoiWorkingForm decoded;
    chargement_bitmap(decoded, image, width, height, Traduction());
    EXPECT_EQ(decoded.image, form.image);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            EXPECT_EQ(decoded.Pixels(x, y), form.Pixels(x, y)) << x << ' ' << y;
            EXPECT_EQ(decoded.AlphaPixels(x, y), form.AlphaPixels(x, y)) << x << ' ' << y;
        }
    }
    EXPECT_EQ(encode(decoded), image);
}

class AllDepths : public ::testing::TestWithParam<std::tuple<int, int>> {};

TEST_P(AllDepths, PicturesOfAllWidthsComeBackPixelForPixel) {
    const auto [ColorMode, count] = GetParam();
    for (const int width : {1, 4, 7, 8, 9, 15, 16, 17, 31, 32, 33}) {
        expectRoundTrip(ColorMode, count, width);
    }
}

INSTANTIATE_TEST_SUITE_P(PoiCoding, AllDepths,
                         ::testing::Combine(::testing::Values(0x00, 0x10, 0x20),
                                            ::testing::Values(0, 1, 2, 3, 14, 15, 16, 254)));

TEST(PoiCoding, MissingBytesCountAsZero) {
    std::vector<std::uint8_t> values(9, 0xEE);
    unpackRow(hex("FF"), 1, values);
    EXPECT_EQ(values, (std::vector<std::uint8_t>{1, 1, 1, 1, 1, 1, 1, 1, 0}));
    unpackRow({}, 8, values);
    EXPECT_EQ(values, std::vector<std::uint8_t>(9, 0));
    const Bytes stream = hex("33 22 11 65 56 45 F4");
    for (std::size_t length = 0; length <= stream.size(); ++length) {
        Bytes padded(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(length));
        padded.resize(32);
        for (const std::size_t index : {0U, 1U, 2U, 7U}) {
            EXPECT_EQ(readAlphaItem(ByteView(stream).first(length), index),
                      readAlphaItem(padded, index))
                << length << ' ' << index;
        }
    }
}

}  // namespace
}  // namespace quillmark
