#include "RunningProgram.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <csignal>

namespace velmora {
namespace {

/// True once the program has come as far as its items: it then has written its first figures.
bool hasStarted(RunningProgram& program, const PrivateSession& session) {
    return waitUntil([&] {
               return !program.isRunning() ||
                      session
                          .output("dbus-send",
                                  {"--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                                   "org.freedesktop.DBus.NameHasOwner", "string:com.torvane.Velmora"})
                          .contains("boolean true");
           }) &&
           program.isRunning();
}

TEST(LifecycleTest, ASecondCopyEndsTheFirst) {
    PrivateSession session;
    RunningProgram first(session);
    ASSERT_TRUE(hasStarted(first, session));
    const qint64 firstPid = first.pid();
    RunningProgram second(session);
    EXPECT_EQ(first.waitForExit(), 0);
    EXPECT_TRUE(second.isRunning());
    EXPECT_TRUE(waitUntil([&] {
        return second.messages().contains(QString("Velmora: terminating duplicate instance pid=%1 (%2)")
                                              .arg(firstPid)
                                              .arg(RunningProgram::executable(session)));
    }));
    EXPECT_FALSE(second.messages().contains("force-terminating"));
}

TEST(LifecycleTest, AnOldCopyThatDoesNotAnswerIsForced) {
    PrivateSession session;
    RunningProgram first(session);
    ASSERT_TRUE(hasStarted(first, session));
    const qint64 firstPid = first.pid();
    ASSERT_EQ(::kill(static_cast<pid_t>(firstPid), SIGSTOP), 0);
    RunningProgram second(session);
    EXPECT_TRUE(waitUntil([&] {
        return second.messages().contains(
            QString("Velmora: force-terminating unresponsive duplicate pid=%1").arg(firstPid));
    }));
    EXPECT_TRUE(waitUntil([&] { return !first.isRunning(); }));
    EXPECT_EQ(first.process().exitStatus(), QProcess::CrashExit) << "killed";
}

TEST(LifecycleTest, TerminationSignalsEndTheProgramCleanly) {
    for (const int signal : {SIGTERM, SIGINT}) {
        PrivateSession session;
        RunningProgram program(session);
        ASSERT_TRUE(hasStarted(program, session));
        ::kill(static_cast<pid_t>(program.pid()), signal);
        EXPECT_EQ(program.waitForExit(), 0);
    }
}

TEST(LifecycleTest, AURLGoesToTheRunningCopyAndDoesNotEndIt) {
    PrivateSession session;
    RunningProgram first(session);
    ASSERT_TRUE(hasStarted(first, session));
    RunningProgram second(session, {"velmora://auth?code=1"});
    EXPECT_EQ(second.waitForExit(), 0);
    EXPECT_FALSE(second.messages().contains("terminating duplicate"));
    EXPECT_TRUE(first.isRunning());
}

TEST(LifecycleTest, AnUnknownArgumentIsIgnored) {
    PrivateSession session;
    RunningProgram program(session, {"--no-such-option", "word"});
    EXPECT_TRUE(hasStarted(program, session));
}

TEST(LifecycleTest, ADevelopmentRunSkipsTheLoginItemAndGoesOn) {
    PrivateSession session;
    RunningProgram program(session);
    ASSERT_TRUE(hasStarted(program, session));
    EXPECT_TRUE(waitUntil([&] {
        return program.messages().contains(
            "Velmora: skipping launch-at-login update (not running from an app bundle)");
    }));
    EXPECT_FALSE(QFile::exists(session.configFolder() + "/autostart/com.torvane.Velmora.desktop"));
    EXPECT_EQ(storedDefault(session, "launchAtLogin"), "true");
}

TEST(LifecycleTest, WithoutADisplayItSaysSoAndExitsWithOne) {
    PrivateSession session(PrivateSession::Display::none);
    RunningProgram program(session);
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_TRUE(program.messages().contains(
        QRegularExpression("^velmora: there is no display: .+\n", QRegularExpression::MultilineOption)));
}

TEST(LifecycleTest, WithADisplayThatDoesNotAnswerItSaysSoAndExitsWithOne) {
    PrivateSession session(PrivateSession::Display::none);
    QProcessEnvironment extra;
    extra.insert("DISPLAY", ":64999");
    RunningProgram program(session, {}, extra);
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_TRUE(program.messages().contains("velmora: the display :64999 does not answer"));
}

TEST(LifecycleTest, OnAnXServerThatStartsOverWithoutClientsItsOwnQuestionDoesNotCostTheDisplay) {
    PrivateSession session(PrivateSession::Display::forgetfulScreen);
    RunningProgram program(session);
    EXPECT_TRUE(hasStarted(program, session));
    EXPECT_FALSE(program.messages().contains("could not connect to display"));
}

TEST(LifecycleTest, WithoutFontsItSaysSoAndStillShowsItsItems) {
    PrivateSession session;
    QFile configuration(session.folder() + "/fonts.conf");
    ASSERT_TRUE(configuration.open(QFile::WriteOnly));
    configuration.write("<?xml version=\"1.0\"?><fontconfig></fontconfig>\n");
    configuration.close();
    QProcessEnvironment extra;
    extra.insert("FONTCONFIG_FILE", configuration.fileName());
    RunningProgram program(session, {}, extra);
    EXPECT_TRUE(waitUntil([&] { return program.messages().contains("velmora: no fonts are installed"); }));
    EXPECT_TRUE(waitUntil([&] { return session.output("xwininfo", {"-root", "-tree"}).contains("elmora"); }));
    EXPECT_TRUE(program.isRunning());
}

TEST(LifecycleTest, AWaylandDisplayThatDoesNotAnswerIsSaidToBeSo) {
    PrivateSession session(PrivateSession::Display::none);
    QProcessEnvironment extra;
    extra.insert("WAYLAND_DISPLAY", "wayland-7");
    RunningProgram program(session, {}, extra);
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_TRUE(program.messages().contains("velmora: the display wayland-7 does not answer"));
}

TEST(LifecycleTest, URLsThatArriveWhileTheProgramEndsAreHarmless) {
    // The connection to the bus was closed before what takes the URLs had left it.
    PrivateSession session;
    const QString name = "urls-at-the-end";
    QDBusConnection bus = QDBusConnection::connectToBus(session.busAddress(), name);
    QDBusMessage open = QDBusMessage::createMethodCall("com.torvane.Velmora", "/com/torvane/Velmora",
                                                       "org.freedesktop.Application", "Open");
    open.setAutoStartService(false);
    open.setArguments({QStringList{"velmora://auth"}, QVariantMap{}});
    RunningProgram program(session);
    ASSERT_TRUE(hasStarted(program, session));
    ::kill(static_cast<pid_t>(program.pid()), SIGTERM);
    EXPECT_TRUE(waitUntil([&] {
        for (int count = 0; count < 50; ++count) bus.send(open);
        return !program.isRunning();
    }));
    EXPECT_EQ(program.waitForExit(), 0);
    bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name);
}

TEST(LifecycleTest, WithoutASessionBusItSaysSoAndGoesOn) {
    PrivateSession session(PrivateSession::Display::virtualScreen, PrivateSession::Bus::none);
    RunningProgram program(session);
    EXPECT_TRUE(waitUntil([&] { return program.messages().contains("velmora: there is no session bus"); }));
    EXPECT_TRUE(waitUntil([&] { return session.output("xwininfo", {"-root", "-tree"}).contains("elmora"); }));
    EXPECT_TRUE(program.isRunning());
}

TEST(LifecycleTest, GarbageInPlaceOfTheStoredValuesIsSetAside) {
    PrivateSession session;
    QDir(session.configFolder()).mkpath("Velmora");
    QFile file(session.configFolder() + "/Velmora/defaults.db");
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(QByteArray(8192, 'x'));
    file.close();
    RunningProgram program(session);
    ASSERT_TRUE(hasStarted(program, session));
    const QStringList aside = QDir(session.configFolder() + "/Velmora").entryList({"defaults.db.corrupt-*"});
    EXPECT_EQ(aside.size(), 1);
    EXPECT_EQ(storedDefault(session, "launchAtLogin"), "true");
}

TEST(LifecycleTest, AFolderInPlaceOfTheStoredValuesCostsOnlyTheirPersistence) {
    PrivateSession session;
    QDir(session.configFolder()).mkpath("Velmora/defaults.db");
    RunningProgram program(session);
    EXPECT_TRUE(hasStarted(program, session));
    EXPECT_TRUE(waitUntil([&] { return session.output("xwininfo", {"-root", "-tree"}).contains("elmora"); }));
}

}  // namespace
}  // namespace velmora
