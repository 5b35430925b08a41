#include "bitmap/poi_editing.h"

#include <gtest/gtest.h>

#include "bitmap/poi_coding.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using testing::hex;
using testing::ScriptedDialogues;

ImagePOI picture(int NbCouleurs, int ColorMode, const char* bitmap) {
    ImagePOI image;
    image.NbCouleurs = static_cast<std::uint8_t>(NbCouleurs);
    image.ColorMode = static_cast<std::uint8_t>(ColorMode);
    image.Couleurs.resize(TaillePalette(NbCouleurs, ColorMode).value_or(0));
    image.Bitmap = hex(bitmap);
    return image;
}

TEST(PoiEditing, TransparentPixelsAreRefusedWhereNoValueStandsForThem) {
    const Traduction french;
    for (const int ColorMode : {0x00, 0x20}) {
        PoiWorkingForm form;
        // The value that equals the count is a transparent pixel in all modes.
        chargement_bitmap(form, picture(2, ColorMode, "18"), 3, 1, french);
        EXPECT_EQ(form.Pixels(1, 0), kTransparentPixel);
        ScriptedDialogues dialogues;
        ImagePOI target = picture(1, 0x10, "AA BB");
        const ImagePOI before = target;
        bool erreur = false;
        ecriture_bitmap(form, target, erreur, dialogues, french);
        EXPECT_TRUE(erreur);
        EXPECT_EQ(target, before);
        ASSERT_EQ(dialogues.shown.size(), 1U);
        EXPECT_EQ(dialogues.shown[0].titre, "");
        EXPECT_EQ(dialogues.shown[0].message,
                  ColorMode == 0
                      ? "Le bitmap ne peut pas être sauvegardé en colormode 00, car il contient "
                        "des pixels transparents.\r\nVeuillez l'enregistrer en colormode 10 , ou "
                        "bien supprimer les pixels transparents"
                      : "Le bitmap ne peut pas être sauvegardé en colormode 32, car il contient "
                        "des pixels transparents.\r\nVeuillez affecter une couleur à ces pixels "
                        "puis enregistrer le bitmap en colormode 32,\r\nen leur attribuant un "
                        "canal alpha égal à 15 pour rendre cette couleur transparente.");
        form.Pixels(1, 0) = 1;
        ecriture_bitmap(form, target, erreur, dialogues, french);
        EXPECT_FALSE(erreur);
        EXPECT_EQ(target.Bitmap, hex("14"));
    }
}

TEST(PoiEditing, TrueColoursTakeAKeyAndAreNeverRefused) {
    const Traduction french;
    ScriptedDialogues dialogues;
    PoiWorkingForm form;
    form.background = couleurFromRgb(1, 2, 3);
    chargement_bitmap(form, picture(0, 0x10, "FF 00 FF FF 00 FF 30 20 10"), 2, 1, french);
    EXPECT_EQ(form.image.pixel(0, 0), form.background);
    form.CouleurTransparente = -1;
    ImagePOI target;
    bool erreur = false;
    ecriture_bitmap(form, target, erreur, dialogues, french);
    EXPECT_EQ(target.Bitmap, hex("03 02 01 03 02 01 30 20 10"));
    form.ColorMode = 0x00;
    ecriture_bitmap(form, target, erreur, dialogues, french);
    EXPECT_FALSE(erreur);
    EXPECT_EQ(target.Bitmap, hex("03 02 01 30 20 10"));
    form.ColorMode = 0x20;
    ecriture_bitmap(form, target, erreur, dialogues, french);
    EXPECT_EQ(target.Bitmap, hex("03 02 01 00 03 02 01")) << "what had no alpha stays opaque";
}

TEST(PoiEditing, ZeroColoursCodedWithAPaletteStayCodedSo) {
    ScriptedDialogues dialogues;
    ImagePOI image = picture(0, 0x10, "05 01");
    image.Retente = -1;
    PoiWorkingForm form;
    chargement_bitmap(form, image, 4, 2, Traduction());
    EXPECT_EQ(form.Pixels(0, 0), 1);
    EXPECT_EQ(form.Pixels(1, 0), kTransparentPixel);
    ImagePOI target;
    bool erreur = false;
    ecriture_bitmap(form, target, erreur, dialogues, Traduction());
    EXPECT_EQ(target, image);
}

TEST(PoiEditing, PicturesLargerThanTheEditorLoseNothing) {
    ScriptedDialogues dialogues;
    ImagePOI image = picture(200, 0x00, "");
    image.Bitmap.resize(255 * 130);
    for (std::size_t i = 0; i < image.Bitmap.size(); ++i) {
        image.Bitmap[i] = static_cast<std::uint8_t>(i * 13 % 200);
    }
    PoiWorkingForm form;
    chargement_bitmap(form, image, 255, 130, Traduction());
    EXPECT_EQ(form.Zoom, 0);
    ImagePOI target;
    bool erreur = false;
    ecriture_bitmap(form, target, erreur, dialogues, Traduction());
    EXPECT_EQ(target, image);
}

TEST(PoiEditing, AnUnknownModeLeavesTheFormAlone) {
    PoiWorkingForm form;
    chargement_bitmap(form, picture(1, 0x00, "00"), 3, 1, Traduction());
    for (const int count : {0, 3}) {
        EXPECT_THROW(chargement_bitmap(form, picture(count, 0x30, "00"), 8, 8, Traduction()),
                     Failure);
    }
    EXPECT_EQ(form.Largeur, 3);
}

TEST(PoiEditing, ShrinkingDropsPixelsAndGrowingBringsTransparentOnes) {
    PoiWorkingForm form;
    chargement_bitmap(form, picture(2, 0x00, "14 14"), 4, 2, Traduction());
    EXPECT_EQ(form.Zoom, 10);
    EXPECT_EQ(form.Pixels(1, 1), 1);
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

TEST(PoiEditing, TipsTellColourOrAlpha) {
    PoiWorkingForm form;
    ImagePOI image = picture(2, 0x20, "00");
    image.Couleurs = hex("33 22 11 65 56 45 F4");
    chargement_bitmap(form, image, 1, 1, Traduction());
    EXPECT_EQ(form.lblpalette[0].tip, "canal alpha = 5   transparence: 33%");
    EXPECT_EQ(form.lblpalette[1].tip, "canal alpha = 15   transparence: 100%");
    image.ColorMode = 0x00;
    chargement_bitmap(form, image, 1, 1, Traduction());
    EXPECT_EQ(form.lblpalette[0].tip, "#112233");
    EXPECT_TRUE(form.AlphaPalette.empty());
}

TEST(Image, CopiesStretchesAndDrawsWithinItsBounds) {
    Image image(4, 2);
    const Bytes bits = hex("05 02");
    image.drawOneBit(bits, 1, {0, 0, 4, 2}, 7, 9);
    EXPECT_EQ(image.pixel(0, 0), 9);
    EXPECT_EQ(image.pixel(1, 0), 7);
    EXPECT_EQ(image.pixel(1, 1), 9);
    image.drawOneBit(bits, 1, {3, 1, 100, 100}, 7, 9);
    EXPECT_EQ(image.pixel(3, 1), 9);

    Image shifted = image;
    shifted.copy(shifted, {0, 0, 3, 2}, 1, 0);
    EXPECT_EQ(shifted.pixel(1, 0), 9);
    EXPECT_EQ(shifted.pixel(2, 0), 7);
    EXPECT_EQ(shifted.pixel(3, 0), 9);
    Image kept = image;
    kept.copy(image, {-5, -5, 5, 5}, 0, 0);
    kept.copy(image, {0, 0, 4, 2}, 4, 0);
    EXPECT_EQ(kept, image);

    Image large(8, 4, 1);
    large.stretch(image, {0, 0, 4, 2}, {-1, 0, 8, 4});
    EXPECT_EQ(large.pixel(0, 0), 9);
    EXPECT_EQ(large.pixel(1, 0), 7);
    EXPECT_EQ(large.pixel(2, 1), 7);
    EXPECT_EQ(large.pixel(7, 3), 1);
    Image half(2, 1);
    half.stretch(large, {0, 0, 8, 4}, {0, 0, 2, 1});
    EXPECT_EQ(half.pixel(1, 0), large.pixel(4, 0));
}

}  // namespace
}  // namespace quillmark
