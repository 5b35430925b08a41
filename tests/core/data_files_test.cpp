#include <gtest/gtest.h>

#include <map>

#include "core/profile.h"
#include "support/test_files.h"

namespace quillmark {
namespace {

std::string firstPart(const std::string& value) {
    return value.substr(0, value.find('/'));
}

// "0x", a type and a subtype as the editors accept them: 0x1f is the highest subtype.
bool isTypeKey(const std::string& key) {
    return key.size() == 7 && key.rfind("0x", 0) == 0 && (key[2] == '0' || key[2] == '1') &&
           key.find_first_not_of("0123456789abcdef", 2) == std::string::npos &&
           (key[5] == '0' || key[5] == '1');
}

// A name or a type that stood twice would lead elsewhere on the way back.
TEST(DataFiles, TypeNamesLeadToATypeAndBack) {
    const auto names = Profile::load(testing::dataFolder() / "MPCTypes.txt");
    const std::map<std::string, std::size_t> leastKeys{
        {"Polygons", 200}, {"Polylines", 150}, {"POI", 600}};
    for (const auto& [section, least] : leastKeys) {
        const std::string back = section + "2";
        EXPECT_GE(names.keys(back).size(), least) << back;

        for (const auto& name : names.keys(back)) {
            EXPECT_EQ(name.find_first_of("/;"), std::string::npos) << name;
            const std::string type = firstPart(names.find(back, name).value_or(""));
            EXPECT_EQ(firstPart(names.find(section, type).value_or("")), name) << type;
        }

        for (const auto& type : names.keys(section)) {
            EXPECT_TRUE(isTypeKey(type)) << type;
            // All subtypes of a type may share a name; the way back then gives the first of them.
            const std::string name = firstPart(names.find(section, type).value_or(""));
            const std::string first = firstPart(names.find(back, name).value_or(""));
            EXPECT_EQ(first.substr(0, 5), type.substr(0, 5)) << name;
            EXPECT_LE(first, type) << name;
        }
    }
}

TEST(DataFiles, EveryKnownFidNamesItsMaps) {
    const auto maps = Profile::load(testing::dataFolder() / "MapId.txt");
    const auto fids = maps.keys("Normal");
    EXPECT_GE(fids.size(), 200U);
    for (const auto& fid : fids) {
        EXPECT_EQ(fid.find_first_not_of("0123456789"), std::string::npos) << fid;
        EXPECT_TRUE(fid.size() <= 5 && std::stoi(fid) >= 1 && std::stoi(fid) <= 65535) << fid;
        const std::string name = "%" + maps.find("Normal", fid).value_or("") + "%";
        EXPECT_EQ(name.find("%%"), std::string::npos) << fid << " has an empty name";
    }
}

}  // namespace
}  // namespace quillmark
