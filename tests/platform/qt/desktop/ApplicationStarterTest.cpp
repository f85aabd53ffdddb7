#include "platform/qt/desktop/ApplicationStarter.h"

#include "platform/qt/desktop/ApplicationScope.h"
#include "platform/qt/services/RecordingBus.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDir>
#include <QFile>
#include <QFileSystemWatcher>
#include <QTemporaryDir>

#include <map>

#include <unistd.h>

namespace velmora {
namespace {

constexpr auto kId = "org.example.Disks";

class ApplicationStarterTest : public ::testing::Test {
protected:
    ApplicationStarterTest() { m_watcher.addPath(folder.path()); }

    /// A command that leaves in the folder what the shell's words print.
    ApplicationLaunch writing(const char* words, const char* file = "out") const {
        const std::string path = folder.filePath(QLatin1String(file)).toStdString();
        const std::string script =
            "printf '%s\\n' " + std::string(words) + " > " + path + ".part && mv " + path + ".part " + path;
        return {.id = kId, .command = {"/bin/sh", "-c", script}};
    }
    /// What a started program has left, once it has.
    QString written(const char* file = "out") {
        const QString path = folder.filePath(QLatin1String(file));
        if (!waitUntil([&path] { return QFile::exists(path); })) return QStringLiteral("nothing");
        QFile left(path);
        return left.open(QIODevice::ReadOnly) ? QString::fromUtf8(left.readAll()).trimmed() : QString();
    }
    static SessionBus noBus() { return SessionBus(QStringLiteral("unix:path=/nonexistent/bus")); }
    static QProcessEnvironment environment(const std::map<const char*, const char*>& further = {}) {
        QProcessEnvironment made;
        made.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
        for (const auto& [name, value] : further) made.insert(QLatin1String(name), QLatin1String(value));
        return made;
    }

    QTemporaryDir folder;

private:
    QFileSystemWatcher m_watcher;  ///< Its changes wake the wait.
};

TEST_F(ApplicationStarterTest, CommandIsStartedWithItsArguments) {
    ApplicationStarter starter(noBus(), environment());
    ApplicationLaunch launch = writing("\"$1\" \"$2\"");
    launch.command.insert(launch.command.end(), {"name", "two words", "ü"});
    starter.start(launch);
    EXPECT_EQ(written(), QStringLiteral("two words\nü"));
}

TEST_F(ApplicationStarterTest, ProgramGetsTheEnvironmentThatWasKept) {
    ApplicationStarter starter(noBus(), environment({{"LANGUAGE", "sv:de"}}));
    starter.start(writing("\"$LANGUAGE\" \"${QT_QPA_PLATFORM-unset}\""));
    EXPECT_EQ(written(), QStringLiteral("sv:de\nunset"));
}

TEST_F(ApplicationStarterTest, OverrideAfterItWasMadeDoesNotReachThePrograms) {
    const QByteArray users = qgetenv("LANGUAGE");
    qputenv("LANGUAGE", "sv:de");
    ApplicationStarter starter(noBus());
    qputenv("LANGUAGE", "ja");
    starter.start(writing("\"$LANGUAGE\""));
    users.isNull() ? qunsetenv("LANGUAGE") : qputenv("LANGUAGE", users);
    EXPECT_EQ(written(), QStringLiteral("sv:de"));
}

TEST_F(ApplicationStarterTest, TokensOfThisProgramsOwnStartAreKept) {
    ApplicationStarter starter(noBus(), environment({{"DESKTOP_STARTUP_ID", "1"},
                                                     {"XDG_ACTIVATION_TOKEN", "2"},
                                                     {"GIO_LAUNCHED_DESKTOP_FILE", "3"},
                                                     {"GIO_LAUNCHED_DESKTOP_FILE_PID", "4"}}));
    starter.start(
        writing("\"${DESKTOP_STARTUP_ID-}${XDG_ACTIVATION_TOKEN-}${GIO_LAUNCHED_DESKTOP_FILE-}"
                "${GIO_LAUNCHED_DESKTOP_FILE_PID-}.\""));
    EXPECT_EQ(written(), QStringLiteral("."));
}

TEST_F(ApplicationStarterTest, AddressIsOpenedByTheDesktopsOwnToolInTheUsersEnvironment) {
    const QString tool = folder.filePath("xdg-open");
    QFile script(tool);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    const QByteArray out = folder.filePath("out").toLocal8Bit();
    script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" \"$LANGUAGE\" > " + out + ".part\nmv " + out + ".part " +
                 out + "\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    script.close();
    const QByteArray path = folder.path().toLocal8Bit() + ":/usr/bin:/bin";
    ApplicationStarter starter(noBus(), environment({{"PATH", path.constData()}, {"LANGUAGE", "sv:de"}}));
    starter.openURL("http://127.0.0.1:8910/velmora?a=b&c");
    EXPECT_EQ(written(), QStringLiteral("http://127.0.0.1:8910/velmora?a=b&c\nsv:de"));
}

TEST_F(ApplicationStarterTest, ProgramWorksInItsFolder) {
    ApplicationStarter starter(noBus(), environment());
    ApplicationLaunch launch = writing("\"$(pwd -P)\"");
    launch.folder = folder.path().toStdString();
    starter.start(launch);
    EXPECT_EQ(written(), QDir(folder.path()).canonicalPath());
}

TEST_F(ApplicationStarterTest, ProgramWithoutAFolderWorksAtHome) {
    ApplicationStarter starter(noBus(), environment());
    starter.start(writing("\"$(pwd -P)\""));
    EXPECT_EQ(written(), QDir(QDir::homePath()).canonicalPath());
    ApplicationLaunch launch = writing("\"$(pwd -P)\"", "second");
    launch.folder = "/nonexistent";
    starter.start(launch);
    EXPECT_EQ(written("second"), QDir(QDir::homePath()).canonicalPath());
}

TEST_F(ApplicationStarterTest, ProgramIsNoChildOfThisOne) {
    {
        ApplicationStarter starter(noBus(), environment());
        starter.start(writing("$PPID"));
    }
    const QString parent = written();
    EXPECT_NE(parent.toLongLong(), ::getpid());
    EXPECT_NE(parent, QStringLiteral("nothing"));
}

TEST_F(ApplicationStarterTest, WhatCannotBeStartedIsSilent) {
    ApplicationStarter starter(noBus(), environment());
    starter.start({});
    starter.start({.command = {"/nonexistent/program"}});
    starter.start({.command = {""}});
    starter.start({.command = {folder.path().toStdString()}});
    starter.start({.id = kId, .isBusActivatable = true});
    starter.start(writing("after"));
    EXPECT_EQ(written(), QStringLiteral("after"));
}

TEST_F(ApplicationStarterTest, WithoutABusTheCommandIsStarted) {
    ApplicationStarter starter(noBus(), environment());
    ApplicationLaunch launch = writing("by-command");
    launch.isBusActivatable = true;
    starter.start(launch);
    EXPECT_EQ(written(), QStringLiteral("by-command"));
}

class ApplicationStarterOnABus : public ApplicationStarterTest {
protected:
    ApplicationLaunch activatable(const char* file = "out") const {
        ApplicationLaunch launch = writing("by-command", file);
        launch.isBusActivatable = true;
        return launch;
    }
    bool waitForCall(const char* member) {
        return waitUntil([this, member] {
            return !bus.calls.empty() && bus.calls.back().member() == QLatin1String(member);
        });
    }

    RecordingBus bus;
    ApplicationStarter starter{bus.bus.sessionBus(), environment()};
};

TEST_F(ApplicationStarterOnABus, ApplicationIsActivated) {
    bus.own(kId);
    starter.start(activatable());
    ASSERT_TRUE(waitForCall("Activate"));
    const QDBusMessage& call = bus.calls.back();
    EXPECT_EQ(call.path(), QStringLiteral("/org/example/Disks"));
    EXPECT_EQ(call.interface(), QStringLiteral("org.freedesktop.Application"));
    EXPECT_EQ(call.signature(), QStringLiteral("a{sv}"));
}

TEST_F(ApplicationStarterOnABus, ActivatedApplicationIsNotStartedByItsCommandToo) {
    bus.own(kId);
    starter.start(activatable());
    ASSERT_TRUE(waitForCall("Activate"));
    starter.start(writing("second", "second"));
    EXPECT_EQ(written("second"), QStringLiteral("second"));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("out"))));
}

TEST_F(ApplicationStarterOnABus, CommandStandsInForAMissingService) {
    starter.start(activatable());
    EXPECT_EQ(written(), QStringLiteral("by-command"));
}

TEST_F(ApplicationStarterOnABus, CommandStandsInForAServiceThatRefuses) {
    bus.own(kId);
    bus.answer = [](const QDBusMessage& question) {
        return question.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no"));
    };
    starter.start(activatable());
    EXPECT_EQ(written(), QStringLiteral("by-command"));
}

TEST_F(ApplicationStarterOnABus, SlowApplicationIsNotStartedTwice) {
    bus.own(kId);
    bus.answer = [](const QDBusMessage& question) {
        return question.createErrorReply(QDBusError::NoReply, QStringLiteral("slow"));
    };
    starter.start(activatable());
    ASSERT_TRUE(waitForCall("Activate"));
    starter.start(writing("second", "second"));
    EXPECT_EQ(written("second"), QStringLiteral("second"));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("out"))));
}

TEST_F(ApplicationStarterOnABus, IdThatIsNoBusNameIsStartedByItsCommand) {
    ApplicationLaunch launch = activatable();
    launch.id = "disks";
    starter.start(launch);
    EXPECT_EQ(written(), QStringLiteral("by-command"));
}

TEST_F(ApplicationStarterOnABus, StartedProgramGetsAUnitOfItsOwn) {
    bus.own("org.freedesktop.systemd1");
    starter.start(writing("$$"));
    ASSERT_TRUE(waitForCall("StartTransientUnit"));
    const QString pid = written();
    const QDBusMessage& call = bus.calls.back();
    EXPECT_EQ(call.path(), QStringLiteral("/org/freedesktop/systemd1"));
    EXPECT_EQ(call.interface(), QStringLiteral("org.freedesktop.systemd1.Manager"));
    EXPECT_EQ(call.signature(), QStringLiteral("ssa(sv)a(sa(sv))"));
    EXPECT_EQ(call.arguments().at(0).toString(),
              QStringLiteral("app-velmora-org.example.Disks-%1.scope").arg(pid));
    EXPECT_EQ(call.arguments().at(1).toString(), QStringLiteral("fail"));

    QMap<QString, QVariant> properties;
    const auto list = call.arguments().at(2).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QDBusVariant value;
        list.beginStructure();
        list >> name >> value;
        list.endStructure();
        properties[name] = value.variant();
    }
    list.endArray();
    EXPECT_EQ(properties.value(QStringLiteral("Slice")).toString(), QStringLiteral("app.slice"));
    EXPECT_EQ(qdbus_cast<QList<uint>>(properties.value(QStringLiteral("PIDs"))), QList<uint>{pid.toUInt()});
}

TEST_F(ApplicationStarterOnABus, ProgramWithoutAnIdHasAUnitByItsFileName) {
    bus.own("org.freedesktop.systemd1");
    ApplicationLaunch launch = writing("$$");
    launch.id.clear();
    starter.start(launch);
    ASSERT_TRUE(waitForCall("StartTransientUnit"));
    EXPECT_EQ(bus.calls.back().arguments().at(0).toString(),
              QStringLiteral("app-velmora-sh-%1.scope").arg(written()));
}

TEST(ApplicationScope, LettersThatAUnitsNameCannotHaveAreEscaped) {
    EXPECT_EQ(scopeName(QStringLiteral("xfce4-terminal"), 7),
              QStringLiteral("app-velmora-xfce4\\x2dterminal-7.scope"));
    EXPECT_EQ(scopeName(QStringLiteral("a/b ü"), 7),
              QStringLiteral("app-velmora-a\\x2fb\\x20\\xc3\\xbc-7.scope"));
}

TEST(ApplicationScope, LongIdIsCutAtAWholeLetter) {
    EXPECT_LT(scopeName(QString(400, u'a'), 2147483647).size(), 255);
    const QString escaped = scopeName(QString(400, u'-'), 1);
    EXPECT_LT(escaped.size(), 255);
    EXPECT_TRUE(escaped.endsWith(QStringLiteral("\\x2d-1.scope")));
}

TEST(ApplicationObjectPath, IsMadeOfTheId) {
    EXPECT_EQ(ApplicationStarter::objectPathOf(QStringLiteral("org.gnome.Disk-Utility")),
              QStringLiteral("/org/gnome/Disk_Utility"));
}

TEST(ApplicationObjectPath, IdThatIsNoBusNameHasNone) {
    for (const char* id :
         {"", "disks", ".", "org.", ".org", "org..Disks", "org.7zip", "org.Dïsks", "org/x.y", "a b.c"})
        EXPECT_EQ(ApplicationStarter::objectPathOf(QString::fromUtf8(id)), std::nullopt) << id;
    EXPECT_EQ(ApplicationStarter::objectPathOf(QStringLiteral("org.") + QString(300, u'a')), std::nullopt);
}

}  // namespace
}  // namespace velmora
