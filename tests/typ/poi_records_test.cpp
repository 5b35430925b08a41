#include <gtest/gtest.h>

#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

TypBuilder onePoi(const Bytes& record) {
    return TypBuilder().data(kPoiData, record).index(kPoiIndex, 3, hex("E0 05 00"));
}

TEST(PoiRecords, PartsByModeSizeAndFlags) {
    struct Case {
        const char* what;
        const char* record;
        std::array<std::size_t, 4> sizes;  // palette and pixels by day, then at night
    };
    // 3 by 1 pixels throughout, except where there is no size.
    const Case cases[] = {
        {"opaque, 2 colours, 1 bit", "01 03 01 02 00 01 02 03 04 05 06 07", {6, 1}},
        {"one transparent, 2 bits", "01 03 01 02 10 01 02 03 04 05 06 18", {6, 1}},
        {"one colour and a transparent one", "01 03 01 01 10 01 02 03 14", {3, 1}},
        {"alpha palette of 2", "01 03 01 02 20 33 22 11 65 56 45 F4 01", {7, 1}},
        {"alpha palette of 1", "01 03 01 01 20 33 22 11 05 00", {4, 1}},
        {"true colours", "01 03 01 00 00 01 02 03 04 05 06 07 08 09", {0, 9}},
        {"with a transparent one", "01 03 01 00 10 FF 00 FF 01 02 03 04 05 06 07 08 09", {0, 12}},
        {"with alpha", "01 03 01 00 20 30 20 10 00 06 05 F4 01 02 03 04", {0, 11}},
        {"the day's pixels", "02 03 01 01 00 01 02 03 05 01 00 11 12 13", {3, 1, 3, 1}},
        {"pixels of the night", "03 03 01 01 00 01 02 03 05 01 00 11 12 13 06", {3, 1, 3, 1}},
        {"without palette always",
         "02 03 01 01 00 01 02 03 05 00 00 01 02 03 04 05 06 07 08 09",
         {3, 1, 0, 9}},
        {"both blocks", "0D 03 01 01 00 01 02 03 05 07 41 42 00 02", {3, 1}},
        {"no width: no palettes and no pixels", "07 00 01 02 00 03 10 03 41", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto opened = open(onePoi(hex(c.record)).file());
        const POI& poi = opened.document.POI.at(0);
        const auto& [day, night] = poi.Image;
        const std::array<std::size_t, 4> sizes{day.Couleurs.size(), day.Bitmap.size(),
                                               night.Couleurs.size(), night.Bitmap.size()};
        EXPECT_EQ(sizes, c.sizes);
        if (night.NbCouleurs > 0 && (poi.Entete & 1U) == 0) {
            EXPECT_EQ(night.Bitmap, day.Bitmap);
        }
        EXPECT_EQ(opened.document.MaxDimensionPOI, std::max(poi.Largeur, poi.Hauteur));
        EXPECT_EQ(told(opened.journal), std::vector<std::string>{});
        EXPECT_EQ(savedRecord(opened.document), hex(c.record));
    }
}

TEST(PoiRecords, LengthsThatNeedAnotherReading) {
    struct Case {
        const char* what;
        const char* record;
        std::size_t behind;  // bytes, so that the first reading doesn't fail
        const char* strings;
        int retente;
        std::size_t palette;
        std::size_t told;
    };
    const Case cases[] = {
        {"no palette, but coded with one", "05 09 02 00 00 01 02 03 04 05 41 00", 90, "05 41 00",
         -1, 0, 1},
        {"at the end of the file", "05 09 02 00 00 01 02 03 04 05 41 00", 0, "05 41 00", -1, 0, 0},
        {"one byte too many", "05 09 02 00 00 01 02 03 04 05 41 00 EE", 0, "05 41 00", -1, 0, 1},
        {"a palette without a picture", "04 00 05 02 00 01 02 03 04 05 06 05 04 00", 0, "05 04 00",
         0, 6, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Bytes file = onePoi(hex(c.record)).append(Bytes(c.behind)).file();
        const auto opened = open(file);
        const POI& poi = opened.document.POI.at(0);
        EXPECT_EQ(poi.Strings, hex(c.strings));
        EXPECT_EQ(poi.Image[0].Retente, c.retente);
        EXPECT_EQ(poi.Image[0].Couleurs.size(), c.palette);
        EXPECT_EQ(told(opened.journal).size(), c.told);
        if (c.behind > 0) {
            EXPECT_EQ(told(opened.journal)[0],
                      "W POI 0x02f/00|    Attention: Le bitmap est invalide.|        Détails: le "
                      "nombre de couleurs du bitmap est 0 (comme s'il s'agissait d'un bitmap "
                      "TrueColor),|        mais il est codé comme un bitmap avec palette.|        "
                      "Quillmark pourra malgré tout l'enregistrer sous cette forme, mais le POI "
                      "sera très certainement inutilisable.|        Il vaut mieux l'enregistrer "
                      "en ajoutant une couleur dans la palette.");
            EXPECT_EQ(savedRecord(opened.document), hex(c.record));
        }
        expectStable(file);
    }
}

TEST(PoiRecords, LengthsThatFitNoReading) {
    const std::string length = "W POI 0x02f/00|    Attention: Longueur inattendue";
    const std::string night =
        "|    Attention: .Le bitmap de nuit n'a pas de palette (0 couleur) et semble corrompu.";
    struct Case {
        const char* what;
        const char* kept;
        const char* surplus;
        std::string told;
    };
    const Case cases[] = {
        {"behind a palette picture", "01 03 01 01 00 01 02 03 05", " AA BB", length},
        {"behind true colours", "01 01 01 00 00 01 02 03", " AA", length},
        {"the night picture is suspected, twice", "03 01 01 01 00 01 02 03 05 00 00 01 02 03",
         " AA", length + night + night},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto opened = open(onePoi(hex(std::string(c.kept) + c.surplus)).file());
        EXPECT_EQ(told(opened.journal), std::vector<std::string>{c.told});
        EXPECT_EQ(savedRecord(opened.document), hex(c.kept));
    }
}

TEST(PoiRecords, AnUnknownColourModeLosesNothing) {
    const std::vector<std::pair<const char*, int>> records{
        {"07 03 01 02 30 01 02 03 04 05 06 07 08 09", 1},     // with palette
        {"07 03 01 02 30", 1},                                // nothing behind the mode
        {"03 01 01 01 00 01 02 03 05 02 07 01 02 03 04", 1},  // at night
        {"05 03 01 00 30 03 41", 0},           // without palette there may be no pixels
        {"01 03 01 00 30 01 02 03 04 05", 1},  // or something else
    };
    for (const auto& [record, errors] : records) {
        SCOPED_TRACE(record);
        const auto opened = open(onePoi(hex(record)).file());
        EXPECT_EQ(opened.journal.errorCount(), errors);
        EXPECT_EQ(opened.journal.warningCount(), 0);
        EXPECT_EQ(savedRecord(opened.document), hex(record));
        expectStable(onePoi(hex(record)).file());
    }
}

TEST(PoiRecords, PixelsThatFitStayWhateverFailsBehindThem) {
    const Bytes pixels(768, 0x01);
    const Bytes names =
        joined({hex("05 10 10 00 00"), pixels, hex("17 04 41 42 43 44 45 46 47 48 49 4A")});
    const Bytes unknownNight =
        joined({hex("03 10 10 00 00"), pixels, hex("03 05 01 02 03 04 05 06 07 08")});
    for (const auto& [record, cut] : {std::pair{names, 3U}, {unknownNight, 0U}}) {
        // The data stand last, so that the file may end within the record.
        Bytes file =
            TypBuilder().index(kPoiIndex, 3, hex("40 05 00")).data(kPoiData, record).file();
        file.erase(file.end() - (cut ? 3 : 0), file.end());
        const auto opened = open(file);
        EXPECT_EQ(opened.document.POI.at(0).Image[0].Bitmap, pixels);
        EXPECT_EQ(opened.document.POI[0].Image[0].Retente, 0);
        EXPECT_TRUE(opened.journal.ErreurFlag());
        expectStable(file);
    }
}

TEST(PoiRecords, DamagedOnesDontCostTheSoundOnes) {
    Bytes data;
    Bytes index;
    for (std::uint8_t i = 0; i < 24; ++i) {
        index.insert(index.end(), {i, 0, static_cast<std::uint8_t>(data.size())});
        const Bytes record = hex(i < 14 ? "01 FF FF 00 00 01 02 03" : "01 01 01 01 10 01 02 03 00");
        data.insert(data.end(), record.begin(), record.end());
    }
    const auto opened = open(TypBuilder().data(kPoiData, data).index(kPoiIndex, 3, index).file());
    for (std::size_t i = 14; i < 24; ++i) {
        EXPECT_EQ(opened.document.POI.at(i).Image[0].Couleurs, hex("01 02 03")) << i;
    }
}

}  // namespace
}  // namespace quillmark
