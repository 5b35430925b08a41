#include "core/draw_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <tuple>

namespace quillmark {
namespace {

TEST(DrawOrder, RebuildSortsAndNormalisesAndDropsWhatIsNoEntry) {
    Document document;
    document.ListDraworder = {
        "Type=0x10F,SubType=0x1F,3",  // capitals
        "Type=0x10f,SubType=0x00,3",
        "Type=0x010,SubType=0x00,1",  // long form of a standard type
        "Type=0x010,SubType=0x01,1",
        "Type=0x003, 2 ",
        "Type=0x5,2",          // short of digits
        "Type=0xzz,7",         // no number
        "Type=0x004,nothing",  // no level
        "Type=0x003,2",        // a duplicate stays
        "Type=0x001",          // too few parts
        "Type=0x001,SubType=0x01,1,1",
        "",
    };
    RebatirDraworder(document);
    EXPECT_EQ(document.ListDraworder,
              (std::vector<std::string>{"Type=0x004,0", "Type=0x010,1", "Type=0x010,SubType=0x01,1",
                                        "Type=0x003,2", "Type=0x003,2", "Type=0x005,2",
                                        "Type=0x10f,SubType=0x00,3", "Type=0x10f,SubType=0x1f,3",
                                        "Type=0x000,7"}));
    ASSERT_EQ(document.DrawOrder.size(), 9U);
    EXPECT_EQ(document.DrawOrder[7], (DrawOrderItem{3, 0x10F, 0x1F}));

    const Document before = document;
    RebatirDraworder(document);
    EXPECT_EQ(document, before);
    document.ListDraworder.clear();
    RebatirDraworder(document);
    EXPECT_EQ(document.DrawOrder, before.DrawOrder) << "an empty list changes nothing";
}

TEST(DrawOrder, AFullDocumentIsSortedInNoTime) {
    Document document;
    for (int i = kMaxObjects; i > 0; --i) {
        document.ListDraworder.push_back(drawOrderEntry({i % 97, i * 31 % 0x600, i % 32}));
    }
    const auto start = std::chrono::steady_clock::now();
    RebatirDraworder(document);
    // A tenth of a second here; all pairs would be half a billion comparisons.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    EXPECT_TRUE(std::is_sorted(document.DrawOrder.begin(), document.DrawOrder.end(),
                               [](const DrawOrderItem& a, const DrawOrderItem& b) {
                                   return std::tie(a.level, a.type, a.subtype) <
                                          std::tie(b.level, b.type, b.subtype);
                               }));
    EXPECT_EQ(document.ListDraworder.size(), static_cast<std::size_t>(kMaxObjects));
}

}  // namespace
}  // namespace quillmark
