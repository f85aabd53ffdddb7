#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>

#include <csignal>
#include <iostream>

#include <sys/prctl.h>

namespace {

/// Starts a display of the tests' own on a free number; false if the server is not installed or does not
/// start.
bool startDisplay(QProcess& server) {
    // A test that crashes takes its display along.
    server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    server.setStandardErrorFile(QProcess::nullDevice());
    server.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                  QStringLiteral("0"), QStringLiteral("1920x1080x24"), QStringLiteral("-nolisten"),
                  QStringLiteral("tcp"), QStringLiteral("-noreset")});
    QByteArray number;
    while (!number.endsWith('\n') && server.waitForReadyRead()) number += server.readAllStandardOutput();
    if (!number.endsWith('\n')) return false;
    qputenv("DISPLAY", ":" + number.trimmed());
    // A screen of 144 dots per inch has one and a half device pixels per point.
    QProcess::execute(QStringLiteral("xprop"),
                      {QStringLiteral("-root"), QStringLiteral("-f"), QStringLiteral("RESOURCE_MANAGER"),
                       QStringLiteral("8s"), QStringLiteral("-set"), QStringLiteral("RESOURCE_MANAGER"),
                       QStringLiteral("Xft.dpi:\t144\n")});
    return true;
}

}  // namespace

// The tests run on a private X server, for what only a real display shows.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    QProcess server;
    if (!startDisplay(server)) {
        std::cerr << "These tests need Xvfb and xprop.\n";
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    for (const char* variable : {"WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}) {
        qunsetenv(variable);
    }
    int result = 1;
    {
        const QApplication application(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        result = RUN_ALL_TESTS();
    }
    server.terminate();
    server.waitForFinished();
    return result;
}
