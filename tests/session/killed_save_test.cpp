// A process that is ended within a save leaves the old file or the new one, never less.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/files.h"
#include "core/settings.h"
#include "session/session.h"
#include "support/generated_document.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"
#include "typ/writer.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using namespace testing;

constexpr int kNoTracing = 77;

// Runs `body` in a process of its own and ends that at the stop `last`: the kernel stops it at the
// beginning and the end of each of its calls. Returns the stops there were.
int stopsUntilKilled(int last, const std::function<void()>& body) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            ::_exit(kNoTracing);
        }
        ::raise(SIGSTOP);
        body();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    int stops = 0;
    while (WIFSTOPPED(status)) {
        if (stops == last) {
            ::kill(child, SIGKILL);
        } else {
            ++stops;
            ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        }
        ::waitpid(child, &status, 0);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == kNoTracing ? -1 : stops;
}

// The file of before and after differ in more than the time in the header.
Bytes withoutTime(Bytes file) {
    if (file.size() > 0x15 && file[2] == 'G') {
        std::fill_n(file.begin() + 0x0E, 7, std::uint8_t{0});
    }
    return file;
}

class KilledSave : public ::testing::Test {
  protected:
    // Kills saves of what is opened from `content` all along their way.
    void killAll(const std::string& name, const Bytes& content, std::deque<Answer> answers);

    TemporaryFolder folder;
    MemorySettings store;
    Settings settings{store};
    Traduction traduction;
    ImmediateTasks tasks;
    Profile types;
    int kills = 0;
};

void KilledSave::killAll(const std::string& name, const Bytes& content,
                         std::deque<Answer> answers) {
    SCOPED_TRACE(name);
    const fs::path file = folder.path() / name;
    const fs::path original = folder.path() / (name + "~");
    writePlain(file, content);
    const auto time = fs::last_write_time(file);

    TextBackups backups;
    ScriptedDialogues dialogues;
    Document document;
    Session session(document, {dialogues, tasks, settings, traduction,
                               [this]() -> const Profile& { return types; }, backups});
    session.ouvrir(file);
    session.edit({Change::What::header, {}, nullptr, {}},
                 [](Document& edited) { edited.FID = "1234"; });
    ASSERT_TRUE(session.changed());
    const bool damaged = session.facts().damaged;
    const auto save = [&] {
        dialogues.answers = answers;
        session.mnuEnregistrer_Click();
    };
    const auto restore = [&] {
        for (const auto& entry : fs::directory_iterator(folder.path())) {
            fs::remove(entry.path());
        }
        writePlain(file, content);
        fs::last_write_time(file, time);
    };

    const int all = stopsUntilKilled(-1, save);
    if (all < 0) {
        GTEST_SKIP() << "processes can't be stopped here";
    }
    const Bytes saved = withoutTime(readFile(file));
    ASSERT_NE(saved, withoutTime(content));
    int olds = 0;
    for (int at = 0; at < all; ++at, ++kills) {
        restore();
        stopsUntilKilled(at, save);
        const Bytes found = readFile(file);
        if (found == content) {
            ++olds;
        } else {
            ASSERT_EQ(withoutTime(found), saved) << "killed at " << at << " of " << all;
            EXPECT_EQ(fs::exists(original), damaged);
        }
        if (fs::exists(original)) {
            ASSERT_EQ(readFile(original), content) << "killed at " << at << " of " << all;
        }
    }
    EXPECT_GT(olds, 0);
    EXPECT_LT(olds, all) << "some came behind the change of names";
}

TEST_F(KilledSave, TheNameHoldsTheOldOrTheNewContent) {
    const Document document = generatedDocument(400);
    const Bytes typ = CreerTYP(document, {2024, 1, 2, 3, 4, 5}).file;
    killAll("a.typ", typ, {});
    killAll("b.typ", Bytes(typ.begin(), typ.end() - 40), {Answer::yes});
    killAll("c.txt",
            bytesOf("[_id]\r\nProductCode=1\r\nFID=5\r\nCodePage=1252\r\n[end]\r\n"
                    "[_polygon]\r\nType=0x7\r\nXpm=\"0 0 1 0\"\r\n\"1 c #112233\"\r\n[end]\r\n"),
            {});
    if (!IsSkipped()) {
        EXPECT_GE(kills, 50);
    }
}

}  // namespace
}  // namespace quillmark
