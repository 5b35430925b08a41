// The program as a whole, in processes of its own.
#include <signal.h>

#include <QProcess>
#include <QTest>

#include "core/files.h"
#include "support/test_files.h"
#include "text/backups.h"
#include "ui/qt_settings_store.h"
#include "ui/qt_text.h"
#include "ui/session_end.h"
#include "ui/window_place.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr int kPatience = 30'000;  // milliseconds, with sanitizers on a busy machine

class ProcessTest : public ::testing::Test {
  protected:
    ProcessTest() {
        const auto example = readFile(testing::dataFolder() / "examples" / "randonnee.txt");
        for (const char* name : {"first map.txt", "second.txt"}) {
            testing::writePlain(folder_.path() / name, example);
        }
    }

    [[nodiscard]] std::unique_ptr<QProcess> start(const QStringList& arguments,
                                                  const char* platform = "offscreen") const {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QLatin1String(platform));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), toQt(folder_.path() / "config"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), toQt(folder_.path() / "data"));
        // What fonts and platforms keep to their end is none of ours.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(toQt(folder_.path()));
        process->start(QStringLiteral(QUILLMARK_BINARY_FOLDER "/src/quillmark"), arguments);
        return process;
    }
    [[nodiscard]] static QString toQt(const fs::path& path) {
        return quillmark::toQt(path.string());
    }
    [[nodiscard]] std::string setting(const char* section, const char* key) const {
        const QtSettingsStore store(
            fileSettings(toQt(folder_.path() / "config" / "Quillmark" / "Quillmark.ini")));
        return store.read(section, key).value_or("");
    }
    [[nodiscard]] std::string backups() const {
        std::error_code none;
        if (!fs::exists(backup_, none)) {
            return {};
        }
        const Bytes bytes = readFile(backup_);
        return {bytes.begin(), bytes.end()};
    }
    [[nodiscard]] bool opened(const char* name) const {
        return QTest::qWaitFor(
            [&] { return setting("MRUFiles", "1") == (folder_.path() / name).string(); },
            kPatience);
    }
    static int end(QProcess& process, int signal) {
        ::kill(static_cast<pid_t>(process.processId()), signal);
        EXPECT_TRUE(process.waitForFinished(kPatience));
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    testing::TemporaryFolder folder_;
    fs::path backup_ = folder_.path() / "data" / "Quillmark" / "Quillmark.save";
};

TEST_F(ProcessTest, HelpAndVersionNeedNoScreen) {
    for (const auto& [argument, words] : {std::pair{"--help", "quillmark ["},
                                          std::pair{"--version", "Quillmark " QUILLMARK_VERSION}}) {
        const auto process = start({QLatin1String(argument)}, "none");
        EXPECT_TRUE(process->waitForFinished(kPatience));
        EXPECT_EQ(process->exitCode(), 0);
        EXPECT_TRUE(process->readAllStandardOutput().contains(words));
    }
}

TEST_F(ProcessTest, CrashIsFollowedByTheBackupOfItsRun) {
    const auto crashed = start({QStringLiteral("\"first"), QStringLiteral("map.txt")});
    ASSERT_TRUE(opened("first map.txt"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !backups().empty(); }, kPatience));
    EXPECT_EQ(end(*crashed, SIGKILL), -1);

    const auto next = start({QStringLiteral("second.txt")});
    ASSERT_TRUE(opened("second.txt"));
    EXPECT_TRUE(fs::exists(earlierBackup(backup_)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !backups().empty(); }, kPatience));
    EXPECT_EQ(backups().find("first map.txt Sauvegarde"), std::string::npos);

    // A second process keeps its hands off the first one's file, and the first one's entries.
    const auto guest = start({QStringLiteral("first map.txt")});
    ASSERT_TRUE(opened("first map.txt"));
    EXPECT_EQ(setting("MRUFiles", "2"), (folder_.path() / "second.txt").string());
    EXPECT_EQ(end(*guest, SIGTERM), 0);
    EXPECT_EQ(backups().find("first map.txt Sauvegarde"), std::string::npos);

    EXPECT_EQ(end(*next, SIGTERM), 0);
    EXPECT_NE(backups().find("second.txt Sauvegarde n°0"), std::string::npos);
    EXPECT_EQ(setting("Paramètres", "WindowState"), "0");
    EXPECT_EQ(setting("Paramètres", "Sauvegarde automatique"), "1");
}

TEST(SessionEnd, WaitsForAnAnswerAndBacksUpWhereThereIsNone) {
    int backups = 0;
    int ends = 0;
    int unasked = 0;
    std::function<void(bool)> answer;
    SessionEnd end{[&](std::function<void(bool)> then) { answer = std::move(then); },
                   [&] { ++backups; }, [&] { ++ends; }, [&] { ++unasked; }};
    EXPECT_FALSE(end.requested(true));  // the save isn't through
    EXPECT_EQ(ends, 0);
    answer(true);
    EXPECT_EQ(ends, 1);
    for (const bool done : {false, true}) {
        end.queryUnload = [done](const std::function<void(bool)>& then) { then(done); };
        EXPECT_EQ(end.requested(true), done);
        EXPECT_EQ(unasked, done ? 1 : 0);
    }
    EXPECT_EQ(backups, 0);
    EXPECT_TRUE(end.requested(false));
    EXPECT_EQ(unasked, 2);
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(ends, 1);  // the platform ends it, or goes on
    end.backUp = [] { throw std::runtime_error("disk full"); };
    end.withoutQuestion();
    EXPECT_EQ(ends, 2);
}

TEST(WindowPlace, IsRestoredAndStored) {
    MemorySettings store;
    Settings settings(store);
    settings.setPixels(keys::kLargeur, 810);
    settings.setPixels(keys::kHauteur, 510);
    settings.setPixels(keys::kGauche, 40);
    settings.setPixels(keys::kDessus, 50);
    bool painted = false;
    {
        QWidget window;
        WindowPlace place(window, settings);
        place.show([&] { painted = true; });
        EXPECT_FALSE(painted);
        EXPECT_TRUE(QTest::qWaitFor([&] { return painted; }));
        EXPECT_EQ(window.pos(), QPoint(40, 50));
        window.resize(800, 505);
        window.close();
        place.store();
        EXPECT_EQ(settings.pixels(keys::kHauteur), 505);
        EXPECT_EQ(settings.pixels(keys::kGauche), 40);
    }
    QWidget window;
    WindowPlace place(window, settings);
    place.show({});
    window.setWindowState(Qt::WindowFullScreen);
    place.store();
    EXPECT_EQ(settings.text(keys::kWindowState), "2");
    EXPECT_EQ(settings.pixels(keys::kHauteur), 505);
    QWidget again;
    const WindowPlace maximised(again, settings);
    EXPECT_TRUE(again.isMaximized());
}

}  // namespace
}  // namespace quillmark
