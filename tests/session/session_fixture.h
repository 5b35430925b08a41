// A session without a window: its services, a text control of strings, and tasks that can be
// held back.
#pragma once

#include <gtest/gtest.h>

#include <deque>

#include "core/files.h"
#include "core/paths.h"
#include "core/settings.h"
#include "session/session.h"
#include "support/fake_text_pane.h"
#include "support/scripted_dialogues.h"
#include "support/test_files.h"

namespace quillmark::testing {

// Does work at once until told to hold it; what is held ends or is cancelled one by one.
class HeldTasks : public ImmediateTasks {
  public:
    bool hold = false;
    std::deque<Task> held;

    void run(Task task) override;
    void finish();  // the oldest, with all that follows from it
    void cancel();  // the oldest, as if its work had never begun
};

class SessionTest : public ::testing::Test {
  protected:
    // Backups go to a file unless another process is thought to own it.
    explicit SessionTest(bool ownsBackupFile = true);

    // Two polygons out of the order of a file, one of them with a label, a line, a point and a
    // group of two extra points.
    [[nodiscard]] static Document sample();
    [[nodiscard]] std::filesystem::path path(const std::string& name) const;
    // Writes the document as a TYP file.
    std::filesystem::path typFile(const std::string& name, const Document& content = sample());
    std::filesystem::path textFile(const std::string& name, std::string_view content);
    void open(const std::filesystem::path& file);
    // An edit that has nothing to do with what is tested.
    void change();

    // Whether a command ended well; -1 while it hasn't ended.
    using Command = std::function<void(Session::Then)>;
    static std::shared_ptr<int> start(const Command& command);
    static int run(const Command& command) { return *start(command); }
    int save();
    int close();
    [[nodiscard]] std::string firstLabel() const;
    [[nodiscard]] static std::string labelOf(const Polygone& polygon, int CodePage);
    [[nodiscard]] std::string lastMessage() const;

    TemporaryFolder folder;
    MemorySettings store;
    Settings settings{store};
    Traduction traduction;
    ScriptedDialogues dialogues;
    HeldTasks tasks;
    TextBackups backups;
    Profile types;
    Document document;
    FakeTextPane pane;
    Session session;
    std::filesystem::path backupFile = folder.path() / "own" / "Quillmark.save";
    std::vector<Change> changes;
    std::vector<std::string> told;

  private:
    std::vector<Connection> observing_;
};

}  // namespace quillmark::testing
