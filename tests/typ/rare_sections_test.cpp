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
    const std::size_t prefix = length <= 133 ? 1 : 2;
    const std::size_t size = length - 5 - prefix;
    ByteWriter block;
    block.number(static_cast<std::uint32_t>(size * 2 * prefix + prefix), prefix);
    block.zeros(size);
    poi.Strings = block.release();
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
    Document document = minimal(110);
    document.ExtraPOI = std::move(groups);
    document.EnteteExtraPOI.flags = flags;
    return document;
}

TEST(ExtraPoi, LengthPrefixes) {
    const std::vector<std::pair<std::size_t, Bytes>> cases{{6, hex("0D")},
                                                           {127, hex("FF")},
                                                           {128, hex("02 02")},
                                                           {16383, hex("FE FF")},
                                                           {16384, hex("04 00 02")}};
    for (const auto& [length, prefix] : cases) {
        const Bytes file = save(withGroups({group(7, {poiOfLength(length), poiOfLength(9)})}));
        EXPECT_TRUE(std::equal(prefix.begin(), prefix.end(), file.begin() + 111)) << length;
        const ExtraPOI members = open(file).document.ExtraPOI.at(0);
        EXPECT_EQ(members.POI.at(0).Longueur, static_cast<std::int32_t>(length));
        EXPECT_EQ(members.POI.at(1).Strings, poiOfLength(9).Strings);
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
        SCOPED_TRACE(c.BrandID);
        const Document document =
            open(save(withGroups({group(c.BrandID, {poiOfLength(6)}), group(1, {poiOfLength(7)})},
                                 c.old)))
                .document;
        EXPECT_EQ(document.EnteteExtraPOI.flags, c.flags);
        EXPECT_EQ(document.EnteteExtraPOI.index.entrySize, c.entrySize);
        ASSERT_EQ(document.ExtraPOI.size(), 2U);
        const bool negative = static_cast<std::int32_t>(c.BrandID) < 0;
        const ExtraPOI& large = document.ExtraPOI[negative ? 0 : 1];
        EXPECT_EQ(large.BrandID, static_cast<std::int32_t>(c.BrandID));
        EXPECT_EQ(large.POI.at(0).Strings, poiOfLength(6).Strings);
    }
    EXPECT_EQ(open(save(withGroups({}, 0x13))).document.EnteteExtraPOI.flags, 0x13)
        << "without groups the flags stay";
}

TEST(ExtraPoi, GroupsAreTakenAsTheIndexPlacesThem) {
    const Bytes sparse =
        save(withGroups({group(1, {}), group(2, {poiOfLength(6)}), group(3, {}), group(4, {})}));
    EXPECT_EQ(open(sparse).document.ExtraPOI.at(1).POI.size(), 1U) << "empty ones shift nothing";
    expectStable(sparse);

    const auto read = [](const char* data, const char* index) {
        const TypBuilder builder =
            TypBuilder(110).data(kExtraData, hex(data)).index(kExtraIndex, 2, hex(index));
        return open(builder.file());
    };
    // One count of 0 for two groups, then one that the index doesn't place behind it.
    const auto shared = read("00 01 0D 04 00 00 00 00 01", "05 00 06 00 07 05");
    for (const ExtraPOI& empty : shared.document.ExtraPOI) {
        EXPECT_TRUE(empty.POI.empty());
    }
    EXPECT_TRUE(shared.journal.entries().empty());

    const auto swapped = read("01 0D 04 00 00 00 00 01 01 0D 08 00 00 00 00 02", "01 08 02 00");
    ASSERT_EQ(swapped.document.ExtraPOI.size(), 2U);
    EXPECT_EQ(swapped.document.ExtraPOI[0].BrandID, 1);
    EXPECT_EQ(swapped.document.ExtraPOI[0].POI.at(0).Entete, 8);
    EXPECT_EQ(swapped.document.ExtraPOI[1].POI.at(0).Entete, 4);

    const auto damaged = read("01 09 04 00 00 00 00 01 0D 08 00 00 00 00", "0C 00");
    ASSERT_FALSE(damaged.journal.entries().empty());
    EXPECT_EQ(damaged.journal.entries()[0].object, ObjectKind::ExtraPOI);
    EXPECT_EQ(damaged.journal.entries()[0].identity, 12U);
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
    expectStable(builder.file());
}

TEST(Labels, TheBlockKeepsItsSourceAndItsBytes) {
    using Kind = BlocSourceKind;
    const Bytes tableA = hex("01 02 03 04");
    const Bytes tableB = hex("05 06 07 08 09 0A");
    struct Case {
        const char* what;
        Kind source;
        Bytes bloc;
        Kind readSource;
        Bytes readBloc;
        std::size_t blocSize;  // in a place of its own
    };
    const Case cases[] = {
        {"own data", Kind::own, hex("01 02 03"), Kind::own, hex("01 02 03"), 3},
        {"the first table", Kind::tableA, tableA, Kind::tableA, tableA, 0},
        {"a part of the second", Kind::tableB, hex("05 06"), Kind::tableB, hex("05 06"), 0},
        {"not what the table holds", Kind::tableB, hex("55"), Kind::own, hex("55"), 1},
        {"none: the second table stands in", Kind::none, {}, Kind::tableB, tableB, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Document document = minimal(164);
        document.LabelsStrings = bytesOf("abc");
        document.LabelsTableA = tableA;
        document.LabelsTableB = tableB;
        document.EnteteLabels.entrySizeA = 4;
        document.BlocBrut = c.bloc;
        document.BlocSource = c.source;
        const Bytes file = save(document);
        EXPECT_EQ(file.size(), 164 + 3 + 4 + 6 + c.blocSize);
        const auto opened = open(file);
        EXPECT_TRUE(opened.journal.entries().empty());
        EXPECT_EQ(opened.document.BlocSource, c.readSource);
        EXPECT_EQ(opened.document.BlocBrut, c.readBloc);
        EXPECT_EQ(opened.document.LabelsTableA, tableA);
        EXPECT_EQ(opened.document.NbLabelsA(), 1);
    }
}

TEST(Labels, ABlockPastTheEndIsLookedForByItsSize) {
    for (const auto& [size, bloc] : {std::pair{2U, "04 05"}, {3U, "01 02 03"}, {4U, ""}}) {
        TypBuilder builder(164);
        builder.data(kTableA, hex("01 02 03")).data(kTableB, hex("04 05"));
        builder.place(kBloc, 1000).number(kBloc + 4, size, 4);
        const auto opened = open(builder.file());
        EXPECT_EQ(opened.document.BlocBrut, hex(bloc));
        EXPECT_EQ(opened.journal.entries().size(), 1U);
    }
    // A block cut by the end of the file keeps what there is.
    const auto cut = open(TypBuilder(164).data(kBloc, hex("07 08")).number(kBloc + 4, 9, 4).file());
    EXPECT_EQ(cut.document.BlocBrut, hex("07 08"));
    EXPECT_TRUE(cut.document.EntreSections.empty()) << "a block alone is the first section";
}

TEST(DrawOrderSection, BytesAndLines) {
    struct Case {
        const char* bytes;
        std::vector<std::string> list;
        const char* written = nullptr;  // null: as read
    };
    const Case cases[] = {
        // Levels.
        {"03 00 00 00 00  00 00 00 00 00  01 00 00 00 00 02 00 00 00 00",
         {"Type=0x003,1", "Type=0x001,2", "Type=0x002,2"}},
        // Subtypes are bits of an unsigned mask.
        {"0F 11 00 00 80",
         {"Type=0x10f,SubType=0x00,1", "Type=0x10f,SubType=0x04,1", "Type=0x10f,SubType=0x1f,1"}},
        // Sorted within a level.
        {"05 00 00 00 00 03 00 00 00 00 00 01 00 00 00",
         {"Type=0x003,1", "Type=0x005,1", "Type=0x100,SubType=0x00,1"},
         "03 00 00 00 00 05 00 00 00 00 00 01 00 00 00"},
        // A separator at the beginning counts.
        {"00 00 00 00 00 03 00 00 00 00", {"Type=0x003,2"}, "03 00 00 00 00"},
        // The second of two separators is type 0.
        {"03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 04 00 00 00 00",
         {"Type=0x003,1", "Type=0x000,2", "Type=0x004,2"}},
        // Type 0 at the very beginning would be a separator.
        {"00 00 00 00 00 00 00 00 00 00 04 00 00 00 00",
         {"Type=0x000,2", "Type=0x004,2"},
         "04 00 00 00 00"},
        // A separator at the end.
        {"03 00 00 00 00 00 00 00 00 00", {"Type=0x003,1"}, "03 00 00 00 00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bytes);
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
    Document document = minimal();
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
    struct Case {
        Bytes bytes;
        std::size_t lines;
        int errors;
    };
    // Each mask bit is a line, each pair a level; the last one ends just beyond what is seen.
    Bytes levels = hex("05 00 00 00 00 06 00 00 00 00");
    const Bytes pair = hex("00 00 00 00 00 05 00 00 00 00");
    while (levels.size() < 32770) {
        levels.insert(levels.end(), pair.begin(), pair.end());
    }
    levels.resize(32767);
    for (const Case& c : {Case{Bytes(35000, 0xFF), kMaxObjects, 2},
                          Case{Bytes(32765, 0xFF), kMaxObjects, 1}, Case{levels, 3277, 1}}) {
        const TypBuilder builder = TypBuilder().index(kDrawOrder, 5, c.bytes).append(Bytes(3));
        const auto opened = open(builder.file());
        EXPECT_EQ(opened.document.ListDraworder.size(), c.lines);
        EXPECT_EQ(opened.journal.errorCount(), c.errors) << "one word, however many are too many";
        expectStable(builder.file());
    }
}

}  // namespace
}  // namespace quillmark
