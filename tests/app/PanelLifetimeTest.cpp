// Panels over the real machine, opened and closed until anything that stays behind would show.

#include "app/DesktopPlatform.h"
#include "app/PanelComposition.h"
#include "app/PanelController.h"
#include "core/AppSettings.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "l10n/L10n.h"
#include "menubar/SampleSnapshots.h"
#include "panels/PanelFactory.h"
#include "panels/kit/ProcessIcons.h"
#include "platform/null/NullProcessSources.h"
#include "samplers/LiveTools.h"
#include "samplers/NetTopSampler.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>

#include <malloc.h>

namespace velmora {
namespace {

constexpr int kOpenings = 1000;
/// Caches of fonts, pictures and desktop entries fill, and the heap finds its shape.
constexpr int kWarmUp = 500;

/// What an opening could leave behind.
struct Holdings {
    qsizetype descriptors = 0;
    qsizetype threads = 0;
    int children = 0;
    std::size_t allocatedBytes =
        0;  ///< On the main thread; 0 under a sanitizer, which looks for leaks itself.

    static Holdings now() {
        Holdings holdings;
        const auto entries = [](const char* folder) {
            return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
        };
        holdings.descriptors = entries("/proc/self/fd");
        holdings.threads = entries("/proc/self/task");
        const QByteArray parent = "\nPPid:\t" + QByteArray::number(QCoreApplication::applicationPid()) + "\n";
        for (const QString& name : QDir("/proc").entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile status("/proc/" + name + "/status");
            if (name.front().isDigit() && status.open(QFile::ReadOnly) && status.readAll().contains(parent)) {
                ++holdings.children;
            }
        }
        holdings.allocatedBytes = mallinfo2().uordblks;
        return holdings;
    }
};

bool waitUntil(const std::function<bool()>& condition) {
    bool expired = false;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &limit, [&expired] { expired = true; });
    limit.start(std::chrono::seconds(10));
    while (!condition() && !expired) {
        QTimer::singleShot(20, &limit, [] {});
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

class PanelLifetimeTest : public testing::Test {
protected:
    PanelLifetimeTest() {
        qputenv("XDG_CONFIG_HOME", m_home.path().toUtf8());
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_platform = std::make_unique<Platform>(desktopPlatform());
        m_settings = std::make_unique<AppSettings>(*m_platform->defaults, *m_platform->bundle,
                                                   *m_platform->loginItem, *m_platform->systemLog);
        m_l10n = std::make_unique<L10n>(*m_platform->defaults, *m_platform->preferredLanguages, m_framework);
        m_icons = std::make_unique<ProcessIcons>(*m_platform->processIcons);
        m_controller = std::make_unique<PanelController>(
            [this](StatsModule module, std::function<void()> dismiss) {
                auto content = makeMenuView(module, collaborators(), std::move(dismiss));
                m_content = content.get();
                return content;
            },
            m_scheme, *m_icons, *m_platform->runLoop,
            Session{Session::WindowSystem::offscreen, Session::Desktop::other});
    }

    PanelCollaborators collaborators() {
        PanelCollaborators with = panelCollaborators(*m_platform, m_snapshot, *m_settings, *m_l10n, m_router,
                                                     m_tools, [](std::optional<SettingsTab>) {});
        with.makeNetTopSampler = [this] {
            return std::make_unique<NetTopSampler>(*m_platform->toolLauncher, m_tools, *m_platform->runLoop,
                                                   VELMORA_BINARY_DIR "/nettop");
        };
        return with;
    }
    /// From now on the machine tells nothing of its processes.
    void hideProcesses() {
        m_platform->processLister = std::make_unique<NullProcessLister>(*m_platform->runLoop);
        m_platform->processCounters = std::make_shared<NullProcessCounterSource>();
        m_platform->toolLauncher = std::make_unique<NullToolLauncher>();
    }
    void openAndClose(StatsModule module) {
        m_controller->toggle(module, {100, 0, 66, 26});
        ASSERT_NE(m_controller->window(), nullptr);
        m_snapshot.set(m_snapshot.get());
        turnTheLoop();
        m_controller->toggle(module, {100, 0, 66, 26});
        turnTheLoop();
    }
    void openAndCloseAll(int times) {
        for (int opening = 0; opening < times; ++opening) {
            openAndClose(kAllModules[static_cast<std::size_t>(opening) % kAllModules.size()]);
        }
        EXPECT_TRUE(waitUntil([] { return Holdings::now().children == 0; })) << "tools end with their panels";
    }
    /// Until nothing runs any more that closed panels had asked for: lists are made one after the other.
    void settle() {
        controller().toggle(StatsModule::cpu, {});
        EXPECT_TRUE(waitUntil([this] { return listsAProcess(m_content->panel()); }));
        controller().toggle(StatsModule::cpu, {});
        turnTheLoop();
    }
    static bool listsAProcess(const MenuPanel& panel) {
        for (const MenuCard& card : panel.cards) {
            for (const PanelView& view : card.content) {
                const auto* const list = std::get_if<ProcessCard>(&view);
                if (list && !list->processes.empty()) return true;
            }
        }
        return false;
    }
    static void turnTheLoop() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    PanelController& controller() { return *m_controller; }

private:
    QTemporaryDir m_home;
    FakeFrameworkLanguage m_framework;
    Published<StatsSnapshot> m_snapshot{busySnapshot()};
    Published<Scheme> m_scheme{Scheme::dark};
    SettingsRouter m_router;
    LiveTools m_tools;
    std::unique_ptr<Platform> m_platform;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<L10n> m_l10n;
    std::unique_ptr<ProcessIcons> m_icons;
    std::unique_ptr<PanelController> m_controller;
    const MenuView* m_content = nullptr;  // Of the panel that was opened last.
};

TEST_F(PanelLifetimeTest, AThousandOpeningsLeaveNothingBehind) {
    // The tables of processes are as large as the machine was busy. A single widget that stayed would be
    // more.
    constexpr std::size_t kMostBytesPerOpening = 256;
    openAndCloseAll(kWarmUp);
    settle();
    const Holdings before = Holdings::now();
    openAndCloseAll(kOpenings);
    settle();
    const Holdings after = Holdings::now();
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.threads, before.threads);
    EXPECT_EQ(after.children, before.children);
    EXPECT_LE(after.allocatedBytes, before.allocatedBytes + kMostBytesPerOpening * kOpenings);
}

TEST_F(PanelLifetimeTest, AThousandOpeningsWithoutProcessesToListTakeNoMemory) {
    // The smallest object that an opening would leave shows; tables that fill up late in all do not.
    constexpr std::size_t kMostBytesPerOpening = 64;
    hideProcesses();
    openAndCloseAll(kWarmUp);
    const Holdings before = Holdings::now();
    openAndCloseAll(kOpenings);
    EXPECT_LE(Holdings::now().allocatedBytes, before.allocatedBytes + kMostBytesPerOpening * kOpenings);
}

TEST_F(PanelLifetimeTest, TheToolOfTheNetworkPanelRunsWhileItIsOpen) {
    ASSERT_EQ(Holdings::now().children, 0);
    controller().toggle(StatsModule::network, {});
    EXPECT_TRUE(waitUntil([] { return Holdings::now().children == 1; }));
    controller().close();
    EXPECT_TRUE(waitUntil([] { return Holdings::now().children == 0; }));
}

}  // namespace
}  // namespace velmora
