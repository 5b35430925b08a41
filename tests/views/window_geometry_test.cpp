#include "views/window_geometry.h"

#include <gtest/gtest.h>

#include <ostream>

namespace quillmark {

void PrintTo(const ScreenArea& r, std::ostream* out) {
    *out << r.left << ',' << r.top << ' ' << r.width << 'x' << r.height;
}

namespace {

const std::vector<ScreenArea> kTwoScreens{{0, 0, 1920, 1080}, {1920, 0, 1280, 1024}};

ScreenArea placed(const ScreenArea& stored, const std::vector<ScreenArea>& screens) {
    MemorySettings store;
    Settings settings(store);
    settings.setPixels(keys::kGauche, stored.left);
    settings.setPixels(keys::kDessus, stored.top);
    settings.setPixels(keys::kLargeur, stored.width);
    settings.setPixels(keys::kHauteur, stored.height);
    return startGeometry(settings, screens).normal;
}

TEST(WindowGeometry, FirstStartFitsTheScreen) {
    MemorySettings store;
    const Settings settings(store);
    const auto first = [&](const ScreenArea& screen) {
        return startGeometry(settings, {screen}).normal;
    };
    EXPECT_EQ(first({0, 0, 1920, 1080}), (ScreenArea{13, 13, 961, 711}));
    EXPECT_EQ(first({0, 0, 961, 711}), (ScreenArea{13, 13, 961, 711}));
    EXPECT_EQ(first({0, 0, 1024, 600}), (ScreenArea{13, 13, 819, 500}));
    // Under a panel or on another screen's place the title bar couldn't be had.
    EXPECT_EQ(first({0, 40, 1920, 1040}), (ScreenArea{479, 204, 961, 711}));
    EXPECT_FALSE(startGeometry(settings, {}).maximised);
}

TEST(WindowGeometry, StoredPlaceStaysWhereItCanBeReached) {
    struct Case {
        ScreenArea stored, expected;
    };
    const std::vector<Case> cases{
        {{100, 50, 1000, 700}, {100, 50, 1000, 700}},
        {{2000, 10, 1000, 700}, {2000, 10, 1000, 700}},
        {{100, 50, 100, 100}, {100, 50, 800, 500}},
        {{2000, 10, 5000, 5000}, {2000, 10, 1280, 1024}},
        // 100 by 30 pixels of the title bar, one less in each direction.
        {{-900, 0, 1000, 700}, {-900, 0, 1000, 700}},
        {{-901, 0, 1000, 700}, {460, 190, 1000, 700}},
        {{3100, 994, 1000, 700}, {3100, 994, 1000, 700}},
        {{3101, 0, 1000, 700}, {460, 190, 1000, 700}},
        {{3000, 995, 1000, 700}, {460, 190, 1000, 700}},
        {{0, -1, 1000, 700}, {460, 190, 1000, 700}},
        // A narrow window is widened before it is judged.
        {{-700, 0, 90, 600}, {-700, 0, 800, 600}},
        {{1250, 0, 90, 600}, {1250, 0, 800, 600}},
        {{600000, -600000, 1000, 700}, {460, 190, 1000, 700}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(placed(each.stored, kTwoScreens), each.expected)
            << ::testing::PrintToString(each.stored);
    }
    EXPECT_EQ(placed({0, 0, 1000, 700}, {{0, 0, 640, 480}}), (ScreenArea{0, 0, 640, 480}));
}

TEST(WindowGeometry, MaximisedWindowKeepsItsNormalSize) {
    MemorySettings store;
    Settings settings(store);
    storeGeometry(settings, {false, ScreenArea{100, 50, 1000, 700}, true});
    storeGeometry(settings, {true, std::nullopt, true});
    EXPECT_EQ(settings.text(keys::kWindowState), "2");
    WindowGeometry start = startGeometry(settings, kTwoScreens);
    EXPECT_TRUE(start.maximised);
    EXPECT_EQ(start.normal, (ScreenArea{100, 50, 1000, 700}));

    // An icon keeps nothing but that it isn't maximised; without a place the old one stays.
    storeGeometry(settings, {false, std::nullopt, true});
    storeGeometry(settings, {false, ScreenArea{0, 0, 1100, 800}, false});
    start = startGeometry(settings, kTwoScreens);
    EXPECT_FALSE(start.maximised);
    EXPECT_EQ(start.normal, (ScreenArea{100, 50, 1100, 800}));

    for (const std::string state : {"1", "3", "-1", "x", ""}) {
        settings.setText(keys::kWindowState, state);
        EXPECT_FALSE(startGeometry(settings, kTwoScreens).maximised) << state;
    }
}

}  // namespace
}  // namespace quillmark
