#include "bitmap/poi_coding.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

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
    const auto expected = [](const std::array<int, 3>& last, int count) {
        return count <= last[0] ? 1 : count <= last[1] ? 2 : count <= last[2] ? 4 : 8;
    };
    for (int count = 0; count < 256; ++count) {
        EXPECT_EQ(NbBitsParPixel(0x00, count), expected({1, 3, 15}, count)) << count;
        EXPECT_EQ(NbBitsParPixel(0x20, count), expected({1, 3, 15}, count)) << count;
        EXPECT_EQ(NbBitsParPixel(0x10, count), expected({0, 2, 14}, count)) << count;
    }
    for (const int unknown : {-1, 1, 0x0F, 0x11, 0x30, 0xFF}) {
        EXPECT_EQ(NbBitsParPixel(unknown, 4), std::nullopt);
        EXPECT_EQ(TaillePalette(4, unknown), std::nullopt);
    }
}

TEST(PoiCoding, SizesInBytes) {
    struct Case {
        std::uint8_t NbCouleurs, ColorMode;
        int width, height;
        std::size_t palette, bitmap;
        std::int16_t Retente = 0;
    };
    const Case cases[] = {
        {3, 0x00, 5, 2, 9, 4},     {1, 0x20, 1, 1, 4, 1},
        {2, 0x20, 9, 3, 7, 9},     {255, 0x20, 255, 255, 893, 65025},
        {16, 0x10, 1, 7, 48, 7},   {0, 0x00, 255, 255, 0, 195075},
        {0, 0x10, 2, 1, 0, 9},     {0, 0x20, 1, 1, 0, 4},
        {0, 0x20, 3, 1, 0, 11},    {0, 0x20, 3, 3, 0, 32},
        {0, 0x10, 9, 2, 0, 4, -1}, {0, 0x00, 0, 5, 0, 0},
    };
    for (const Case& c : cases) {
        ImagePOI image;
        image.NbCouleurs = c.NbCouleurs;
        image.ColorMode = c.ColorMode;
        image.Retente = c.Retente;
        EXPECT_EQ(TaillePalette(c.NbCouleurs, c.ColorMode), c.palette) << int{c.NbCouleurs};
        EXPECT_EQ(TailleBitmap(image, c.width, c.height), c.bitmap) << int{c.NbCouleurs};
    }
}

// A picture, the working form it decodes to, and the bytes that form is encoded to.
struct WorkedExample {
    const char* name;
    int ColorMode, width, height;
    std::size_t NbCouleurs;
    const char* colours;  // #RRGGBB, alpha in front; of the pixels where there is no palette
    std::string indices;  // one a pixel, a dot for a transparent one
    const char* palette;
    const char* pixels;
};

const WorkedExample kWorkedExamples[] = {
    {"two bits, opaque", 0x00, 5, 2, 3, "FF0000 00FF00 0000FF", "0120122110",
     "00 00 FF 00 FF 00 FF 00 00", "24 01 5A 00"},
    {"one transparent", 0x10, 3, 1, 2, "000000 FFFFFF", "0.1", "00 00 00 FF FF FF", "18"},
    {"one bit", 0x00, 10, 1, 1, "000000", "1011001011", "00 00 00", "4D 03"},
    {"four bits", 0x00, 5, 1, 5, "1 2 3 4 5", "01234",
     "01 00 00 02 00 00 03 00 00 04 00 00 05 00 00", "10 32 04"},
    {"two with alpha", 0x20, 1, 1, 2, "5112233 F445566", "0", "33 22 11 65 56 45 F4", "00"},
    {"three with alpha", 0x20, 1, 1, 3, "5112233 F445566 0ABCDEF", "1",
     "33 22 11 65 56 45 F4 EF CD AB 00", "01"},
    {"true colours", 0x00, 2, 1, 0, "102030 405060", "00", "", "30 20 10 60 50 40"},
    {"true colours, one transparent", 0x10, 2, 1, 0, "000000 102030", ".0", "",
     "FF 00 FF FF 00 FF 30 20 10"},
    {"true colours with alpha", 0x20, 2, 1, 0, "0102030 F405060", "00", "", "30 20 10 00 06 05 F4"},
};

TEST(PoiCoding, WorkedExamplesGoBothWays) {
    for (const WorkedExample& example : kWorkedExamples) {
        SCOPED_TRACE(example.name);
        ImagePOI image;
        image.NbCouleurs = static_cast<std::uint8_t>(example.NbCouleurs);
        image.ColorMode = static_cast<std::uint8_t>(example.ColorMode);
        image.Couleurs = hex(example.palette);
        image.Bitmap = hex(example.pixels);

        std::vector<std::uint32_t> colours;
        std::istringstream stream(example.colours);
        for (std::uint32_t colour = 0; stream >> std::hex >> colour;) {
            colours.push_back(colour);
        }
        PoiWorkingForm form;
        chargement_bitmap(form, image, example.width, example.height, Traduction());
        for (std::size_t i = 0; i < example.NbCouleurs; ++i) {
            EXPECT_EQ(form.lblpalette[i].colour, rgb(colours.at(i) & 0xFFFFFF));
            if (example.ColorMode == 0x20) {
                EXPECT_EQ(form.AlphaPalette.at(i), colours.at(i) >> 24U);
            }
        }
        EXPECT_FALSE(form.lblpalette[example.NbCouleurs].visible);
        const bool keyed = example.NbCouleurs == 0 && example.ColorMode == 0x10;
        EXPECT_EQ(form.CouleurTransparente, keyed ? couleurFromRgb(255, 0, 255) : -1);
        for (std::size_t i = 0; i < example.indices.size(); ++i) {
            const int x = static_cast<int>(i) % example.width;
            const int y = static_cast<int>(i) / example.width;
            const bool clear = example.indices[i] == '.';
            const int index = clear ? kTransparentPixel : example.indices[i] - '0';
            if (!(example.NbCouleurs == 1 && index == 1)) {  // the count itself: transparent
                EXPECT_EQ(form.Pixels(x, y), index) << i;
            }
            if (clear) {
                EXPECT_EQ(form.image.pixel(x, y), form.background);
            } else if (example.NbCouleurs == 0) {
                EXPECT_EQ(form.image.pixel(x, y), rgb(colours.at(i) & 0xFFFFFF));
                EXPECT_EQ(form.AlphaPixels(x, y), colours.at(i) >> 24U);
            }
            form.Pixels(x, y) = static_cast<std::uint8_t>(index);
        }
        EXPECT_EQ(encode(form), image);
    }
}

// Pictures of random pixels, each value of which lies bit by bit where it belongs.
void expectRoundTrip(int ColorMode, int count, int width) {
    SCOPED_TRACE(::testing::Message() << ColorMode << ' ' << count << ' ' << width);
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
    const auto bits = static_cast<std::size_t>(*NbBitsParPixel(ColorMode, count));
    const std::size_t rowBytes = (static_cast<std::size_t>(width) * bits + 7) / 8;
    Bytes packed(rowBytes * height);
    for (int i = 0; i < width * height; ++i) {
        const int x = i % width;
        const int y = i / width;
        const std::uint8_t value =
            count == 0 ? std::uint8_t{0} : byte(static_cast<unsigned>(count) + transparent);
        const bool clear = transparent && (count == 0 ? byte(3) == 0 : value == count);
        form.Pixels(x, y) = clear ? kTransparentPixel : value;
        form.image.setPixel(x, y,
                            clear        ? form.background
                            : count == 0 ? rgb(random() & 0xFFFFFFU)
                                         : form.lblpalette[value].colour);
        form.AlphaPixels(x, y) = ColorMode == 0x20 && count == 0 ? byte(16) : 0;
        for (std::size_t bit = 0; bit < bits; ++bit) {
            const std::size_t place = static_cast<std::size_t>(x) * bits + bit;
            packed[static_cast<std::size_t>(y) * rowBytes + place / 8] |=
                static_cast<std::uint8_t>((value >> bit & 1) << place % 8);
        }
    }
    const ImagePOI image = encode(form);
    if (count > 0) {
        EXPECT_EQ(image.Bitmap, packed);
    }

    PoiWorkingForm decoded;
    chargement_bitmap(decoded, image, width, height, Traduction());
    EXPECT_EQ(decoded.image, form.image);
    for (int i = 0; i < width * height; ++i) {
        EXPECT_EQ(decoded.Pixels(i % width, i / width), form.Pixels(i % width, i / width)) << i;
    }
    EXPECT_EQ(encode(decoded), image);
}

TEST(PoiCoding, PicturesOfAllDepthsAndWidthsComeBackPixelForPixel) {
    for (const int ColorMode : {0x00, 0x10, 0x20}) {
        for (const int count : {0, 1, 2, 3, 14, 15, 16, 254}) {
            for (const int width : {1, 4, 7, 8, 9, 15, 16, 17, 31, 32, 33}) {
                expectRoundTrip(ColorMode, count, width);
            }
        }
    }
}

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
