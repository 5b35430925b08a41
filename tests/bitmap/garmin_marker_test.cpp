#include "bitmap/garmin_marker.h"

#include <gtest/gtest.h>

#include "bitmap/layers.h"
#include "bitmap/poi_coding.h"
#include "bitmap/tint.h"
#include "support/colour_checks.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

using testing::hex;
using testing::rgb;

struct Row {
    std::string what;
    int NbCouleurs;
    int ColorMode;
    std::string Couleurs;  // as in a file
    std::string Bitmap;    // four pixels in a row
    bool allGarmin;
    int newCount;
    std::string newColours;
    std::string newBitmap;
};

const std::vector<Row>& rows() {
    static const std::vector<Row> all{
        // White, #7C3041, unused green, #7B3041: the second and the last become one, in front.
        {"merged, unused left out", 4, 0x00, "FF FF FF 41 30 7C 00 FF 00 41 30 7B", "10 03", false,
         2, "41 30 7B FF FF FF", "41"},
        {"transparent stays", 2, 0x10, "FF FF FF 11 11 11", "18", false, 2, "10 10 10 FF FF FF",
         "49"},
        {"only transparent pixels keep the palette", 2, 0x10, "FF FF FF 11 11 11", "AA", false, 2,
         "10 10 10 FF FF FF", "AA"},
        // The same colour with alphas 3 and 0, three times, with items of 28 bits.
        {"alphas stay apart", 3, 0x20, "11 11 11 13 11 11 01 10 10 10 00", "18", false, 2,
         "10 10 10 00 01 01 31", "41"},
        // Values 15 and 7 of 4 bits stand for no colour; in 2 bits only 3 does.
        {"values without a colour", 4, 0x00, "11 11 11 00 00 00 00 00 00 00 00 00", "F0 71", false,
         2, "00 00 00 10 10 10", "CD"},
        {"all of the palette", 2, 0x00, "00 00 00 FF FF FF", "05", true, 2, "00 00 00 FF FF FF",
         "05"},
        // White, unused black, blue, white again.
        {"sorted and freed of repeats", 4, 0x00, "FF FF FF 00 00 00 FF 00 00 FF FF FF", "20 03",
         true, 2, "FF 00 00 FF FF FF", "51"},
        {"true colours", 0, 0x00, "", "11 11 11 FF FF FF 41 30 7C 00 00 00", false, 0, "",
         "10 10 10 FF FF FF 41 30 7B 00 00 00"},
        // The third pixel would take the colour that stands for transparent.
        {"transparent colour moves away", 0, 0x10, "",
         "10 10 10 10 10 10 FF FF FF 11 11 11 10 10 10", false, 0, "",
         "10 10 11 10 10 11 FF FF FF 10 10 10 10 10 11"}};
    return all;
}

TEST(GarminMarker, TellsAndReplacesColoursOfAnyPicture) {
    testing::ScriptedDialogues dialogues;
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.what);
        ImagePOI picture;
        picture.NbCouleurs = static_cast<std::uint8_t>(row.NbCouleurs);
        picture.ColorMode = static_cast<std::uint8_t>(row.ColorMode);
        picture.Couleurs = hex(row.Couleurs);
        picture.Bitmap = hex(row.Bitmap);
        PoiWorkingForm form;
        chargement_bitmap(form, picture, 4, 1, Traduction());
        EXPECT_EQ(toutesGarmin(form), row.allGarmin);
        lblIsGarmin_Click(form, Traduction());
        EXPECT_TRUE(toutesGarmin(form));
        EXPECT_FALSE(form.lblpalette[static_cast<std::size_t>(row.newCount)].filled);
        bool erreur = false;
        ecriture_bitmap(form, picture, erreur, dialogues, Traduction());
        EXPECT_FALSE(erreur);
        EXPECT_EQ(picture.NbCouleurs, row.newCount);
        EXPECT_EQ(picture.Couleurs, hex(row.newColours));
        EXPECT_EQ(picture.Bitmap, hex(row.newBitmap));
    }
}

TEST(GarminMarker, Tips) {
    EXPECT_EQ(lblIsGarminTip(true, Traduction()),
              "Toutes les couleurs du bitmap appartiennent à la palette de couleurs des séries "
              "eTrex et 60 ");
    EXPECT_EQ(lblIsGarminTip(false, Traduction()),
              "Au moins une couleur du bitmap n'appartient pas à la palette de couleurs des séries "
              "eTrex et 60 .\n\nCliquer pour les remplacer toutes.");
}

TEST(Tint, ChannelsMoveByTheirSliders) {
    for (const auto& [value, slider, expected] : std::vector<std::array<int, 3>>{{100, 0, 0},
                                                                                 {100, 64, 50},
                                                                                 {100, 127, 100},
                                                                                 {100, 128, 101},
                                                                                 {100, 191, 178},
                                                                                 {100, 255, 255},
                                                                                 {0, 191, 128},
                                                                                 {255, 64, 129},
                                                                                 {100, 900, 255},
                                                                                 {100, -1, 0}}) {
        EXPECT_EQ(teinterOctet(static_cast<std::uint8_t>(value), slider), expected)
            << value << ", " << slider;
    }
    Image picture(3, 1, rgb("#646464"));
    picture.setPixel(1, 0, kTransparent);
    picture.setPixel(2, 0, seenThrough(rgb("#646464"), 85));
    const Image tinted = teinter(picture, 0, 128, 255);
    EXPECT_EQ(tinted.pixel(0, 0), rgb("#0065FF"));
    EXPECT_EQ(tinted.pixel(1, 0), kTransparent);
    EXPECT_EQ(tinted.pixel(2, 0), seenThrough(rgb("#0065FF"), 85));
}

}  // namespace
}  // namespace quillmark
