#include "session_fixture.h"

#include "text/labels.h"
#include "text/parser.h"
#include "typ/writer.h"

namespace quillmark::testing {

void HeldTasks::run(Task task) {
    if (hold) {
        held.push_back(std::move(task));
    } else {
        ImmediateTasks::run(std::move(task));
    }
}

void HeldTasks::finish() {
    Task task = std::move(held.front());
    held.pop_front();
    ImmediateTasks::run(std::move(task));
}

void HeldTasks::cancel() {
    Task task = std::move(held.front());
    held.pop_front();
    EXPECT_TRUE(task.cancellable) << task.label;
    task.done({true, nullptr});
}

SessionTest::SessionTest(bool ownsBackupFile)
    : session(document, {dialogues, tasks, settings, traduction,
                         [this]() -> const Profile& { return types; }, backups,
                         ownsBackupFile ? folder.path() / "own" / "Quillmark.save"
                                        : std::filesystem::path()}) {
    session.setTextPane(&pane);
    observing_.push_back(session.documentChanged.connect([this](const Change& change) {
        EXPECT_TRUE(session.busy()) << "changes come from commands";
        changes.push_back(change);
    }));
    observing_.push_back(
        session.told.connect([this](const std::string& line) { told.push_back(line); }));
}

Document SessionTest::sample() {
    Document sample = ouvrirtxt(
                          "[_id]\nProductCode=1\nFID=5555\nCodePage=1252\n[end]\n"
                          "[_polygon]\nType=0x50\nString1=0x01,For\u00EAt\n"
                          "Xpm=\"0 0 1 0\"\n\"1 c #107020\"\n[end]\n"
                          "[_polygon]\nType=0x10\nXpm=\"0 0 1 0\"\n\"1 c #203040\"\n[end]\n"
                          "[_line]\nType=0x01\nLineWidth=2\nXpm=\"0 0 1 0\"\n"
                          "\"1 c #FF0000\"\n[end]\n"
                          "[_point]\nType=0x2a\nSubType=0x01\nDayXpm=\"1 1 1 1\"\n"
                          "\"a c #00FF00\"\n\"a\"\n[end]\n",
                          {}, {}, nullptr, Traduction())
                          .document;
    sample.TailleEntete = 174;
    POI member = sample.POI.at(0);
    member.Type.clear();
    member.SubType.clear();
    sample.ExtraPOI.push_back({12, 0, 2, {member, member}});
    return sample;
}

std::filesystem::path SessionTest::path(const std::string& name) const {
    return folder.path() / name;
}

std::filesystem::path SessionTest::typFile(const std::string& name, const Document& content) {
    writePlain(path(name), CreerTYP(content, {2024, 1, 2, 3, 4, 5}).file);
    return path(name);
}

std::filesystem::path SessionTest::textFile(const std::string& name, std::string_view content) {
    writePlain(path(name), bytesOf(content));
    return path(name);
}

void SessionTest::open(const std::filesystem::path& file) {
    ASSERT_EQ(run([&](Session::Then then) { session.ouvrir(file, std::move(then)); }), 1);
}

void SessionTest::change() {
    session.setHeaderSize(document.TailleEntete == 174 ? 164 : 174);
}

std::shared_ptr<int> SessionTest::start(const Command& command) {
    auto ended = std::make_shared<int>(-1);
    command([ended](bool done) { *ended = done ? 1 : 0; });
    return ended;
}

int SessionTest::save() {
    return run([this](Session::Then then) { session.mnuEnregistrer_Click(std::move(then)); });
}

int SessionTest::close() {
    return run([this](Session::Then then) { session.mnufermer_Click(std::move(then)); });
}

std::string SessionTest::labelOf(const Polygone& polygon, int CodePage) {
    const auto labels = decodeStrings(polygon.Strings, CodePage);
    return labels.empty() ? "" : labels[0].text;
}

std::string SessionTest::firstLabel() const {
    for (const Polygone& polygon : document.Polygone) {
        if (!polygon.Strings.empty()) {
            return labelOf(polygon, document.CodePage);
        }
    }
    return {};
}

std::string SessionTest::lastMessage() const {
    return dialogues.shown.empty() ? "" : dialogues.shown.back().message;
}

}  // namespace quillmark::testing
