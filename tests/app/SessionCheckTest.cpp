#include "app/SessionCheck.h"

#include "platform/linux/files/FileDescriptor.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QTemporaryDir>
#include <QtGlobal>

#include <algorithm>
#include <map>
#include <optional>

#include <sys/socket.h>
#include <sys/un.h>

namespace velmora {
namespace {

constexpr const char* kVariables[] = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET",
                                      "XDG_RUNTIME_DIR"};

/// Starts without any of the variables, and gives this process its own back.
class SessionCheckTest : public testing::Test {
protected:
    SessionCheckTest() {
        for (const char* name : kVariables) {
            if (qEnvironmentVariableIsSet(name)) m_own[name] = qgetenv(name);
            qunsetenv(name);
        }
    }
    ~SessionCheckTest() override {
        for (const char* name : kVariables) {
            qunsetenv(name);
            if (const auto own = m_own.find(name); own != m_own.end()) qputenv(name, own->second);
        }
    }

    QTemporaryDir m_folder;

private:
    std::map<QByteArray, QByteArray> m_own;
};

TEST_F(SessionCheckTest, X11IsChosenUnderWaylandWhereThereIsAnXServer) {
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    qputenv("DISPLAY", ":0");
    SessionCheck::chooseWindowingBackend();
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "xcb");
}

TEST_F(SessionCheckTest, WaylandIsChosenWhereThereIsNoXServer) {
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    SessionCheck::chooseWindowingBackend();
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "wayland");
}

TEST_F(SessionCheckTest, UsersChoiceOfTheBackendStands) {
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    qputenv("DISPLAY", ":0");
    qputenv("QT_QPA_PLATFORM", "wayland");
    SessionCheck::chooseWindowingBackend();
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "wayland");
}

TEST_F(SessionCheckTest, WithoutWaylandTheToolkitChooses) {
    qputenv("DISPLAY", ":0");
    SessionCheck::chooseWindowingBackend();
    EXPECT_FALSE(qEnvironmentVariableIsSet("QT_QPA_PLATFORM"));
}

TEST_F(SessionCheckTest, NoDisplayAtAllIsAProblem) {
    EXPECT_EQ(SessionCheck::DisplayCheck().problem(),
              "there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set");
}

TEST_F(SessionCheckTest, BackendWithoutADisplayHasNoProblem) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    EXPECT_EQ(SessionCheck::DisplayCheck().problem(), std::nullopt);
}

TEST_F(SessionCheckTest, WaylandDisplayOfAnEndedSessionIsAProblem) {
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    qputenv("WAYLAND_DISPLAY", "wayland-7");
    SessionCheck::chooseWindowingBackend();
    EXPECT_EQ(SessionCheck::DisplayCheck().problem(), "the display wayland-7 does not answer");
}

TEST_F(SessionCheckTest, WaylandDisplayThatListensHasNoProblem) {
    const QByteArray path = m_folder.filePath("wayland-7").toUtf8();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(static_cast<std::size_t>(path.size()), sizeof address.sun_path);
    std::ranges::copy(path, address.sun_path);
    const FileDescriptor server(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ASSERT_EQ(::bind(server.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(server.get(), 1), 0);
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
    for (const QByteArray& display : {QByteArray("wayland-7"), path}) {
        qputenv("WAYLAND_DISPLAY", display);
        qputenv("QT_QPA_PLATFORM", "wayland");
        EXPECT_EQ(SessionCheck::DisplayCheck().problem(), std::nullopt) << display.constData();
    }
}

}  // namespace
}  // namespace velmora
