#include <gtest/gtest.h>

#include <cstdlib>

#include "core/checks.h"
#include "core/clock.h"
#include "core/settings.h"
#include "support/scripted_dialogues.h"

namespace quillmark {
namespace {

TEST(Checks, TypedFieldsAreRefusedInTheirOwnWords) {
    struct Check {
        int (*check)(const std::string&, Dialogues&, const Traduction&);
        std::vector<std::string> legal;
        std::vector<std::string> refused;
        std::string message;
        std::string title;
    };
    const std::vector<Check> checks{
        {ControleType,
         {"0", "7F", "7f", "100", "17F", "00a"},
         {"80", "FF", "180", "", "xyz", "1g", "-1", "0x10", "FFFFFFFFFF"},
         "Il faut rentrer une valeur héxadécimale  comprise entre 0x00 et 0x7F ou entre 0x100 et "
         "0x17F",
         "Erreur de saisie dans le champ  \"Type\""},
        {ControleSubType,
         {"0", "1F", "00"},
         {"20", "", "-1", "z"},
         "Il faut rentrer une valeur héxadécimale  comprise entre 0x00 et 0x1F",
         "Erreur de saisie dans le champ  \"SubType\""},
        {ControleDraworder,
         {"1", "12", "2147483647"},
         {"", "0", "-3", "a", "2b", "2147483648"},
         "Il faut rentrer un nombre entier supérieur à 0",
         "Erreur de saisie dans le champ  \"Draworder\""},
    };
    const Traduction french;
    for (const Check& check : checks) {
        testing::ScriptedDialogues dialogues;
        for (const auto& text : check.legal) {
            EXPECT_EQ(check.check(text, dialogues, french), -1) << text;
        }
        EXPECT_TRUE(dialogues.shown.empty());
        for (const auto& text : check.refused) {
            EXPECT_EQ(check.check(text, dialogues, french), 0) << text;
        }
        ASSERT_EQ(dialogues.shown.size(), check.refused.size());
        EXPECT_EQ(dialogues.shown[0].message, check.message);
        EXPECT_EQ(dialogues.shown[0].titre, check.title);
    }
}

TEST(Settings, BooleansAreReadInAnySpelling) {
    MemorySettings store;
    EXPECT_TRUE(readTextSettings(store).FormatPOI);
    EXPECT_TRUE(readTextSettings(store).EcrireTrueColors);
    for (const char* yes : {"True", "VRAI", "yes", "oui", "-1", "1", " 2.5 "}) {
        store.write("Paramètres", "formatpoi", yes);
        EXPECT_TRUE(readBoolean(store, "Paramètres", "FormatPOI", false)) << yes;
    }
    for (const char* no : {"False", "faux", "No", "non", "0", "0.0"}) {
        store.write("Paramètres", "FORMATPOI", no);
        EXPECT_FALSE(readBoolean(store, "Paramètres", "FormatPOI", true)) << no;
    }
    for (const char* neither : {"", "  ", "perhaps", "1 or 2", "nan"}) {
        store.write("Paramètres", "FormatPOI", neither);
        EXPECT_TRUE(readBoolean(store, "Paramètres", "FormatPOI", true)) << neither;
        EXPECT_FALSE(readBoolean(store, "Paramètres", "FormatPOI", false)) << neither;
    }
    store.write("Paramètres", "FormatPOI", "0");
    store.write("Paramètres", "MasquerTextePOI", "1");
    EXPECT_FALSE(readTextSettings(store).FormatPOI);
    EXPECT_FALSE(readTextSettings(store).EcrireTrueColors);
    EXPECT_EQ(store.read("Affichage", "FormatPOI"), std::nullopt);
}

TEST(Clock, TheFixedMomentIsTakenAsUtcAndNonsenseIsNot) {
    const char* old = std::getenv("SOURCE_DATE_EPOCH");
    const std::string before = old == nullptr ? "" : old;
    const auto at = [](const char* seconds) {
        ::setenv("SOURCE_DATE_EPOCH", seconds, 1);
        return currentDateTime();
    };
    EXPECT_EQ(at("0"), (DateTime{1970, 1, 1, 0, 0, 0}));
    EXPECT_EQ(at("951827696"), (DateTime{2000, 2, 29, 12, 34, 56}));
    EXPECT_EQ(at("4294967296"), (DateTime{2106, 2, 7, 6, 28, 16}));
    for (const char* nonsense : {"", "today", "12x", "-5", "99999999999999999999"}) {
        EXPECT_GE(at(nonsense).year, 2024) << nonsense;
    }
    if (old == nullptr) {
        ::unsetenv("SOURCE_DATE_EPOCH");
    } else {
        ::setenv("SOURCE_DATE_EPOCH", before.c_str(), 1);
    }
}

}  // namespace
}  // namespace quillmark
