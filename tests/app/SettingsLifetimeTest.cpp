// The settings window, opened and closed until anything that stays behind would show.

#include "app/SettingsComposition.h"
#include "core/AppSettings.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "l10n/L10n.h"
#include "menubar/SampleSnapshots.h"
#include "platform/null/NullPlatform.h"
#include "settings/window/SettingsWindow.h"
#include "settings/window/SettingsWindowController.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>

#include <malloc.h>

namespace velmora {
namespace {

constexpr int kOpenings = 500;
/// Caches of fonts and pictures fill, and the heap finds its shape.
constexpr int kWarmUp = 150;

class SettingsLifetimeTest : public testing::Test {
protected:
    static qsizetype entries(const char* folder) {
        return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
    }
    void turnTheLoop() {
        QCoreApplication::processEvents();
        runLoop.runPosted();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Each time another page; every fourth time the tab changes while the window is open, every fifth it is
    /// painted.
    void openAndClose(int opening) {
        router.selectedModule.set(kAllModules[static_cast<std::size_t>(opening) % kAllModules.size()]);
        const SettingsTab tabs[] = {SettingsTab::modules, SettingsTab::general, SettingsTab::modules,
                                    SettingsTab::about};
        controller.show(tabs[opening % 4]);
        turnTheLoop();
        ASSERT_NE(controller.window(), nullptr);
        if (opening % 5 == 0) controller.window()->grab();
        snapshot.set(snapshot.get());
        if (opening % 4 == 3) router.selectedTab.set(SettingsTab::modules);
        turnTheLoop();
        controller.window()->close();
        turnTheLoop();
    }

    FakeClock clock;
    Platform platform = nullPlatform(std::make_unique<FakeClock>(), std::make_unique<FakeRunLoop>(clock));
    FakeRunLoop& runLoop = static_cast<FakeRunLoop&>(*platform.runLoop);
    AppSettings settings{*platform.defaults, *platform.bundle, *platform.loginItem, *platform.systemLog};
    L10n l10n{*platform.defaults, *platform.preferredLanguages, *platform.frameworkLanguage};
    Published<StatsSnapshot> snapshot{busySnapshot()};
    Published<Scheme> scheme{Scheme::dark};
    SettingsRouter router;
    SettingsWindowController controller{
        settingsCollaborators(platform, snapshot, settings, l10n, router, scheme)};
};

TEST_F(SettingsLifetimeTest, FiveHundredOpeningsLeaveNothingBehind) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "with that sanitizer they take minutes";
#endif
    // The smallest widget that stayed would be more.
    constexpr std::size_t kMostBytesPerOpening = 128;
    for (int opening = 0; opening < kWarmUp; ++opening) openAndClose(opening);
    const qsizetype descriptors = entries("/proc/self/fd");
    const qsizetype threads = entries("/proc/self/task");
    // 0 under a sanitizer, which looks for leaks itself.
    const std::size_t bytes = mallinfo2().uordblks;
    for (int opening = 0; opening < kOpenings; ++opening) openAndClose(opening);
    EXPECT_EQ(entries("/proc/self/fd"), descriptors);
    EXPECT_EQ(entries("/proc/self/task"), threads);
    EXPECT_LE(mallinfo2().uordblks, bytes + kMostBytesPerOpening * kOpenings);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(SettingsLifetimeTest, TheProgramsEndTakesAnOpenWindowAlong) {
    controller.show(SettingsTab::about);
    turnTheLoop();
    controller.dropWindow();
    EXPECT_EQ(controller.window(), nullptr);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    EXPECT_EQ(snapshot.subscriberCount(), 0u);
}

}  // namespace
}  // namespace velmora
