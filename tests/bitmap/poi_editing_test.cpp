#include "bitmap/poi_editing.h"

#include <gtest/gtest.h>

#include "bitmap/poi_coding.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using testing::hex;

ImagePOI picture(int NbCouleurs, int ColorMode, const Bytes& bitmap) {
    ImagePOI image;
    image.NbCouleurs = static_cast<std::uint8_t>(NbCouleurs);
    image.ColorMode = static_cast<std::uint8_t>(ColorMode);
    image.Couleurs.resize(TaillePalette(NbCouleurs, ColorMode).value_or(0));
    image.Bitmap = bitmap;
    return image;
}

class PoiEditing : public ::testing::Test {
  protected:
    void load(const ImagePOI& image, int width, int height) {
        chargement_bitmap(form, image, width, height, Traduction());
    }
    // False when it was refused.
    bool store() {
        bool erreur = false;
        ecriture_bitmap(form, target, erreur, dialogues, Traduction());
        return !erreur;
    }
    testing::ScriptedDialogues dialogues;
    PoiWorkingForm form;
    ImagePOI target;
};

TEST_F(PoiEditing, TransparentPixelsAreRefusedWhereNoValueStandsForThem) {
    const std::vector<std::pair<int, std::string>> messages{
        {0x00,
         "Le bitmap ne peut pas être sauvegardé en colormode 00, car il contient des pixels "
         "transparents.\r\nVeuillez l'enregistrer en colormode 10 , ou bien supprimer les pixels "
         "transparents"},
        {0x20,
         "Le bitmap ne peut pas être sauvegardé en colormode 32, car il contient des pixels "
         "transparents.\r\nVeuillez affecter une couleur à ces pixels puis enregistrer le bitmap "
         "en colormode 32,\r\nen leur attribuant un canal alpha égal à 15 pour rendre cette "
         "couleur transparente."}};
    for (const auto& [ColorMode, message] : messages) {
        // The value that equals the count is a transparent pixel in all modes.
        load(picture(2, ColorMode, hex("18")), 3, 1);
        EXPECT_EQ(form.Pixels(1, 0), kTransparentPixel);
        const ImagePOI before = target;
        EXPECT_FALSE(store());
        EXPECT_EQ(target, before);
        EXPECT_EQ(dialogues.shown.back().message, message);
        form.Pixels(1, 0) = 1;
        EXPECT_TRUE(store());
        EXPECT_EQ(target.Bitmap, hex("14"));
    }
}

TEST_F(PoiEditing, TrueColoursTakeAKeyAndAreNeverRefused) {
    form.background = couleurFromRgb(1, 2, 3);
    load(picture(0, 0x10, hex("FF 00 FF FF 00 FF 30 20 10")), 2, 1);
    EXPECT_EQ(form.image.pixel(0, 0), form.background);
    form.CouleurTransparente = -1;
    for (const auto& [ColorMode, bitmap] : {std::pair{0x10, "03 02 01 03 02 01 30 20 10"},
                                            {0x00, "03 02 01 30 20 10"},
                                            {0x20, "03 02 01 00 03 02 01"}}) {
        form.ColorMode = ColorMode;
        EXPECT_TRUE(store());
        EXPECT_EQ(target.Bitmap, hex(bitmap)) << "what had no alpha stays opaque";
    }
}

TEST_F(PoiEditing, OddPicturesLoseNothing) {
    ImagePOI coded = picture(0, 0x10, hex("05 01"));
    coded.Retente = -1;  // no colours, yet coded with a palette
    load(coded, 4, 2);
    EXPECT_EQ(form.Pixels(0, 0), 1);
    EXPECT_EQ(form.Pixels(1, 0), kTransparentPixel);
    EXPECT_TRUE(store());
    EXPECT_EQ(target, coded);

    ImagePOI large = picture(200, 0x00, Bytes(255 * 130));
    for (std::size_t i = 0; i < large.Bitmap.size(); ++i) {
        large.Bitmap[i] = static_cast<std::uint8_t>(i * 13 % 200);
    }
    load(large, 255, 130);
    EXPECT_EQ(form.Zoom, 0);
    EXPECT_TRUE(store());
    EXPECT_EQ(target, large);

    for (const int count : {0, 3}) {
        EXPECT_THROW(load(picture(count, 0x30, hex("00")), 8, 8), Failure);
    }
    EXPECT_EQ(form.Largeur, 255) << "an unknown mode leaves the form alone";
}

TEST_F(PoiEditing, ShrinkingDropsPixelsAndGrowingBringsTransparentOnes) {
    load(picture(2, 0x00, hex("14 14")), 4, 2);
    EXPECT_EQ(form.Zoom, 10);
    form.Largeur = 1;
    ajuster_bitmap(form);
    EXPECT_EQ(form.image.width(), 1);
    form.Largeur = 150;
    form.Hauteur = 3;
    ajuster_bitmap(form);
    EXPECT_EQ(form.Pixels(0, 1), 0);
    for (const auto& [x, y] : {std::pair(1, 1), std::pair(149, 2), std::pair(0, 2)}) {
        EXPECT_EQ(form.Pixels(x, y), kTransparentPixel);
        EXPECT_EQ(form.image.pixel(x, y), form.background);
    }
    form.Zoom = 2;
    const Image view = dessine(form);
    EXPECT_EQ(view.width(), 450);
    EXPECT_EQ(view.pixel(2, 5), form.lblpalette[0].colour);
    EXPECT_EQ(view.pixel(3, 5), form.background);
}

TEST_F(PoiEditing, TipsTellColourOrAlpha) {
    ImagePOI image = picture(2, 0x20, hex("00"));
    image.Couleurs = hex("33 22 11 65 56 45 F4");
    load(image, 1, 1);
    EXPECT_EQ(form.lblpalette[0].tip, "canal alpha = 5   transparence: 33%");
    image.ColorMode = 0x00;
    load(image, 1, 1);
    EXPECT_EQ(form.lblpalette[0].tip, "#112233");
    EXPECT_TRUE(form.AlphaPalette.empty());
}

TEST(Image, CopiesStretchesAndDrawsWithinItsBounds) {
    const auto row = [](const Image& image, int y) {
        std::string values;
        for (int x = 0; x < image.width(); ++x) {
            values += std::to_string(image.pixel(x, y));
        }
        return values;
    };
    Image image(4, 2);
    image.drawOneBit(hex("05 02"), 1, {0, 0, 4, 2}, 7, 9);
    image.drawOneBit(hex("05 02"), 1, {3, 1, 100, 100}, 7, 9);
    EXPECT_EQ(row(image, 0) + row(image, 1), "97977979");

    Image shifted = image;
    shifted.copy(shifted, {0, 0, 3, 2}, 1, 0);
    EXPECT_EQ(row(shifted, 0), "9979");
    Image kept = image;
    kept.copy(image, {-5, -5, 5, 5}, 0, 0);
    kept.copy(image, {0, 0, 4, 2}, 4, 0);
    EXPECT_EQ(kept, image);

    Image large(8, 4, 1);
    large.stretch(image, {0, 0, 4, 2}, {-1, 0, 8, 4});
    EXPECT_EQ(row(large, 1) + row(large, 3), "9779977179977991");
    Image half(2, 1);
    half.stretch(large, {0, 0, 8, 4}, {0, 0, 2, 1});
    EXPECT_EQ(half.pixel(1, 0), large.pixel(4, 0));
}

}  // namespace
}  // namespace quillmark
