#include "bitmap/reduce_colours.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "bitmap/garmin_palette.h"
#include "support/colour_checks.h"

namespace quillmark {
namespace {

using Colours = std::vector<Couleur>;

void reducePlainly(Colours& colours, int n) {
    while (static_cast<int>(colours.size()) > n) {
        colours.erase(colours.begin() + static_cast<std::ptrdiff_t>(IndexPairePlusProche(colours)));
    }
}

Colours randomColours(std::mt19937& random, std::size_t count, Couleur mask) {
    Colours colours(count);
    for (Couleur& colour : colours) {
        colour = static_cast<Couleur>(random() & 0xFFFFFFU) & mask;
    }
    return colours;
}

TEST(ReduceColours, KnownLists) {
    struct Row {
        Colours colours;
        int n;
        Colours expected;
    };
    const Couleur white = 0xFFFFFF;
    const std::vector<Row> rows{
        {{0, 0x010101, white, 0xFEFEFE, 0x808080}, 3, {0x010101, 0xFEFEFE, 0x808080}},
        {{0, white}, 1, {white}},
        {{0, white}, 0, {}},
        {{0, white}, -1, {}},
        {{0, 3, 5, 6}, 2, {3, 6}},
        {{7, 7, 7, 7}, 2, {7, 7}},
        {{0, 1}, 2, {0, 1}},
        {{}, 3, {}}};
    for (const Row& row : rows) {
        Colours colours = row.colours;
        ReduireCouleurs(colours, row.n);
        EXPECT_EQ(colours, row.expected) << row.n;
    }
    EXPECT_EQ(IndexPairePlusProche(Colours{0, white}), 0U);
    EXPECT_EQ(IndexPairePlusProche(Colours{9, 7, 0, 7}), 1U);
    EXPECT_EQ(IndexPlusProche(2, Colours{9, 1, 3}), 1U) << "the lowest of two equally near";
    EXPECT_EQ(IndexPlusProche(2, Colours{}), 0U);
}

TEST(ReduceColours, GivesWhatThePlainFormGives) {
    std::mt19937 random(41);
    // Few different colours have many equal distances, where the order decides.
    for (const Couleur mask : {0xFFFFFF, 0xC0C0C0, 0x808080, 0x00000F, 0x000000}) {
        for (int round = 0; round < 40; ++round) {
            const Colours colours = randomColours(random, 1 + random() % 50, mask);
            const int n = static_cast<int>(random() % (colours.size() + 1));
            Colours plain = colours;
            reducePlainly(plain, n);
            Colours reduced = colours;
            ReduireCouleurs(reduced, n);
            ASSERT_EQ(reduced, plain) << mask << ", " << n;
        }
    }
}

TEST(ReduceColours, APhotoTakesNoTimeThatPeopleNotice) {
    std::mt19937 random(42);
    Colours photo = randomColours(random, 16384, 0xFFFFFF);
    Colours ramps(4096);  // smooth, with equal distances everywhere
    for (std::size_t i = 0; i < ramps.size(); ++i) {
        ramps[i] = couleurFromRgb(static_cast<std::uint8_t>(i % 64),
                                  static_cast<std::uint8_t>(i / 64), 100);
    }
    for (Colours* colours : {&photo, &ramps}) {
        const auto start = std::chrono::steady_clock::now();
        ReduireCouleurs(*colours, 15);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        EXPECT_EQ(colours->size(), 15U);
        // The plain form takes hours.
        EXPECT_LT(taken.count(), QUILLMARK_MEASURES ? 3.0 : 60.0);
    }
}

}  // namespace
}  // namespace quillmark
