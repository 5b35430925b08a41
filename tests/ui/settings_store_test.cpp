#include <QTextStream>

#include "core/files.h"
#include "core/settings_table.h"
#include "support/test_files.h"
#include "ui/qt_settings_store.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

using testing::TemporaryFolder;

class SettingsStoreTest : public ::testing::Test {
  protected:
    [[nodiscard]] std::unique_ptr<QtSettingsStore> open() const {
        return std::make_unique<QtSettingsStore>(fileSettings(toQt(file_.string())));
    }
    void lay(std::string_view content) const {
        testing::writePlain(file_, testing::bytesOf(content));
    }
    [[nodiscard]] std::string content() const {
        const Bytes bytes = readFile(file_);
        return {bytes.begin(), bytes.end()};
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Quillmark.ini";
};

TEST_F(SettingsStoreTest, FileIsReadableAndGivesEveryValueBack) {
    const std::vector<std::string> values{"",        "a,b;c=d#e", " outer ",  "\"quoted\"",
                                          "a\\nb\\", "\r\n",      "/été/Ω/𝄞", "@Invalid()",
                                          "[x]",     "\"",        "\\\"",     "%E8"};
    {
        const auto store = open();
        store->write("Paramètres", "Langue", "Español");
        for (std::size_t i = 0; i < values.size(); ++i) {
            store->write("MRUFiles", std::to_string(i), values[i]);
        }
    }
    const auto again = open();
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(again->read("MRUFiles", std::to_string(i)), values[i]);
    }
    EXPECT_NE(content().find("[Paramètres]\nLangue=Español\n"), std::string::npos) << content();
}

TEST_F(SettingsStoreTest, ExactSpellingCountsFirstAndAWriteLeavesOne) {
    lay("\xEF\xBB\xBF[paramÈtres]\r\nTEXT_at_startup = False\r\n; Langue=x\r\n"
        "[Paramètres]\r\nlangue=b\r\nLANGUE=c\r\nLangue=a\r\nLangue=d\r\nno value\r\n");
    const auto store = open();
    Settings settings(*store);
    EXPECT_EQ(settings.text(keys::kLangue), "a");
    EXPECT_FALSE(settings.boolean(keys::kTexteAuDemarrage));
    EXPECT_FALSE(settings.isStored(keys::kMajAuto));
    settings.setText(keys::kLangue, "e");
    settings.setBoolean(keys::kTexteAuDemarrage, true);
    EXPECT_TRUE(settings.isStored(keys::kLangue));  // brings the file up to date
    EXPECT_EQ(content(), "[Paramètres]\nLangue=e\nText_At_StartUP=True\n");
}

TEST_F(SettingsStoreTest, ProcessesSeeWhatOthersWrote) {
    const auto first = open();
    const auto second = open();
    first->write("MRUFiles", "1", "a");
    EXPECT_EQ(first->read("MRUFiles", "1"), "a");
    EXPECT_EQ(second->read("MRUFiles", "1"), "a");
    second->write("MRUFiles", "2", "b");
    EXPECT_EQ(second->read("MRUFiles", "2"), "b");
    EXPECT_EQ(first->read("MRUFiles", "2"), "b");
}

TEST_F(SettingsStoreTest, StoreThatCannotBeWrittenIsNoError) {
    lay("a file where a folder is wanted");
    QtSettingsStore store(fileSettings(toQt((file_ / "Quillmark.ini").string())));
    EXPECT_EQ(store.read("Paramètres", "Langue"), std::nullopt);
    store.write("Paramètres", "Langue", "Deutsch");
    EXPECT_EQ(store.read("Paramètres", "langue"), "Deutsch");
}

}  // namespace
}  // namespace quillmark
