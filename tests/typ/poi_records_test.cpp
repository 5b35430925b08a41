#include <gtest/gtest.h>

#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

TypBuilder onePoi(const Bytes& record) {
    return TypBuilder().data(kPoiData, record).index(kPoiIndex, 3, hex("E0 05 00"));
}

// The record as a save writes it: between header and one index entry of 3 bytes.
Bytes savedRecord(const Document& document) {
    const Bytes file = save(document);
    return {file.begin() + 91, file.end() - 3};
}

TEST(PoiRecords, PartsByModeSizeAndFlags) {
    struct Case {
        const char* what;
        const char* record;
        std::size_t dayPalette, dayBitmap, nightPalette, nightBitmap;
    };
    // 3 by 1 pixels throughout, except where there is no size.
    const Case cases[] = {
        {"opaque, 2 colours, 1 bit", "01 03 01 02 00 01 02 03 04 05 06 07", 6, 1, 0, 0},
        {"one transparent, 2 bits", "01 03 01 02 10 01 02 03 04 05 06 18", 6, 1, 0, 0},
        {"one colour and a transparent one", "01 03 01 01 10 01 02 03 14", 3, 1, 0, 0},
        {"alpha palette of 2", "01 03 01 02 20 33 22 11 65 56 45 F4 01", 7, 1, 0, 0},
        {"alpha palette of 1", "01 03 01 01 20 33 22 11 05 00", 4, 1, 0, 0},
        {"true colours", "01 03 01 00 00 01 02 03 04 05 06 07 08 09", 0, 9, 0, 0},
        {"true colours, one transparent", "01 03 01 00 10 FF 00 FF 01 02 03 04 05 06 07 08 09", 0,
         12, 0, 0},
        {"true colours with alpha", "01 03 01 00 20 30 20 10 00 06 05 F4 01 02 03 04", 0, 11, 0, 0},
        {"night with the day's pixels", "02 03 01 01 00 01 02 03 05 01 00 11 12 13", 3, 1, 3, 1},
        {"night with pixels of its own", "03 03 01 01 00 01 02 03 05 01 00 11 12 13 06", 3, 1, 3,
         1},
        {"a night without palette always has its own",
         "02 03 01 01 00 01 02 03 05 00 00 01 02 03 04 05 06 07 08 09", 3, 1, 0, 9},
        {"both blocks", "0D 03 01 01 00 01 02 03 05 07 41 42 00 02", 3, 1, 0, 0},
        {"no width: no palettes and no pixels", "07 00 01 02 00 03 10 03 41", 0, 0, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Bytes record = hex(c.record);
        const auto opened = open(onePoi(record).file());
        const POI& poi = opened.document.POI.at(0);
        EXPECT_EQ(poi.Image[0].Couleurs.size(), c.dayPalette);
        EXPECT_EQ(poi.Image[0].Bitmap.size(), c.dayBitmap);
        EXPECT_EQ(poi.Image[1].Couleurs.size(), c.nightPalette);
        EXPECT_EQ(poi.Image[1].Bitmap.size(), c.nightBitmap);
        if (poi.Image[1].NbCouleurs > 0 && (poi.Entete & 1U) == 0) {
            EXPECT_EQ(poi.Image[1].Bitmap, poi.Image[0].Bitmap);
        }
        EXPECT_EQ(poi.Longueur, static_cast<std::int32_t>(record.size()));
        EXPECT_EQ(opened.document.MaxDimensionPOI, std::max(poi.Largeur, poi.Hauteur));
        EXPECT_EQ(told(opened.journal), std::vector<std::string>{});
        EXPECT_EQ(savedRecord(opened.document), record);
    }
}

// A picture without palette whose record is as long as if it had one.
TEST(PoiRecords, PixelsWithoutPaletteMayBeCodedAsWithOne) {
    const std::string warning =
        "W POI 0x02f/00|    Attention: Le bitmap est invalide.|        Détails: le nombre de "
        "couleurs du bitmap est 0 (comme s'il s'agissait d'un bitmap TrueColor),|        mais il "
        "est codé comme un bitmap avec palette.|        Quillmark pourra malgré tout "
        "l'enregistrer sous cette forme, mais le POI sera très certainement inutilisable.|        "
        "Il vaut mieux l'enregistrer en ajoutant une couleur dans la palette.";
    // Twelve more bytes than the first reading needs lie behind, so that it doesn't fail.
    const Bytes record = hex("05 09 02 00 00 01 02 03 04 05 41 00");
    const auto followed = open(onePoi(record).append(Bytes(90)).file());
    EXPECT_EQ(followed.document.POI.at(0).Image[0].Retente, -1);
    EXPECT_EQ(followed.document.POI[0].Image[0].Bitmap, hex("01 02 03 04"));
    EXPECT_EQ(followed.document.POI[0].Strings, hex("05 41 00"));
    EXPECT_EQ(told(followed.journal), std::vector<std::string>{warning});
    EXPECT_EQ(savedRecord(followed.document), record);

    const auto last = open(onePoi(record).file());
    EXPECT_EQ(last.document.POI, followed.document.POI);
    EXPECT_EQ(told(last.journal), std::vector<std::string>{})
        << "a failure that the second reading mends isn't told";
}

TEST(PoiRecords, LengthsThatFitNoReading) {
    const std::string length = "|    Attention: Longueur inattendue";
    const std::string night =
        "|    Attention: .Le bitmap de nuit n'a pas de palette (0 couleur) et semble corrompu.";
    struct Case {
        const char* what;
        const char* record;
        const char* kept;
        std::string told;
    };
    const Case cases[] = {
        {"surplus behind a palette picture", "01 03 01 01 00 01 02 03 05 AA BB",
         "01 03 01 01 00 01 02 03 05", length},
        {"surplus behind true colours: the pixels stay", "01 01 01 00 00 01 02 03 AA",
         "01 01 01 00 00 01 02 03", length},
        {"the night picture is suspected, twice", "03 01 01 01 00 01 02 03 05 00 00 01 02 03 AA",
         "03 01 01 01 00 01 02 03 05 00 00 01 02 03", length + night + night},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto opened = open(onePoi(hex(c.record)).file());
        EXPECT_EQ(told(opened.journal), std::vector<std::string>{"W POI 0x02f/00" + c.told});
        EXPECT_EQ(savedRecord(opened.document), hex(c.kept));
    }
}

TEST(PoiRecords, AnUnknownColourModeLosesNothing) {
    struct Case {
        const char* what;
        const char* record;
        int errors;
    };
    const Case cases[] = {
        {"with palette", "07 03 01 02 30 01 02 03 04 05 06 07 08 09", 1},
        {"nothing behind the mode", "07 03 01 02 30", 1},
        {"at night", "03 01 01 01 00 01 02 03 05 02 07 01 02 03 04", 1},
        {"without palette there may be no pixels", "05 03 01 00 30 03 41", 0},
        {"or something else", "01 03 01 00 30 01 02 03 04 05", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Bytes record = hex(c.record);
        const auto opened = open(onePoi(record).file());
        EXPECT_EQ(opened.journal.errorCount(), c.errors);
        EXPECT_EQ(opened.journal.warningCount(), 0);
        EXPECT_EQ(savedRecord(opened.document), record);
        const Bytes once = save(opened.document);
        EXPECT_EQ(save(open(once).document), once);
    }
}

}  // namespace
}  // namespace quillmark
