#include "platform/linux/desktop/LinuxProcessIconSource.h"

#include "platform/linux/desktop/DesktopTree.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

namespace velmora {
namespace {

constexpr std::string_view kApplications = "0::/user.slice/user-1000.slice/user@1000.service/app.slice/";

class LinuxProcessIconSourceTest : public ::testing::Test {
protected:
    static std::string folder(int pid) {
        return "proc/" + std::string(1, static_cast<char>('0' + pid)) + "/";
    }

    void addProcess(int pid, const std::string& executable, const std::string& unit = "") {
        tree.files().write(folder(pid) + "cgroup", std::string(kApplications) + unit + "\n");
        tree.files().write(folder(pid) + "comm", "comm\n");
        if (!executable.empty()) tree.files().link(folder(pid) + "exe", executable);
    }
    void addApplication(const std::string& id, const std::string& exec, const std::string& icon,
                        const std::string& further = "") {
        tree.addEntry(id, "Name=" + id + "\nExec=" + exec + "\nIcon=" + icon + "\n" + further);
    }
    /// "" for none.
    std::string iconOf(int pid) { return source.iconOf(pid).value_or(""); }

    DesktopTree tree;
    LinuxProcessIconSource source{tree.surroundings().root, std::make_shared<DesktopEntries>(
                                                                tree.surroundings(), DesktopEntryLocales())};
};

TEST_F(LinuxProcessIconSourceTest, ProcessThatIsGoneHasNone) {
    for (const int pid : {1, 0, -1, -2147483647}) EXPECT_EQ(source.iconOf(pid), std::nullopt);
}

TEST_F(LinuxProcessIconSourceTest, ProcessOfNoApplicationHasNone) {
    addProcess(1, "/usr/sbin/daemon", "daemon.service");
    EXPECT_EQ(source.iconOf(1), std::nullopt);
}

TEST_F(LinuxProcessIconSourceTest, ExecutableLeadsToItsApplication) {
    addApplication("org.gnome.Nautilus", "nautilus --new-window %U", "org.gnome.Nautilus");
    addProcess(1, "/usr/bin/nautilus");
    addProcess(2, "/usr/bin/nautilus (deleted)");
    EXPECT_EQ(iconOf(1), "org.gnome.Nautilus");
    EXPECT_EQ(iconOf(2), "org.gnome.Nautilus");
}

TEST_F(LinuxProcessIconSourceTest, UnitLeadsToItsApplicationWhateverRunsThere) {
    addApplication("firefox-esr", "/usr/lib/firefox-esr/firefox-esr %u", "firefox-esr");
    addProcess(1, "/usr/lib/firefox-esr/plugin-container", "app-gnome-firefox\\x2desr-99.scope");
    EXPECT_EQ(iconOf(1), "firefox-esr");
}

TEST_F(LinuxProcessIconSourceTest, UnitOfNoKnownApplicationLeavesTheExecutable) {
    addApplication("editor", "editor", "editor-icon");
    addProcess(1, "/usr/bin/editor", "app-gnome-unknown-99.scope");
    EXPECT_EQ(iconOf(1), "editor-icon");
}

TEST_F(LinuxProcessIconSourceTest, OneExecutableServesSeveralApplications) {
    addApplication("chat", "electron /usr/share/chat", "chat-icon");
    addApplication("notes", "electron /usr/share/notes", "notes-icon");
    addProcess(1, "/usr/lib/electron/electron", "app-gnome-chat-1.scope");
    addProcess(2, "/usr/lib/electron/electron", "app-gnome-notes-2.scope");
    addProcess(3, "/usr/lib/electron/electron");
    EXPECT_EQ(iconOf(1), "chat-icon");
    EXPECT_EQ(iconOf(2), "notes-icon");
    EXPECT_EQ(iconOf(3), "");
}

TEST_F(LinuxProcessIconSourceTest, WhatRunsInATerminalIsNotTheTerminal) {
    addApplication("org.kde.konsole", "konsole", "utilities-terminal",
                   "Categories=System;TerminalEmulator;\n");
    addApplication("htop", "htop", "htop-icon", "Terminal=true\n");
    addProcess(1, "/usr/bin/konsole", "app-org.kde.konsole-1.scope");
    addProcess(2, "/usr/bin/make", "app-org.kde.konsole-1.scope");
    addProcess(3, "/usr/bin/htop", "app-org.kde.konsole-1.scope");
    EXPECT_EQ(iconOf(1), "utilities-terminal");
    EXPECT_EQ(iconOf(2), "");
    EXPECT_EQ(iconOf(3), "htop-icon");
}

TEST_F(LinuxProcessIconSourceTest, HelperOfATerminalIsTheTerminal) {
    addApplication("org.gnome.Terminal", "gnome-terminal", "org.gnome.Terminal",
                   "Categories=System;TerminalEmulator;\n");
    addProcess(1, "/usr/libexec/gnome-terminal-server",
               "app-org.gnome.Terminal.slice/gnome-terminal-server.service");
    EXPECT_EQ(iconOf(1), "org.gnome.Terminal");
}

TEST_F(LinuxProcessIconSourceTest, SnapLeadsToItsEntry) {
    addApplication("firefox_firefox", "/snap/bin/firefox", "/snap/firefox/current/default256.png");
    addProcess(1, "/snap/firefox/4/usr/lib/firefox/firefox",
               "snap.firefox.firefox-0d5b9a4e-1111-2222-3333-444444444444.scope");
    EXPECT_EQ(iconOf(1), "/snap/firefox/current/default256.png");
}

TEST_F(LinuxProcessIconSourceTest, SandboxLeadsToItsApplication) {
    addApplication("org.example.Chess", "/usr/bin/flatpak run org.example.Chess", "chess-icon");
    tree.files().link("proc/self/ns/mnt", "mnt:[1]");
    for (const int pid : {1, 2}) {
        addProcess(pid, "/app/bin/chess");
        tree.files().write(folder(pid) + "root/.flatpak-info", "[Application]\nname=org.example.Chess\n");
    }
    tree.files().link(folder(1) + "ns/mnt", "mnt:[2]");
    tree.files().link(folder(2) + "ns/mnt", "mnt:[1]");
    EXPECT_EQ(iconOf(1), "chess-icon");
}

TEST_F(LinuxProcessIconSourceTest, OnlyAProcessWithItsOwnMountsIsInASandbox) {
    addApplication("org.example.Chess", "/usr/bin/flatpak run org.example.Chess", "chess-icon");
    tree.files().link("proc/self/ns/mnt", "mnt:[1]");
    addProcess(1, "/app/bin/chess");
    tree.files().link(folder(1) + "ns/mnt", "mnt:[1]");
    tree.files().write(folder(1) + "root/.flatpak-info", "[Application]\nname=org.example.Chess\n");
    EXPECT_EQ(iconOf(1), "");
}

TEST_F(LinuxProcessIconSourceTest, PipeInASandboxIsNotWaitedFor) {
    tree.files().link("proc/self/ns/mnt", "mnt:[1]");
    addProcess(1, "/app/bin/chess");
    tree.files().link(folder(1) + "ns/mnt", "mnt:[2]");
    tree.files().write(folder(1) + "root/other", "");
    ASSERT_EQ(::mkfifo(tree.files().path(folder(1) + "root/.flatpak-info").c_str(), 0600), 0);
    EXPECT_EQ(iconOf(1), "");
}

TEST_F(LinuxProcessIconSourceTest, LaunchersEntryLeadsToItsApplication) {
    addApplication("calc", "office --calc", "calc-icon");
    addApplication("writer", "office --writer", "writer-icon");
    addProcess(1, "/usr/lib/office/soffice.bin");
    tree.files().write(folder(1) + "environ", std::string("GIO_LAUNCHED_DESKTOP_FILE=") +
                                                  tree.entryPath("writer") +
                                                  std::string("\0GIO_LAUNCHED_DESKTOP_FILE_PID=1\0", 33));
    EXPECT_EQ(iconOf(1), "writer-icon");
}

TEST_F(LinuxProcessIconSourceTest, EntryThatStartsAtLoginHasTheApplicationsName) {
    addApplication("chat", "chat", "chat-icon");
    addProcess(1, "/opt/chat/chat.bin");
    tree.files().write(folder(1) + "environ",
                       std::string("GIO_LAUNCHED_DESKTOP_FILE=/etc/xdg/autostart/chat.desktop") +
                           std::string("\0GIO_LAUNCHED_DESKTOP_FILE_PID=1\0", 33));
    EXPECT_EQ(iconOf(1), "chat-icon");
}

/// The applications of the captured machine, whose files are older than a moment, so that what is known of
/// them is kept.
class KeptProcessIcons : public LinuxProcessIconSourceTest {
protected:
    static constexpr auto kMachine = VELMORA_FIXTURES "/three-desktops/";

    void launchBy(int pid, const std::string& id) {
        const std::string number(1, static_cast<char>('0' + pid));
        tree.files().write(folder(pid) + "environ", std::string("GIO_LAUNCHED_DESKTOP_FILE=") + kMachine +
                                                        "usr/share/applications/" + id + ".desktop" + '\0' +
                                                        "GIO_LAUNCHED_DESKTOP_FILE_PID=" + number + '\0');
    }
    std::string keptIconOf(int pid) { return kept.iconOf(pid).value_or(""); }

    LinuxProcessIconSource kept{
        tree.surroundings().root,
        std::make_shared<DesktopEntries>(
            DesktopSurroundings{.root = SystemRoot(kMachine), .dataFolders = {"/usr/share"}},
            DesktopEntryLocales())};
};

TEST_F(KeptProcessIcons, ExecutableThatIsKnownIsNotLookedIntoAgain) {
    addProcess(1, "/usr/lib/suite/suite.bin");
    launchBy(1, "gparted");
    EXPECT_EQ(keptIconOf(1), "gparted");
    addProcess(2, "/usr/lib/suite/suite.bin");
    EXPECT_EQ(keptIconOf(2), "gparted");
}

TEST_F(KeptProcessIcons, InterpretersAreToldApartByTheirLaunchers) {
    for (const int pid : {1, 2, 3}) addProcess(pid, "/usr/bin/python3.11");
    launchBy(1, "gparted");
    launchBy(2, "org.bleachbit.BleachBit");
    EXPECT_EQ(keptIconOf(1), "gparted");
    EXPECT_EQ(keptIconOf(2), "bleachbit");
    EXPECT_EQ(keptIconOf(3), "");
}

TEST_F(KeptProcessIcons, OneExecutableInTwoUnitsIsTwoApplications) {
    addProcess(1, "/usr/lib/suite/suite.bin", "app-gnome-gparted-1.scope");
    addProcess(2, "/usr/lib/suite/suite.bin", "app-gnome-org.bleachbit.BleachBit-2.scope");
    EXPECT_EQ(keptIconOf(1), "gparted");
    EXPECT_EQ(keptIconOf(2), "bleachbit");
}

TEST_F(LinuxProcessIconSourceTest, ProgramOfAnotherUserIsKnownByItsName) {
    addApplication("gparted", "/usr/sbin/gparted", "gparted");
    addProcess(1, "");
    tree.files().write(folder(1) + "comm", "gparted\n");
    EXPECT_EQ(iconOf(1), "gparted");
}

TEST_F(LinuxProcessIconSourceTest, NameThatTheKernelMayHaveCutSaysNothing) {
    addApplication("monitor", "fifteen-letters", "wrong-icon");
    addProcess(1, "");
    tree.files().write(folder(1) + "comm", "fifteen-letters\n");
    EXPECT_EQ(iconOf(1), "");
}

TEST_F(LinuxProcessIconSourceTest, ApplicationWithoutAnIconHasNone) {
    tree.addEntry("plain", "Name=Plain\nExec=plain\n");
    addProcess(1, "/usr/bin/plain");
    EXPECT_EQ(source.iconOf(1), std::nullopt);
}

TEST_F(LinuxProcessIconSourceTest, ApplicationThatIsInstalledMeanwhileIsSeen) {
    addProcess(1, "/usr/bin/editor");
    EXPECT_EQ(iconOf(1), "");
    addApplication("editor", "editor", "editor-icon");
    EXPECT_EQ(iconOf(1), "editor-icon");
    tree.removeEntry("editor");
    EXPECT_EQ(iconOf(1), "");
}

TEST_F(LinuxProcessIconSourceTest, LaterProcessOfTheSameNumberIsLookedAtAnew) {
    addApplication("a", "a", "a-icon");
    addApplication("b", "b", "b-icon");
    addProcess(1, "/usr/bin/a");
    EXPECT_EQ(iconOf(1), "a-icon");
    addProcess(1, "/usr/bin/b");
    EXPECT_EQ(iconOf(1), "b-icon");
}

TEST_F(LinuxProcessIconSourceTest, DamagedFilesAreNoHindrance) {
    addApplication("editor", "editor", "editor-icon");
    addProcess(1, "/usr/bin/editor");
    tree.files().write(folder(1) + "cgroup", std::string_view("\0\xFF::\n:::\n", 9));
    tree.files().write(folder(1) + "environ", std::string(300 * 1024, 'x'));
    EXPECT_EQ(iconOf(1), "editor-icon");
}

/// A child that runs a copy of the system's `sleep` under a path of the test's own, ended with the test.
class SleepingProgram {
public:
    explicit SleepingProgram(const std::string& copy) {
        std::filesystem::copy_file("/bin/sleep", copy);
        std::string path = copy;
        std::string time = "60";
        char* const arguments[] = {path.data(), time.data(), nullptr};
        if (::posix_spawn(&m_pid, path.c_str(), nullptr, nullptr, arguments, environ) != 0) m_pid = 0;
    }
    ~SleepingProgram() {
        if (m_pid <= 0) return;
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }
    SleepingProgram(const SleepingProgram&) = delete;
    SleepingProgram& operator=(const SleepingProgram&) = delete;

    pid_t pid() const { return m_pid; }

private:
    pid_t m_pid = 0;
};

TEST_F(LinuxProcessIconSourceTest, RealProcessOfTheRunningSystemIsRead) {
    const TemporaryFolder programs;
    const SleepingProgram program(programs.path() / "velmora-sleeper");
    ASSERT_GT(program.pid(), 0);
    addApplication("org.example.Sleeper", "velmora-sleeper", "sleeper-icon");
    LinuxProcessIconSource real(SystemRoot(),
                                std::make_shared<DesktopEntries>(tree.surroundings(), DesktopEntryLocales()));
    EXPECT_EQ(real.iconOf(program.pid()), "sleeper-icon");
    EXPECT_EQ(real.iconOf(::getpid()), std::nullopt);
}

}  // namespace
}  // namespace velmora
