// A process that is ended within a save leaves the old file or the new one, never less.
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include "session_fixture.h"
#include "support/generated_document.h"
#include "typ/writer.h"

namespace quillmark {
namespace {

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

class KilledSave : public SessionTest {
  protected:
    // Kills saves of a file that was opened, about twenty times all along their way.
    void killAll(const std::string& name, const Bytes& content, const std::deque<Answer>& answers);

    int kills = 0;
};

void KilledSave::killAll(const std::string& name, const Bytes& content,
                         const std::deque<Answer>& answers) {
    SCOPED_TRACE(name);
    const auto file = path(name);
    const auto original = path(name + "~");
    writePlain(file, content);
    const auto time = std::filesystem::last_write_time(file);
    open(file);
    session.edit({Change::What::header, {}, nullptr, {}},
                 [](Document& edited) { edited.FID = "1234"; });
    const bool damaged = !session.facts().damagedFile.empty();
    const auto saveOnce = [&] {
        dialogues.answers = answers;
        save();
    };
    const int all = stopsUntilKilled(-1, saveOnce);
    if (all < 0) {
        GTEST_SKIP() << "processes can't be stopped here";
    }
    const Bytes saved = withoutTime(readFile(file));
    ASSERT_NE(saved, withoutTime(content));
    int olds = 0;
    int news = 0;
    for (int at = 0; at < all; at += (all + 19) / 20) {
        SCOPED_TRACE("killed at " + std::to_string(at) + " of " + std::to_string(all));
        std::filesystem::remove(original);
        writePlain(file, content);
        std::filesystem::last_write_time(file, time);
        stopsUntilKilled(at, saveOnce);
        const Bytes found = readFile(file);
        (found == content ? olds : news) += 1;
        ASSERT_TRUE(found == content || withoutTime(found) == saved);
        EXPECT_TRUE(found == content || std::filesystem::exists(original) == damaged);
        ASSERT_TRUE(!std::filesystem::exists(original) || readFile(original) == content);
    }
    EXPECT_TRUE(olds > 0 && news > 0) << olds << " before the change of names, " << news;
    kills += olds + news;
    dialogues.answers = {Answer::no};
    close();
}

TEST_F(KilledSave, TheNameHoldsTheOldOrTheNewContent) {
    const Bytes typ = CreerTYP(generatedDocument(400), {2024, 1, 2, 3, 4, 5}).file;
    killAll("a.typ", typ, {});
    killAll("b.typ", Bytes(typ.begin(), typ.end() - 40), {Answer::yes});
    killAll("c.txt", bytesOf("[_id]\r\nProductCode=1\r\nFID=5\r\nCodePage=1252\r\n[end]\r\n"), {});
    if (!IsSkipped()) {
        EXPECT_GE(kills, 50);
    }
}

}  // namespace
}  // namespace quillmark
