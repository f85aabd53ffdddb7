#include "platform/linux/desktop/LinuxShortcutTargets.h"
#include "platform/linux/files/TemporaryFolder.h"
#include "platform/qt/desktop/ApplicationStarter.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QFileSystemWatcher>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmora {
namespace {

/// A home of the test's own, in which a tool is installed for real; what it leaves in the folder is waited
/// for.
class ShortcutStart : public ::testing::Test {
protected:
    void SetUp() override {
        set("XDG_DATA_HOME", folder.path() / "data");
        set("XDG_DATA_DIRS", folder.path() / "none");
        set("PATH", (folder.path() / "bin").native() + ":/usr/bin:/bin");
        set("LANGUAGE", "sv:de");
        m_watcher.addPath(QString::fromStdString(folder.path().native()));
    }
    void TearDown() override {
        // What was set twice is given back its first value last.
        for (; !m_saved.empty(); m_saved.pop_back()) {
            const auto& [name, value] = m_saved.back();
            value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
        }
    }
    void set(const char* name, const std::string& value) {
        const char* former = std::getenv(name);
        m_saved.emplace_back(name, former ? std::optional<std::string>(former) : std::nullopt);
        ::setenv(name, value.c_str(), 1);
    }
    /// A script that writes its arguments and its language, then shows the file as a whole.
    void install(const std::string& exec) {
        const auto script =
            folder.write("bin/my disks", "#!/bin/sh\nprintf '%s\\n' \"$@\" \"$LANGUAGE\" > \"" + out() +
                                             ".part\"\nmv \"" + out() + ".part\" \"" + out() + "\"\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        folder.write("data/applications/gparted.desktop",
                     "[Desktop Entry]\nType=Application\nName=Disks\nName[sv]=Diskar\nExec=" + exec + "\n");
    }
    std::string out() const { return folder.path() / "out"; }
    std::string written() const {
        bool expired = false;
        QTimer limit;
        QObject::connect(&limit, &QTimer::timeout, &limit, [&expired] { expired = true; });
        limit.start(std::chrono::seconds(10));
        while (!std::filesystem::exists(out()) && !expired)
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        return TemporaryFolder::contentsOf(out());
    }

    TemporaryFolder folder;

private:
    QFileSystemWatcher m_watcher;  ///< Its changes wake the wait.
    std::vector<std::pair<std::string, std::optional<std::string>>> m_saved;
};

TEST_F(ShortcutStart, InstalledToolIsFoundAndRunsAsItsEntrySays) {
    install("\"my disks\" --caption %c \"a \\\\\"b\\\\\"\" %U");
    const auto surroundings = DesktopSurroundings::ofThisProcess();
    ApplicationStarter starter(SessionBus(QStringLiteral("unix:path=/nonexistent/bus")));
    LinuxShortcutTargets targets(
        std::make_shared<DesktopEntries>(surroundings, DesktopEntryLocales({"sv-SE", "de-DE"})), surroundings,
        "com.torvane.Velmora", [&starter](const ApplicationLaunch& launch) { starter.start(launch); });
    // From here on the program speaks a language of its own.
    set("LANGUAGE", "ja");

    const auto found = targets.find(ShortcutKind::disks);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, "Diskar");
    targets.open(*found);
    EXPECT_EQ(written(), "--caption\nDiskar\na \"b\"\nsv:de\n");
}

}  // namespace
}  // namespace velmora
