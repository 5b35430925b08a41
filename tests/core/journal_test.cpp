#include "core/journal.h"

#include <gtest/gtest.h>

#include "core/translation.h"

namespace quillmark {
namespace {

TEST(Journal, BinaryEntriesAreShownNewestFirstAndLinesOfATextInTheirOrder) {
    Journal binary;
    binary.error("first");
    binary.warning("careful", "POI 0x001");
    binary.error("\r\nsecond");
    EXPECT_EQ(binary.JournalErreurs(), "\r\nsecond\r\nfirst");
    EXPECT_EQ(binary.JournalAvertissements(), "\r\ncareful");

    Journal text;
    text.error("line 7", "", 7);
    text.error("line 2, one", "", 2);
    text.error("line 2, two", "", 2);
    EXPECT_EQ(text.JournalErreurs(), "\r\nline 2, one\r\nline 2, two\r\nline 7");
    EXPECT_FALSE(text.AvertissementFlag());

    text.append(binary);
    text.append(text);
    EXPECT_EQ(text.errorCount(), 10);
    EXPECT_EQ(text.warningCount(), 2);
    EXPECT_TRUE(
        text.JournalErreurs().starts_with("\r\nsecond\r\nfirst\r\nsecond\r\nfirst\r\nline 2"));
    text.clear();
    EXPECT_EQ(text.errorCount() + text.warningCount(), 0);
}

TEST(Journal, ComposesOneTextWithErrorsBeforeWarnings) {
    const std::string rule(150, '-');
    const std::string errors =
        rule + "\r\nErreurs rencontrées dans le fichier\r\n" + rule + "\r\nbroken\r\n\r\n";
    const std::string warnings = "\r\n" + rule + "\r\nAvertissements\r\n" + rule + "\r\ncareful";
    for (const bool error : {false, true}) {
        for (const bool warning : {false, true}) {
            Journal journal;
            if (warning) {
                journal.warning("careful");
            }
            if (error) {
                journal.error("broken");
            }
            EXPECT_EQ(composeJournal({&journal}, "/maps/a.typ", Traduction()),
                      "/maps/a.typ\r\n\r\n" + (error ? errors : std::string()) +
                          (warning ? warnings : std::string()));
        }
    }
}

}  // namespace
}  // namespace quillmark
