// Real files, where there are any: see QUILLMARK_CORPUS in the build.
#include <gtest/gtest.h>

#include <tuple>

#include "core/files.h"
#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

// What an index says of a record, and the record's bytes.
using Record = std::tuple<std::string, std::string, std::array<std::uint8_t, 2>, Bytes>;

template <typename Object>
void addRecord(const Bytes& file, const SectionPlace& section, const Object& object,
               std::uint32_t offset, std::size_t size, std::vector<Record>& records) {
    const auto start = file.begin() + section.offset + offset;
    std::array<std::uint8_t, 2> activity{};
    if constexpr (std::is_same_v<Object, Polyline>) {
        activity = object.ActiveRouting;
    }
    records.emplace_back(object.Type, object.SubType, activity,
                         Bytes(start, start + static_cast<std::ptrdiff_t>(size)));
}

// Records of a sound document as they stand in its file; those of polygons without surplus.
std::vector<Record> recordsOf(const Bytes& file, const Document& document) {
    std::vector<Record> records;
    const EnteteTYP& header = document.EnteteTYP;
    for (const Polygone& polygon : document.Polygone) {
        addRecord(file, header.polygonData, polygon,
                  static_cast<std::uint32_t>(std::stoul(polygon.Offset)),
                  static_cast<std::size_t>(polygon.Longueur), records);
    }
    for (const Polyline& line : document.Polyline) {
        addRecord(file, header.polylineData, line,
                  static_cast<std::uint32_t>(std::stoul(line.Offset)),
                  static_cast<std::size_t>(line.Longueur), records);
    }
    for (const POI& poi : document.POI) {
        addRecord(file, header.poiData, poi, static_cast<std::uint32_t>(poi.Offset),
                  static_cast<std::size_t>(poi.Longueur), records);
    }
    std::sort(records.begin(), records.end());
    return records;
}

class Corpus : public ::testing::Test {
  protected:
    void SetUp() override {
        if (files.empty()) {
            GTEST_SKIP() << "no corpus";
        }
    }
    const std::vector<std::filesystem::path> files = corpusFiles("bin");
};

TEST_F(Corpus, RecordsStayByteForByteAndASecondSaveChangesNothing) {
    for (const auto& path : files) {
        SCOPED_TRACE(path.filename());
        const Bytes file = readFile(path);
        const auto opened = open(file);
        EXPECT_TRUE(opened.hasMagic);
        EXPECT_EQ(opened.journal.errorCount(), 0);
        const WrittenTyp once = CreerTYP(opened.document, kNow);
        EXPECT_EQ(recordsOf(once.file, once.document), recordsOf(file, opened.document));
        EXPECT_TRUE(save(open(once.file).document) == once.file);
    }
}

TEST_F(Corpus, CutFilesOpenInBoundedTime) {
    for (const auto& path : files) {
        SCOPED_TRACE(path.filename());
        const Bytes file = readFile(path);
        // Every length for small files, some of them for large ones.
        const std::size_t step = 1 + file.size() / 60;
        for (std::size_t length = 0; length < file.size() && !HasFailure(); length += step) {
            const auto end = file.begin() + static_cast<std::ptrdiff_t>(length);
            const Bytes once = save(open(Bytes(file.begin(), end)).document);
            EXPECT_TRUE(save(open(once).document) == once) << length;
        }
    }
}

}  // namespace
}  // namespace quillmark
