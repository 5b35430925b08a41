// Extra POI, special labels with their block, and the draw order.
#include <gtest/gtest.h>

#include "core/draw_order.h"
#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

// A point of `length` bytes: no picture, a block of names that fills it up.
POI poiOfLength(std::size_t length) {
    POI poi;
    poi.Entete = 0x04;
    const std::size_t block = length - 5;
    if (block <= 128) {
        poi.Strings.resize(block, 0x41);
        poi.Strings[0] = static_cast<std::uint8_t>((block - 1) * 2 + 1);
    } else {
        poi.Strings.resize(block, 0x41);
        poi.Strings[0] = static_cast<std::uint8_t>((block - 2) * 4 + 2);
        poi.Strings[1] = static_cast<std::uint8_t>(((block - 2) * 4 + 2) >> 8);
    }
    return poi;
}

ExtraPOI group(std::int64_t BrandID, std::vector<POI> members) {
    ExtraPOI result;
    result.BrandID = static_cast<std::int32_t>(BrandID);
    result.NbPOI = static_cast<std::uint8_t>(members.size());
    result.POI = std::move(members);
    return result;
}

Document withGroups(std::vector<ExtraPOI> groups, std::uint8_t flags = 0) {
    Document document;
    document.TailleEntete = 110;
    document.FID = document.ProductCode = "1";
    document.ExtraPOI = std::move(groups);
    document.EnteteExtraPOI.flags = flags;
    return document;
}

TEST(ExtraPoi, LengthPrefixes) {
    struct Case {
        std::size_t length;
        const char* prefix;
    };
    for (const Case c : {Case{6, "0D"}, Case{127, "FF"}, Case{128, "02 02"}, Case{16383, "FE FF"},
                         Case{16384, "04 00 02"}}) {
        const Bytes file = save(withGroups({group(7, {poiOfLength(c.length), poiOfLength(9)})}));
        const Bytes prefix = hex(c.prefix);
        EXPECT_EQ(Bytes(file.begin() + 111, file.begin() + 111 + static_cast<long>(prefix.size())),
                  prefix);
        const auto opened = open(file);
        ASSERT_EQ(opened.document.ExtraPOI.size(), 1U);
        EXPECT_EQ(opened.document.ExtraPOI[0].POI.at(0).Longueur,
                  static_cast<std::int32_t>(c.length));
        EXPECT_EQ(opened.document.ExtraPOI[0].POI.at(1).Strings, poiOfLength(9).Strings);
        EXPECT_TRUE(opened.journal.entries().empty());
    }
}

TEST(ExtraPoi, FlagsAndEntrySizesAgreeForAReader) {
    struct Case {
        std::int64_t BrandID;
        std::uint8_t old, flags;
        std::uint16_t entrySize;
    };
    const Case cases[] = {
        {255, 0x00, 0xE7, 2},      {255, 0x08, 0xEF, 3},  // the old width stays
        {256, 0x11, 0x09, 3},      {65535, 0x18, 0x08, 3},    {65536, 0x0F, 0x17, 4},
        {16777215, 0x00, 0x10, 4}, {16777216, 0x1F, 0x18, 5}, {0xFFFFFFFF, 0xFF, 0x18, 5},
        {16777216, 0x00, 0x18, 5},  // the old width wouldn't hold it
    };
    for (const Case& c : cases) {
        const Bytes file = save(
            withGroups({group(c.BrandID, {poiOfLength(6)}), group(1, {poiOfLength(7)})}, c.old));
        const auto opened = open(file);
        EXPECT_EQ(opened.document.EnteteExtraPOI.flags, c.flags) << c.BrandID;
        EXPECT_EQ(opened.document.EnteteExtraPOI.index.entrySize, c.entrySize) << c.BrandID;
        ASSERT_EQ(opened.document.ExtraPOI.size(), 2U);
        const bool negative = static_cast<std::int32_t>(c.BrandID) < 0;
        const ExtraPOI& large = opened.document.ExtraPOI[negative ? 0 : 1];
        EXPECT_EQ(large.BrandID, static_cast<std::int32_t>(c.BrandID));
        EXPECT_EQ(large.POI.at(0).Strings, poiOfLength(6).Strings);
        EXPECT_EQ(save(opened.document), file);
    }
    EXPECT_EQ(open(save(withGroups({}, 0x13))).document.EnteteExtraPOI.flags, 0x13)
        << "without groups the flags stay";
}

TEST(ExtraPoi, EmptyGroupsShiftNothing) {
    const Document document =
        withGroups({group(1, {}), group(2, {poiOfLength(6)}), group(3, {}), group(4, {})});
    const Bytes file = save(document);
    const auto opened = open(file);
    ASSERT_EQ(opened.document.ExtraPOI.size(), 4U);
    EXPECT_EQ(opened.document.ExtraPOI[1].POI.size(), 1U);
    EXPECT_EQ(save(opened.document), file);

    // One count of 0 for two groups, then one that the index doesn't place behind it.
    const auto shared = open(TypBuilder(110)
                                 .data(kExtraData, hex("00 01 0D 04 00 00 00 00 01"))
                                 .index(kExtraIndex, 2, hex("05 00 06 00 07 05"))
                                 .file());
    for (const ExtraPOI& empty : shared.document.ExtraPOI) {
        EXPECT_TRUE(empty.POI.empty());
    }
    EXPECT_TRUE(shared.journal.entries().empty());
}

TEST(ExtraPoi, MembersAreBoundedHoweverManyThereShouldBe) {
    // Members of one byte each, less than any point has: more of them than a sound file can hold.
    Bytes data;
    for (int i = 0; i < 5; ++i) {
        data.push_back(0xFF);
        for (int member = 0; member < 255; ++member) {
            data.insert(data.end(), {0x03, 0x01});
        }
    }
    TypBuilder builder(110);
    builder.data(kExtraData, data).index(kExtraIndex, 3, Bytes(15));
    const auto opened = open(builder.file());
    std::size_t members = 0;
    for (const ExtraPOI& one : opened.document.ExtraPOI) {
        members += one.POI.size();
    }
    EXPECT_EQ(members, builder.size() / 6);
    EXPECT_NE(opened.journal.entries().back().text.find("trop de POI"), std::string::npos);
    const Bytes once = save(opened.document);
    EXPECT_EQ(save(open(once).document), once);
}

Document withBloc(BlocSourceKind source, const Bytes& bloc) {
    Document document;
    document.TailleEntete = 164;
    document.FID = document.ProductCode = "1";
    document.LabelsStrings = bytesOf("abc");
    document.LabelsTableA = hex("01 02 03 04");
    document.LabelsTableB = hex("05 06 07 08 09 0A");
    document.EnteteLabels.entrySizeA = 4;
    document.BlocBrut = bloc;
    document.BlocSource = source;
    return document;
}

TEST(Labels, TheBlockKeepsItsSourceAndItsBytes) {
    struct Case {
        const char* what;
        Document document;
        BlocSourceKind source;
        std::size_t fileSize;
    };
    const std::size_t base = 164 + 3 + 4 + 6;
    const Case cases[] = {
        {"own data", withBloc(BlocSourceKind::own, hex("01 02 03")), BlocSourceKind::own, base + 3},
        {"the first table", withBloc(BlocSourceKind::tableA, hex("01 02 03 04")),
         BlocSourceKind::tableA, base},
        {"a part of the second", withBloc(BlocSourceKind::tableB, hex("05 06")),
         BlocSourceKind::tableB, base},
        {"not what the table holds", withBloc(BlocSourceKind::tableB, hex("55")),
         BlocSourceKind::own, base + 1},
        {"none: the second table stands in", withBloc(BlocSourceKind::none, {}),
         BlocSourceKind::tableB, base},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Bytes file = save(c.document);
        EXPECT_EQ(file.size(), c.fileSize);
        const auto opened = open(file);
        EXPECT_TRUE(opened.journal.entries().empty());
        EXPECT_EQ(opened.document.BlocSource, c.source);
        EXPECT_EQ(opened.document.BlocBrut,
                  c.document.BlocBrut.empty() ? c.document.LabelsTableB : c.document.BlocBrut);
        EXPECT_EQ(opened.document.LabelsTableA, c.document.LabelsTableA);
        EXPECT_EQ(opened.document.NbLabelsA(), 1);
        EXPECT_EQ(save(opened.document), file);
    }
}

TEST(Labels, ABlockPastTheEndIsLookedForByItsSize) {
    const auto fileWith = [](std::uint32_t size) {
        return TypBuilder(164)
            .data(kTableA, hex("01 02 03"))
            .data(kTableB, hex("04 05"))
            .place(kBloc, 1000)
            .number(kBloc + 4, size, 4)
            .file();
    };
    const Bytes wanted[] = {{}, {}, hex("04 05"), hex("01 02 03"), {}};
    for (std::uint32_t size = 2; size <= 4; ++size) {
        const auto opened = open(fileWith(size));
        EXPECT_EQ(opened.document.BlocBrut, wanted[size]);
        EXPECT_EQ(opened.journal.entries().size(), 1U);
    }
    // A block cut by the end of the file keeps what there is.
    const auto cut = open(TypBuilder(164).data(kBloc, hex("07 08")).number(kBloc + 4, 9, 4).file());
    EXPECT_EQ(cut.document.BlocBrut, hex("07 08"));
    EXPECT_TRUE(cut.document.EntreSections.empty()) << "a block alone is the first section";
}

TEST(DrawOrderSection, BytesAndLines) {
    struct Case {
        const char* what;
        const char* bytes;
        std::vector<std::string> list;
        const char* written;  // null: as read
    };
    const Case cases[] = {
        {"levels",
         "03 00 00 00 00  00 00 00 00 00  01 00 00 00 00 02 00 00 00 00",
         {"Type=0x003,1", "Type=0x001,2", "Type=0x002,2"},
         nullptr},
        {"subtypes are bits of an unsigned mask",
         "0F 11 00 00 80",
         {"Type=0x10f,SubType=0x00,1", "Type=0x10f,SubType=0x04,1", "Type=0x10f,SubType=0x1f,1"},
         nullptr},
        {"sorted within a level",
         "05 00 00 00 00 03 00 00 00 00 00 01 00 00 00",
         {"Type=0x003,1", "Type=0x005,1", "Type=0x100,SubType=0x00,1"},
         "03 00 00 00 00 05 00 00 00 00 00 01 00 00 00"},
        {"a separator at the beginning counts",
         "00 00 00 00 00 03 00 00 00 00",
         {"Type=0x003,2"},
         "03 00 00 00 00"},
        {"the second of two separators is type 0",
         "03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 04 00 00 00 00",
         {"Type=0x003,1", "Type=0x000,2", "Type=0x004,2"},
         nullptr},
        {"type 0 at the very beginning would be a separator",
         "00 00 00 00 00 00 00 00 00 00 04 00 00 00 00",
         {"Type=0x000,2", "Type=0x004,2"},
         "04 00 00 00 00"},
        {"a separator at the end",
         "03 00 00 00 00 00 00 00 00 00",
         {"Type=0x003,1"},
         "03 00 00 00 00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto opened = open(TypBuilder().index(kDrawOrder, 5, hex(c.bytes)).file());
        EXPECT_EQ(opened.document.ListDraworder, c.list);
        EXPECT_EQ(opened.document.DrawOrder.size(), c.list.size());
        EXPECT_TRUE(opened.journal.entries().empty());
        const Bytes file = save(opened.document);
        EXPECT_EQ(Bytes(file.begin() + 91, file.end()),
                  hex(c.written == nullptr ? c.bytes : c.written));
    }
}

TEST(DrawOrderSection, GapsCloseAndWhatCannotBeSaidIsRefused) {
    Document document;
    document.FID = document.ProductCode = "1";
    document.ListDraworder = {"Type=0x001,1", "Type=0x002,3", "Type=0x003,3", "Type=0x004,7",
                              "Type=0x004,7"};
    const std::vector<std::string> closed{"Type=0x001,1", "Type=0x002,2", "Type=0x003,2",
                                          "Type=0x004,3"};
    EXPECT_EQ(open(save(document)).document.ListDraworder, closed);
    document.ListDraworder = {"Type=0x110,SubType=0x20,1"};
    EXPECT_THROW((void)save(document), Failure);
    document.ListDraworder.clear();
    for (int level = 1; level < 3500; ++level) {
        document.ListDraworder.push_back(drawOrderEntry({level, 5, 0}));
    }
    EXPECT_THROW((void)save(document), Failure) << "no reader would see the end of it";
    document.ListDraworder = {"Type=0x000,1"};
    EXPECT_EQ(save(document).size(), 91U);
}

TEST(DrawOrderSection, SizesBeyondSixteenBits) {
    Bytes bytes;
    for (int i = 0; i < 7000; ++i) {
        bytes.insert(bytes.end(), {0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
    }
    const auto negative = open(TypBuilder().index(kDrawOrder, 5, bytes).file());
    EXPECT_EQ(negative.document.ListDraworder.size(), static_cast<std::size_t>(kMaxObjects));
    EXPECT_EQ(negative.journal.errorCount(), 2) << "too many bytes, and too many lines in them";
    // A last level that ends just beyond what is seen: it is left, and a save still fits.
    const Bytes levels = hex("00 00 00 00 00 05 00 00 00 00");
    Bytes many = hex("05 00 00 00 00 06 00 00 00 00");
    while (many.size() < 32770) {
        many.insert(many.end(), levels.begin(), levels.end());
    }
    const auto edge =
        open(TypBuilder().index(kDrawOrder, 5, many).number(kDrawOrder + 6, 32767, 4).file());
    EXPECT_EQ(edge.document.ListDraworder.size(), 2U + 3275U);
    const Bytes once = save(edge.document);
    EXPECT_EQ(save(open(once).document), once);

    bytes.resize(32765);
    const auto dense = open(TypBuilder().index(kDrawOrder, 5, bytes).file());
    EXPECT_EQ(dense.document.ListDraworder.size(), 32767U);
    EXPECT_EQ(dense.journal.errorCount(), 1) << "one word for 177,000 lines too many";
}

}  // namespace
}  // namespace quillmark
