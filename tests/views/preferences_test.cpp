#include "views/preferences.h"

#include <gtest/gtest.h>

#include "support/fake_text_pane.h"
#include "support/scripted_dialogues.h"

namespace quillmark {
namespace {

// Keeps the work until it is told to end.
struct HeldTask : ImmediateTasks {
    std::optional<Task> held;
    void run(Task task) override { held = std::move(task); }
    void finish() { ImmediateTasks::run(*std::exchange(held, std::nullopt)); }
};

struct PreferencesTest : ::testing::Test {
    MemorySettings store;
    Settings settings{store};
    Traduction french;
    testing::ScriptedDialogues dialogues;
    HeldTask tasks;
    TextBackups backups;
    Profile types;
    Document document;
    testing::FakeTextPane pane;
    Session session{document,
                    {dialogues, tasks, settings, french,
                     [this]() -> const Profile& { return types; }, backups}};
    int ends = 0;
    std::optional<Preferences::Effects> effects;

    void keep(const Preferences& choices) {
        choices.cmdOK_Click(session, [this](const std::optional<Preferences::Effects>& found) {
            ++ends;
            effects = found;
        });
    }
    // Nothing but what `choose` sets is chosen. "sheet ", "text " or nothing.
    std::string effectsOf(const std::function<void(Preferences&)>& choose) {
        Preferences choices(settings);
        choose(choices);
        keep(choices);
        return effects
                   ? std::string(effects->sheet ? "sheet " : "") + (effects->text ? "text " : "")
                   : "undone";
    }
};

TEST_F(PreferencesTest, StoresWhatIsChosenAndTellsWhatItChanges) {
    EXPECT_EQ(effectsOf([](Preferences& /*p*/) {}), "");
    struct Row {
        SettingKey key;
        std::function<void(Preferences&)> choose;
        std::string stored;
        std::string changes;
    };
    for (const Row& row : std::vector<Row>{
             {keys::kTexteAuDemarrage, [](auto& p) { p.optOuvertureTexte = false; }, "False", ""},
             {keys::kPolice, [](auto& p) { p.cbbPolice = "Not There"; }, "Not There", "sheet "},
             {keys::kPolice, [](auto& p) { p.cbbPolice.clear(); }, "MS Sans Serif", "sheet "},
             {keys::kLabels, [](auto& p) { p.cbbLabels = 3; }, "4", "sheet "},
             {keys::kLabels, [](auto& p) { p.cbbLabels = -1; }, "1", "sheet "},
             {keys::kLangueLabels, [](auto& p) { p.cbbLangues = 54; }, "54", "sheet "},
             {keys::kLangueLabels, [](auto& p) { p.cbbLangues = -1; }, "1", "sheet "},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille = " 72 "; }, "72", "sheet "},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille.clear(); }, "8", "sheet "},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille = "4"; }, "4", "sheet "},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille = "3"; }, "8", "sheet "},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille = "73"; }, "8", ""},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille = "900"; }, "8", ""},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille = "-3"; }, "8", ""},
             {keys::kTaillePolice, [](auto& p) { p.txtTaille = "abc"; }, "8", ""},
             {keys::kActiveRoutingColor[3], [](auto& p) { p.lblActiveRoutingColor[3] = 7; }, "7",
              "sheet "},
             {keys::kMajAuto, [](auto& p) { p.chkUpdate = true; }, "1", ""},
             {keys::kFormatPOI, [](auto& p) { p.optFormatPOIDeux = false; }, "False", "text "},
             {keys::kMasquerTextePOI, [](auto& p) { p.chkMasquerTextePOI = true; }, "1",
              "text "}}) {
        EXPECT_EQ(effectsOf(row.choose), row.changes) << row.key.key << row.stored;
        EXPECT_EQ(settings.text(row.key), row.stored) << row.key.key;
    }
    // What was stored is what shows.
    const Preferences shown(settings);
    EXPECT_FALSE(shown.optOuvertureTexte);
    EXPECT_FALSE(shown.optFormatPOIDeux);
    EXPECT_TRUE(shown.chkMasquerTextePOI);
    EXPECT_TRUE(shown.chkUpdate);
    EXPECT_EQ(shown.lblActiveRoutingColor[3], 7);
}

TEST_F(PreferencesTest, HiddenLanguagesAreForgotten) {
    effectsOf([](Preferences& p) {
        p.cbbNombre = 4;
        p.cbbLangue = {4, 3, -1, 54};
    });
    Preferences again(settings);
    EXPECT_EQ(again.cbbLangue, (std::array{4, 3, 1, 54}));
    again.cbbNombre = 1;
    again.cbbLangue = {9, 9, 9, 9};
    again.affiche_langue();
    EXPECT_EQ(again.cbbLangue, (std::array{4, 3, 1, 54})) << "as stored";
    keep(again);
    EXPECT_EQ(Preferences(settings).cbbLangue, (std::array{4, 1, 1, 1}));
    EXPECT_EQ(settings.number(keys::kNombreLangues), 1);
}

TEST_F(PreferencesTest, AColourThatCantBeReadShowsAnotherAndStaysUntilItIsChosen) {
    const SettingKey& key = keys::kActiveRoutingColor[4];
    EXPECT_EQ(Preferences(settings).lblActiveRoutingColor[4], kActivity5InPreferences);
    EXPECT_EQ(effectsOf([](Preferences& /*p*/) {}), "");
    EXPECT_FALSE(settings.isStored(key));
    for (const auto& [stored, shown] :
         std::vector<std::pair<std::string, std::int32_t>>{{"magenta", kActivity5InPreferences},
                                                           {"", kActivity5InPreferences},
                                                           {"16711935", 16711935},
                                                           {"-2147483643", -2147483643}}) {
        settings.setText(key, stored);
        EXPECT_EQ(Preferences(settings).lblActiveRoutingColor[4], shown) << stored;
        EXPECT_EQ(effectsOf([](Preferences& /*p*/) {}), "") << stored;
        EXPECT_EQ(settings.text(key), stored);
    }
}

TEST_F(PreferencesTest, AnotherFormOfTextAsksAboutEditsFirst) {
    session.setTextPane(&pane);
    session.mnuNouveau_Click();
    const std::string untouched = pane.shown;
    const auto choose = [&] {
        pane.typed = untouched + "; typed\r\n";
        // As a window does that is gone by the time of the answer.
        const auto choices = std::make_unique<Preferences>(settings);
        choices->optFormatPOIDeux = false;
        choices->cbbLabels = 2;
        ends = 0;
        keep(*choices);
    };
    dialogues.answers = {Answer::cancel};
    choose();
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(effects);
    EXPECT_EQ(settings.number(keys::kLabels), 1);
    EXPECT_TRUE(session.textEdited());

    dialogues.answers = {Answer::yes};
    choose();
    ASSERT_TRUE(tasks.held) << "the edits are applied behind";
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(settings.boolean(keys::kFormatPOI));
    tasks.finish();
    EXPECT_EQ(ends, 1);
    ASSERT_TRUE(effects);
    EXPECT_TRUE(effects->text && effects->sheet);
    EXPECT_FALSE(settings.boolean(keys::kFormatPOI));
    EXPECT_EQ(settings.number(keys::kLabels), 3);

    settings.setBoolean(keys::kFormatPOI, true);
    dialogues.answers = {Answer::no};
    choose();
    EXPECT_FALSE(session.textEdited());
    EXPECT_FALSE(settings.boolean(keys::kFormatPOI));
}

}  // namespace
}  // namespace quillmark
