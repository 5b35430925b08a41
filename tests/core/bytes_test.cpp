#include "core/bytes.h"

#include <gtest/gtest.h>

#include "support/test_files.h"

namespace quillmark {
namespace {

using testing::hex;

TEST(ByteReader, ReadsLittleEndianNumbersAndStopsAtTheEndWithoutMoving) {
    const Bytes data = hex("01 02 03 04 05 06 07");
    ByteReader reader(data);
    EXPECT_EQ(reader.u16(), 0x0201);
    EXPECT_EQ(reader.number(3), 0x050403U);
    EXPECT_EQ(reader.number(0), 0U);
    EXPECT_THROW(reader.u32(), ReadError);
    EXPECT_EQ(reader.position(), 5U);
    EXPECT_THROW(reader.take(3), ReadError);
    EXPECT_EQ(reader.take(2).back(), 7);
    EXPECT_THROW(reader.u8(), ReadError);
    reader.seek(std::size_t{0} - 1);
    EXPECT_THROW(reader.take(2), ReadError) << "a position near the largest number must not wrap";
    EXPECT_EQ(reader.remaining(), 0U);
}

TEST(ByteReader, FillKeepsWhatThereIsAndZerosTheRest) {
    const Bytes data = hex("0A 0B 0C");
    std::array<std::uint8_t, 4> target{9, 9, 9, 9};
    ByteReader reader(data, 1);
    EXPECT_THROW(reader.fill(target), ReadError);
    EXPECT_EQ(target, (std::array<std::uint8_t, 4>{0x0B, 0x0C, 0, 0}));
    EXPECT_EQ(reader.remaining(), 0U);
}

TEST(ByteWriter, WritesWhatAReaderReadsAndPatchesInPlace) {
    ByteWriter writer;
    writer.u8(1);
    writer.u16(0x12345);
    writer.number(0xAABBCCDD, 3);
    writer.zeros(2);
    writer.overwrite(6, hex("EE"));
    EXPECT_EQ(writer.data(), hex("01 45 23 DD CC BB EE 00"));
}

}  // namespace
}  // namespace quillmark
