#pragma once

#include "core/AppSettings.h"
#include "core/StatsEngine.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeImproveEvents.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSamplers.h"
#include "fakes/FakeSystemLog.h"

#include <memory>

namespace velmora {

/// An engine among doubles, in virtual time.
struct EngineHouse {
    explicit EngineHouse(const ModuleSet& enabled) {
        std::vector<StatsModule> modules;
        for (const StatsModule module : kAllModules) {
            if (enabled.contains(module)) modules.push_back(module);
        }
        settings.setEnabledModules(modules);
    }

    const StatsSnapshot& snapshot() const { return engine->snapshot().get(); }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeDefaults defaults;
    FakeBundle bundle;
    FakeLoginItem loginItem;
    FakeSystemLog log;
    FakeDisplay display;
    FakeImproveEvents improve;
    FakeSamplers samplers;
    AppSettings settings{defaults, bundle, loginItem, log};
    Published<ModuleSet> placed;
    std::unique_ptr<StatsEngine> engine = std::make_unique<StatsEngine>(
        clock, runLoop, defaults, settings, display, improve, placed, samplers.view());
};

}  // namespace velmora
