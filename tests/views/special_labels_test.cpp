#include "views/special_labels.h"

#include <gtest/gtest.h>

#include "support/test_files.h"

namespace quillmark {
namespace {

using namespace testing;

TEST(SpecialLabels, TextsAndEntriesStandSideBySideAsFarAsEitherGoes) {
    Document document;
    document.LabelsStrings = {'A', 0, 0, 'B'};
    document.LabelsTableA = hex("0A 1B 0C 1D FF");
    document.LabelsTableB = hex("00 01 00 02 00 03 00 04");
    document.EnteteLabels.entrySizeA = 2;
    document.EnteteLabels.entrySizeB = 2;
    const SpecialLabels labels(document);
    ASSERT_EQ(labels.rows().size(), 4U);
    EXPECT_EQ(labels.rows()[0].line(), "A\t0A 1B \t00 01 ");
    EXPECT_EQ(labels.rows()[1].line(), "\t0C 1D \t00 02 ");
    EXPECT_EQ(labels.rows()[2].line(), "B\t\t00 03 ");
    EXPECT_EQ(labels.rows()[3].line(), "\t\t00 04 ");
    EXPECT_EQ(labels.title(Traduction()), "Labels spéciaux  (3)");

    document.EnteteLabels.entrySizeA = 0;
    document.EnteteLabels.entrySizeB = 0xFFFFFFFF;
    EXPECT_EQ(SpecialLabels(document).rows().size(), 3U) << "no entries without a fitting size";
    document.LabelsStrings.clear();
    EXPECT_TRUE(SpecialLabels(document).rows().empty());
}

}  // namespace
}  // namespace quillmark
