#include "ShotFigures.h"

#include "base/Published.h"
#include "core/AppSettings.h"
#include "core/StatsEngine.h"
#include "model/SnapshotJson.h"
#include "platform/linux/LinuxSources.h"
#include "platform/linux/loop/BootTimeClock.h"
#include "platform/linux/loop/HeadlessRunLoop.h"
#include "platform/linux/loop/SystemClock.h"
#include "platform/null/NullPlatform.h"
#include "samplers/SamplerSet.h"

#include <fstream>
#include <memory>
#include <utility>

namespace velmora {
namespace {

constexpr double kTickSeconds = 0.5;
constexpr int kTicks = 16;

}  // namespace

std::optional<StatsSnapshot> figuresFromFile(const std::string& path, std::string& error) {
    std::ifstream file(path);
    if (!file) {
        error = "cannot read " + path;
        return std::nullopt;
    }
    std::string last;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty()) last = std::move(line);
    }
    std::string reason;
    auto snapshot = snapshotFromJson(last, reason);
    if (!snapshot) error = path + ": " + (last.empty() ? "no figures" : reason);
    return snapshot;
}

StatsSnapshot liveFigures(const std::vector<StatsModule>& modules) {
    auto ownedLoop = std::make_unique<HeadlessRunLoop>();
    HeadlessRunLoop& loop = *ownedLoop;
    Platform platform = nullPlatform(std::make_unique<SystemClock>(), std::move(ownedLoop));
    platform.monotonicClock = std::make_unique<BootTimeClock>();
    addLinuxWorkers(platform);
    addLinuxSources(platform, SystemRoot());

    AppSettings settings(*platform.defaults, *platform.bundle, *platform.loginItem, *platform.systemLog);
    settings.setSampleInterval(kTickSeconds);
    settings.setEnabledModules(modules);
    SamplerSet samplers(platform);
    const Published<ModuleSet> placedModules;
    StatsEngine engine(*platform.clock, loop, *platform.defaults, settings, *platform.display,
                       *platform.improveEvents, placedModules, samplers.view());
    engine.start();
    const Subscription end = loop.after(kTickSeconds * kTicks, [&loop] { loop.quit(); });
    loop.run();
    return engine.snapshot().get();
}

}  // namespace velmora
