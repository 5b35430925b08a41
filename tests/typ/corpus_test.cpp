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

// Records of a sound document as they stand in its file.
std::vector<Record> recordsOf(const Bytes& file, const Document& document) {
    std::vector<Record> records;
    const auto add = [&](const SectionPlace& section, const auto& object, std::size_t offset,
                         std::array<std::uint8_t, 2> activity = {}) {
        const auto start = file.begin() + static_cast<std::ptrdiff_t>(section.offset + offset);
        records.emplace_back(object.Type, object.SubType, activity,
                             Bytes(start, start + object.Longueur));
    };
    for (const Polygone& polygon : document.Polygone) {
        add(document.EnteteTYP.polygonData, polygon, std::stoul(polygon.Offset));
    }
    for (const Polyline& line : document.Polyline) {
        add(document.EnteteTYP.polylineData, line, std::stoul(line.Offset), line.ActiveRouting);
    }
    for (const POI& poi : document.POI) {
        add(document.EnteteTYP.poiData, poi, static_cast<std::size_t>(poi.Offset));
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
        expectStable(file);
    }
}

TEST_F(Corpus, CutFilesOpenInBoundedTime) {
    for (const auto& path : files) {
        SCOPED_TRACE(path.filename());
        const Bytes file = readFile(path);
        // Lengths all over the file, and about as many for a large file as for a small one.
        const std::size_t step = 1 + file.size() / 60;
        for (std::size_t length = 0; length < file.size() && !HasFailure(); length += step) {
            SCOPED_TRACE(length);
            expectStable({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)});
        }
    }
}

}  // namespace
}  // namespace quillmark
