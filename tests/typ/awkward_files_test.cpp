// Files that say one thing and hold another: what can be had is had.
#include <gtest/gtest.h>

#include "support/test_files.h"
#include "typ/reader.h"
#include "typ/writer.h"

namespace quillmark {
namespace {

using testing::hex;

// A file with a 110 byte header, one POI data section and its index of entries of 3 bytes.
Bytes pointFile(const Bytes& data, const Bytes& index) {
    ByteWriter writer;
    writer.u16(110);
    writer.bytes(testing::bytesOf("GARMIN TYP"));
    writer.zeros(110 - 12);
    writer.overwrite(21, hex("E4 04"));
    const auto put = [&](std::size_t at, std::size_t value, std::size_t width) {
        ByteWriter number;
        number.number(static_cast<std::uint32_t>(value), width);
        writer.overwrite(at, number.data());
    };
    put(23, 110, 4);
    put(27, data.size(), 4);
    put(51, 110 + data.size(), 4);
    put(55, 3, 2);
    put(57, index.size(), 4);
    writer.bytes(data);
    writer.bytes(index);
    return writer.release();
}

// The point comes back the same from a second file.
void expectStable(const Document& document) {
    const WrittenTyp first = CreerTYP(document, {});
    const OpenedTyp again = ouvrir(first.file, Traduction());
    EXPECT_EQ(CreerTYP(again.document, {}).file, first.file);
}

TEST(AwkwardFiles, PointsWhoseLengthNeedsAnotherReading) {
    struct Case {
        const char* why;
        const char* record;
        const char* strings;
        int retente;
        std::size_t palette;
    };
    const std::vector<Case> cases{
        {"coded with a palette, and one byte too many", "05 09 02 00 00 01 02 03 04 05 41 00 EE",
         "05 41 00", -1, 0},
        {"a palette without a picture", "04 00 05 02 00 01 02 03 04 05 06 05 04 00", "05 04 00", 0,
         6},
    };
    for (const Case& c : cases) {
        const OpenedTyp opened = ouvrir(pointFile(hex(c.record), hex("40 05 00")), Traduction());
        ASSERT_EQ(opened.document.POI.size(), 1U) << c.why;
        const POI& point = opened.document.POI[0];
        EXPECT_EQ(point.Strings, hex(c.strings)) << c.why;
        EXPECT_EQ(point.Image[0].Retente, c.retente) << c.why;
        EXPECT_EQ(point.Image[0].Couleurs.size(), c.palette) << c.why;
        expectStable(opened.document);
    }
}

TEST(AwkwardFiles, PixelsThatFitStayWhateverFailsBehindThem) {
    Bytes record = hex("05 10 10 00 00");
    record.insert(record.end(), 768, 0x5A);
    Bytes unknownNight = record;
    unknownNight[0] = 3;
    const Bytes strings = hex("17 04 41 42 43 44 45 46 47 48 49 4A");
    record.insert(record.end(), strings.begin(), strings.end());
    const Bytes night = hex("03 05 01 02 03 04 05 06 07 08");
    unknownNight.insert(unknownNight.end(), night.begin(), night.end());

    // The index stands before the data, so that the file can be cut within its last record.
    ByteWriter writer;
    writer.bytes(pointFile({}, hex("40 05 00")));
    writer.overwrite(23, hex("71 00 00 00"));
    for (const bool cut : {true, false}) {
        ByteWriter whole = writer;
        const Bytes& data = cut ? record : unknownNight;
        const auto size = static_cast<std::uint8_t>(data.size() & 0xFFU);
        whole.overwrite(27, Bytes{size, static_cast<std::uint8_t>(data.size() >> 8U)});
        whole.bytes(data);
        Bytes file = whole.release();
        file.resize(file.size() - (cut ? 3 : 0));
        const OpenedTyp opened = ouvrir(file, Traduction());
        const POI& point = opened.document.POI.at(0);
        EXPECT_EQ(point.Image[0].Bitmap, Bytes(768, 0x5A));
        EXPECT_EQ(point.Image[0].Retente, 0);
        EXPECT_TRUE(opened.journal.ErreurFlag());
        expectStable(opened.document);
    }
}

TEST(AwkwardFiles, DamagedPointsDontCostTheSoundOnes) {
    Bytes data;
    Bytes index;
    for (int i = 0; i < 24; ++i) {
        const bool damaged = i < 14;
        index.insert(index.end(),
                     {static_cast<std::uint8_t>(i), 0, static_cast<std::uint8_t>(data.size())});
        const Bytes record =
            damaged ? hex("01 FF FF 00 00 01 02 03") : hex("01 01 01 01 10 01 02 03 00");
        data.insert(data.end(), record.begin(), record.end());
    }
    const OpenedTyp opened = ouvrir(pointFile(data, index), Traduction());
    for (std::size_t i = 14; i < 24; ++i) {
        EXPECT_EQ(opened.document.POI.at(i).Image[0].Couleurs, hex("01 02 03")) << i;
    }
}

TEST(AwkwardFiles, GroupsKeepTheirIdentifiersWhateverTheirOrder) {
    Bytes file = pointFile({}, {});
    const Bytes data = hex("01 0D 04 00 00 00 00 01 01 0D 08 00 00 00 00 02");
    ByteWriter writer;
    writer.bytes(file);
    writer.bytes(data);
    writer.bytes(hex("01 08 02 00"));
    file = writer.release();
    const auto put = [&](std::size_t at, std::size_t value) {
        file[at] = static_cast<std::uint8_t>(value);
    };
    put(91, 110 + data.size());
    put(95, 2);
    put(97, 4);
    put(102, 110);
    put(106, data.size());
    const Document document = ouvrir(file, Traduction()).document;
    ASSERT_EQ(document.ExtraPOI.size(), 2U);
    EXPECT_EQ(document.ExtraPOI[0].BrandID, 1);
    EXPECT_EQ(document.ExtraPOI[0].POI.at(0).Entete, 8);
    EXPECT_EQ(document.ExtraPOI[1].POI.at(0).Entete, 4);
}

TEST(AwkwardFiles, IdentitiesThatNoFileHoldsAreRefused) {
    Document document;
    document.FID = document.ProductCode = "1";
    document.Polyline.resize(1);
    Polyline& line = document.Polyline[0];
    line = {"7ff", "1f", "", 6, 2, hex("00 00 00"), {1}, {}, 0, {}, {}, {}, {}};
    EXPECT_EQ(ouvrir(CreerTYP(document, {}).file, Traduction()).document.Polyline.at(0).Type,
              "7ff");
    line.Type = "801";
    EXPECT_THROW((void)CreerTYP(document, {}), Failure);
    line.Type = "103";
    line.SubType = "25";
    EXPECT_THROW((void)CreerTYP(document, {}), Failure);
}

}  // namespace
}  // namespace quillmark
