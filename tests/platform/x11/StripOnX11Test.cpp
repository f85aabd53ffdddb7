#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/qt/SwitchingStatusBar.h"
#include "platform/qt/session/Session.h"
#include "platform/qt/strip/StripCell.h"
#include "platform/qt/strip/StripStatusBar.h"
#include "platform/qt/x11/DockProperties.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QImage>
#include <QMenu>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <functional>

namespace velmora {
namespace {

const StatusItem kCpu{"Velmora.cpu", "CPU", "Velmora — CPU", false, false};
const StatusItem kMemory{"Velmora.memory", "MEM", "Velmora — MEM", false, false};
const StatusItem kFallback{"Velmora.fallback", "Velmora", "Velmora", true, true};

/// 60 by 22 points at the display's ratio of one and a half.
ItemImage imageOf(std::uint32_t color) {
    return {{{90, 33, 1.5, std::vector<std::uint32_t>(90U * 33U, color)}}, {}};
}

/// An icon of 16 by 16 points.
ItemImage iconOf(std::uint32_t color) {
    return {{{24, 24, 1.5, std::vector<std::uint32_t>(24U * 24U, color)}}, {}};
}

bool waitUntil(const std::function<bool()>& condition) {
    bool expired = false;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &limit, [&expired] { expired = true; });
    limit.start(std::chrono::seconds(10));
    while (!condition() && !expired) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

/// What a program prints; events are handled while it runs.
QString output(const QString& program, const QStringList& arguments) {
    // What was asked of the display so far has happened by the time the program looks.
    QGuiApplication::sync();
    QProcess process;
    process.start(program, arguments);
    bool finished = false;
    QObject::connect(&process, &QProcess::finished, &process, [&finished] { finished = true; });
    QObject::connect(&process, &QProcess::errorOccurred, &process, [&finished] { finished = true; });
    waitUntil([&finished] { return finished; });
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString property(const QWidget& window, const QString& name) {
    const QString text =
        output(QStringLiteral("xprop"), {QStringLiteral("-id"), QString::number(window.winId()), name});
    return text.section(QStringLiteral(" = "), 1).trimmed();
}

void clickAt(QPoint logical, const QString& button = QStringLiteral("1")) {
    const QPoint device = (QPointF(logical) * 1.5).toPoint();
    output(QStringLiteral("xdotool"), {QStringLiteral("mousemove"), QString::number(device.x()),
                                       QString::number(device.y()), QStringLiteral("click"), button});
}

class StripOnX11 : public testing::Test {
protected:
    void SetUp() override {
        // Off the strip, whose cells light up under the pointer.
        output(QStringLiteral("xdotool"),
               {QStringLiteral("mousemove"), QStringLiteral("10"), QStringLiteral("900")});
    }
    void show(StripWindow::Kind kind) {
        m_bar.emplace(Session::current(), kind);
        m_bar->setItems({kCpu, kMemory});
        m_bar->setImage(kCpu.id, imageOf(0xFF0A84FF));
        m_bar->setImage(kMemory.id, imageOf(0xFF0A84FF));
        ASSERT_TRUE(waitUntil([&] { return m_bar->window().windowHandle()->isExposed(); }));
    }

    std::optional<StripStatusBar> m_bar;
};

TEST_F(StripOnX11, SessionIsARealXServer) {
    EXPECT_EQ(Session::current().windows, Session::WindowSystem::x11);
    EXPECT_TRUE(DockProperties::serverHasExtension("RANDR"));
    EXPECT_FALSE(DockProperties::serverHasExtension("XWAYLAND"));
}

TEST_F(StripOnX11, RatioIsThatOfTheDisplay) {
    show(StripWindow::Kind::dock);
    EXPECT_EQ(m_bar->appearance().ratios, std::vector<double>{1.5});
}

TEST_F(StripOnX11, RatioIsThatOfTheDisplayBeforeTheStripIsThere) {
    // Or the first images would be shown scaled.
    FakeClock clock;
    FakeRunLoop loop(clock);
    const SwitchingStatusBar bar(loop, Session::current(), {.backend = BackendPreference::tray});
    EXPECT_EQ(bar.place(), StatusBarPlace::nowhere);
    EXPECT_EQ(bar.appearance().ratios, std::vector<double>{1.5});
}

TEST_F(StripOnX11, WindowIsADockAndNothingElse) {
    show(StripWindow::Kind::dock);
    EXPECT_EQ(property(m_bar->window(), "_NET_WM_WINDOW_TYPE"), "_NET_WM_WINDOW_TYPE_DOCK");
    EXPECT_FALSE(property(m_bar->window(), "_NET_WM_STATE").contains("_NET_WM_STATE_ABOVE"));
}

TEST_F(StripOnX11, StrutIsInDevicePixels) {
    show(StripWindow::Kind::dock);
    // Two cells of 66 points at the right end of 1280 points, 26 points high.
    EXPECT_EQ(property(m_bar->window(), "_NET_WM_STRUT_PARTIAL"),
              "0, 0, 39, 0, 0, 0, 0, 0, 1722, 1919, 0, 0");
    EXPECT_EQ(property(m_bar->window(), "_NET_WM_STRUT"), "0, 0, 39, 0");
}

TEST_F(StripOnX11, StrutFollowsTheItems) {
    show(StripWindow::Kind::dock);
    m_bar->setItems({kCpu});
    EXPECT_EQ(property(m_bar->window(), "_NET_WM_STRUT_PARTIAL"),
              "0, 0, 39, 0, 0, 0, 0, 0, 1821, 1919, 0, 0");
}

TEST_F(StripOnX11, WindowIsRightAlignedAtTheTop) {
    show(StripWindow::Kind::dock);
    EXPECT_EQ(m_bar->window().geometry(), QRect(1280 - 132, 0, 132, 26));
    const QString info = output("xwininfo", {"-id", QString::number(m_bar->window().winId())});
    EXPECT_TRUE(info.contains("Absolute upper-left X:  1722")) << info.toStdString();
    EXPECT_TRUE(info.contains("Absolute upper-left Y:  0"));
    EXPECT_TRUE(info.contains("Width: 198"));
    EXPECT_TRUE(info.contains("Height: 39"));
    EXPECT_TRUE(info.contains("Override Redirect State: no"));
}

TEST_F(StripOnX11, StripInATopBarIsUnmanagedAndReservesNothing) {
    show(StripWindow::Kind::topBar);
    const QString info = output("xwininfo", {"-id", QString::number(m_bar->window().winId())});
    EXPECT_TRUE(info.contains("Override Redirect State: yes"));
    EXPECT_TRUE(info.contains("Absolute upper-left X:  1164")) << info.toStdString();
    EXPECT_EQ(property(m_bar->window(), "_NET_WM_STRUT_PARTIAL"), "");
}

TEST_F(StripOnX11, WindowTakesNoFocus) {
    show(StripWindow::Kind::dock);
    EXPECT_TRUE(output("xprop", {"-id", QString::number(m_bar->window().winId()), "WM_HINTS"})
                    .contains("Client accepts input or input focus: False"));
}

TEST_F(StripOnX11, ClickActivatesTheCellUnderThePointer) {
    show(StripWindow::Kind::dock);
    std::vector<std::pair<std::string, Anchor>> clicks;
    const Subscription subscription = m_bar->activated.subscribe(
        [&](const std::string& id, const Anchor& anchor) { clicks.emplace_back(id, anchor); });
    clickAt({1280 - 30, 10});
    clickAt({1280 - 100, 10}, "3");
    ASSERT_TRUE(waitUntil([&] { return clicks.size() == 2; }));
    EXPECT_EQ(clicks[0].first, kMemory.id);
    EXPECT_EQ(clicks[0].second, (Anchor{1280 - 66, 0, 66, 26}));
    EXPECT_EQ(clicks[1].first, kCpu.id);
}

TEST_F(StripOnX11, ImageIsShownPixelForPixel) {
    show(StripWindow::Kind::dock);
    m_bar->setDark(true);
    // A pattern of single device pixels would blur if it were scaled.
    ItemImage image = imageOf(0xFF000000);
    for (std::size_t index = 0; index < image.pixels[0].argb.size(); index += 2) {
        image.pixels[0].argb[index] = 0xFFFFFFFF;
    }
    m_bar->setImage(kCpu.id, image);
    const auto shown = [&] {
        return QGuiApplication::primaryScreen()->grabWindow(m_bar->window().winId()).toImage();
    };
    // Cells begin at 0, the image 3 points further: at 4.5 device pixels, which is held at 4.
    ASSERT_TRUE(waitUntil([&] { return shown().pixelColor(4, 3) == QColor(Qt::white); }));
    const QImage picture = shown();
    EXPECT_EQ(picture.pixelColor(5, 3), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(6, 3), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(42, 42, 45));
}

TEST_F(StripOnX11, MenuOpensBelowTheFallbackAndASecondClickClosesIt) {
    show(StripWindow::Kind::dock);
    m_bar->menuEntries = [](const std::string&) {
        return std::vector<StatusMenuEntry>{{"menu.quit", "Quit", "q"}};
    };
    m_bar->setItems({kFallback});
    m_bar->setImage(kFallback.id, iconOf(0xFF000000));
    ASSERT_TRUE(waitUntil([&] { return m_bar->window().width() == 22; }));
    clickAt({1280 - 11, 10});
    ASSERT_TRUE(waitUntil([&] {
        const QMenu* const menu = m_bar->menu().menu();
        return menu && menu->windowHandle() && menu->windowHandle()->isExposed();
    }));
    EXPECT_GE(m_bar->menu().menu()->y(), 26);
    clickAt({1280 - 11, 10});
    EXPECT_TRUE(waitUntil([&] { return m_bar->menu().menu() == nullptr; }));
}

TEST_F(StripOnX11, ClickElsewhereClosesTheMenu) {
    show(StripWindow::Kind::dock);
    m_bar->menuEntries = [](const std::string&) {
        return std::vector<StatusMenuEntry>{{"menu.quit", "Quit", "q"}};
    };
    m_bar->setItems({kFallback});
    m_bar->setImage(kFallback.id, iconOf(0xFF000000));
    clickAt({1280 - 11, 10});
    ASSERT_TRUE(waitUntil([&] { return m_bar->menu().menu() != nullptr; }));
    clickAt({100, 400});
    EXPECT_TRUE(waitUntil([&] { return m_bar->menu().menu() == nullptr; }));
}

}  // namespace
}  // namespace velmora
