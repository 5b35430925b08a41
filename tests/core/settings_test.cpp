#include "core/settings_table.h"

namespace quillmark {
namespace {

TEST(Settings, LengthsAreTwips) {
    MemorySettings store;
    Settings settings(store);
    EXPECT_EQ(settings.pixels(keys::kLargeur), 961);
    EXPECT_EQ(settings.pixels(keys::kHauteur), 711);
    const std::vector<std::pair<std::string, int>> stored{
        {"14415", 961}, {"10665", 711},  {"200", 13},  {"14415,5", 961}, {"14415.5", 961},
        {"-15", -1},    {" 1500 ", 100}, {"abc", 961}, {"", 961},        {"15px", 961},
        {"nan", 961},   {"inf", 961},    {"1e9", 961}, {"1,5,5", 961},   {"99999999999999", 961}};
    for (const auto& [text, pixels] : stored) {
        settings.setText(keys::kLargeur, text);
        EXPECT_EQ(settings.pixels(keys::kLargeur), pixels) << text;
    }
    settings.setPixels(keys::kGauche, 13);
    EXPECT_EQ(settings.text(keys::kGauche), "195");
    EXPECT_EQ(settings.pixels(keys::kGauche), 13);
}

TEST(Settings, BooleansAreWrittenInTheirOwnForm) {
    MemorySettings store;
    Settings settings(store);
    for (const SettingKey& key :
         {keys::kTexteAuDemarrage, keys::kFormatPOI, keys::kApercu, keys::kListesObjets}) {
        settings.setBoolean(key, false);
        EXPECT_EQ(settings.text(key), "False") << key.key;
    }
    for (const SettingKey& key : {keys::kMajAuto, keys::kMasquerTextePOI, keys::kSauvegardeAuto}) {
        settings.setBoolean(key, true);
        EXPECT_EQ(settings.text(key), "1") << key.key;
    }
}

TEST(Settings, NumbersBeyondTheirBoundsAreTheDefault) {
    MemorySettings store;
    Settings settings(store);
    struct Bounds {
        SettingKey key;
        int low, high, defaut;
    };
    for (const Bounds& each :
         {Bounds{keys::kLabels, 1, 4, 1}, Bounds{keys::kTaillePolice, 4, 72, 8},
          Bounds{keys::kLangueLabels, 0, 54, 1}, Bounds{keys::kNombreLangues, 0, 4, 1}}) {
        for (const int number : {each.low - 1, each.low, each.high, each.high + 1}) {
            settings.setNumber(each.key, number);
            const bool within = number >= each.low && number <= each.high;
            EXPECT_EQ(settings.number(each.key), within ? number : each.defaut) << each.key.key;
        }
        for (const std::string text : {"", "x", "1.5", "99999999999"}) {
            settings.setText(each.key, text);
            EXPECT_EQ(settings.number(each.key), each.defaut) << each.key.key << ' ' << text;
        }
    }
    settings.setNumber(keys::kActiveRoutingColor[4], -2147483633);
    EXPECT_EQ(settings.number(keys::kActiveRoutingColor[4]), -2147483633);
}

}  // namespace
}  // namespace quillmark
