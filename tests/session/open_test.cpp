#include "session/open.h"

#include <gtest/gtest.h>

#include "support/test_files.h"
#include "text/labels.h"

namespace quillmark {
namespace {

using testing::bytesOf;

OpenedFile openText(std::string_view text, int codePage = 0) {
    return openBytes(bytesOf(text), true, TextFileEncoding::automatic, Traduction(), codePage);
}

std::string firstLabel(const Document& document) {
    const auto labels = decodeStrings(document.Polygone.at(0).Strings, document.CodePage);
    return labels.empty() ? "" : labels[0].text;
}

std::string polygon(const std::string& label) {
    return "[_polygon]\nType=0x50\nString1=0x01," + label +
           "\nXpm=\"0 0 1 0\"\n\"1 c #107020\"\n[end]\n";
}

TEST(Open, TheExtensionDecidesWhatAFileIs) {
    const testing::TemporaryFolder folder;
    for (const auto& [name, isText] : {std::pair{"style.TxT", true},
                                       {"style.typ", false},
                                       {"style.txt.bak", false},
                                       {"txt", false}}) {
        testing::writePlain(folder.path() / name, bytesOf(polygon("a")));
        const OpenedFile opened =
            openFile(folder.path() / name, TextFileEncoding::automatic, Traduction());
        EXPECT_EQ(opened.OuvertEnTexte, isText) << name;
        EXPECT_EQ(opened.document.Polygone.size(), isText ? 1U : 0U) << name;
        EXPECT_EQ(opened.fileSize, polygon("a").size()) << name;
    }
}

TEST(Open, ATextIsReadAndItsLabelsHeldInTheRightPages) {
    struct Case {
        const char* what;
        std::string text;
        int codePage;  // asked for
        int expectedPage;
        const char* expectedLabel;
        bool names, utf8;
    };
    const std::string id = "[_id]\nCodePage=1251\n[end]\n";
    const std::vector<Case> cases{
        {"no page", polygon("For\xEAt"), 0, 1252, "Forêt", false, false},
        {"named page", id + polygon("\xCB\xE5\xF1"), 0, 1251, "Лес", true, false},
        {"UTF-8 for a named page", id + polygon("Лес"), 0, 1251, "Лес", true, true},
        {"page named behind the labels", polygon("\xCB\xE5\xF1") + id, 0, 1251, "Лес", true, false},
        {"page asked for, none named", polygon("\xCB\xE5\xF1"), 1251, 1251, "Лес", false, false},
        {"page asked for, another named", id + polygon("\xCB\xE5\xF1"), 65001, 65001, "Лес", true,
         false},
        {"UTF-8 and a page asked for", "\t[_ID]\n\tcodepage=1252\n[end]\n" + polygon("Лес"), 1251,
         1251, "Лес", true, true},
        {"a page this system lacks", "[_id]\nCodePage=4711\n[end]\n" + polygon("For\xEAt"), 0, 1252,
         "Forêt", true, false},
    };
    for (const Case& c : cases) {
        const OpenedFile opened = openText(c.text, c.codePage);
        EXPECT_EQ(opened.document.CodePage, c.expectedPage) << c.what;
        EXPECT_EQ(firstLabel(opened.document), c.expectedLabel) << c.what;
        EXPECT_EQ(opened.namesCodePage, c.names) << c.what;
        EXPECT_EQ(opened.utf8, c.utf8) << c.what;
    }
    // Lines keep their numbers when the page is asked for.
    const std::string text = "[_id]\nCodePage=1252\nWeather=fine\n[end]\n" + polygon("a");
    EXPECT_EQ(openText(text, 1250).skippedLines, std::vector<int>{3});
}

}  // namespace
}  // namespace quillmark
