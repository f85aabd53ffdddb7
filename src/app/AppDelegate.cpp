#include "app/AppDelegate.h"

#include "base/FormatText.h"
#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "menubar/StatusItemController.h"
#include "platform/Clock.h"
#include "platform/ImproveEvents.h"
#include "platform/ProcessMeter.h"
#include "platform/RunLoop.h"

#include <nlohmann/json.hpp>

#include <QString>
#include <QUrl>

#include <cmath>

namespace velmora {
namespace {

constexpr double kSecondsUntilEnvironmentEvent = 8.0;
constexpr double kSelfLoadPeriod = 3600.0;

/// "cpu:<text>,network:<text>" over the enabled modules.
std::string perModule(const AppSettings& settings, const std::function<std::string(StatsModule)>& text) {
    std::string list;
    for (const StatsModule module : settings.enabledModules().get()) {
        if (!list.empty()) list += ',';
        list.append(rawValue(module)).append(":").append(text(module));
    }
    return list;
}

/// Cut to a whole number, of which a stored interval may have any size; 0 for one that is not finite.
std::string wholeSeconds(double seconds) {
    // The sum has no negative zero.
    return formatText("%.0f", {std::isfinite(seconds) ? std::trunc(seconds) + 0.0 : 0.0});
}

nlohmann::json enabledRawValues(const AppSettings& settings) {
    nlohmann::json names = nlohmann::json::array();
    for (const StatsModule module : settings.enabledModules().get())
        names.push_back(std::string(rawValue(module)));
    return names;
}

}  // namespace

AppDelegate::AppDelegate(Collaborators collaborators) : m_with(std::move(collaborators)) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    m_with.l10n.bootstrap();
    // The engine comes before the items, so that they have figures to show from the outset.
    m_with.startEngine();
    m_statusItems = m_with.makeStatusItems();
    m_with.reapOrphans();
    m_environmentTimer = m_with.runLoop.after(kSecondsUntilEnvironmentEvent, [this] { recordEnvironment(); });
    startSelfLoadReporting();
}

void AppDelegate::applicationWillTerminate() {
    m_with.terminateTools();
    m_environmentTimer.reset();
    m_selfLoadTimer.reset();
    m_statusItems.reset();
}

void AppDelegate::handleURL(const std::string& text) {
    const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
    if (!url.isValid() || url.scheme().isEmpty()) return;
    if (!m_handleCallback || !m_handleCallback(text)) return;
    if (m_openAccountPage) m_openAccountPage();
}

void AppDelegate::togglePanel(StatsModule module, const Anchor& otherwise) {
    if (m_statusItems) m_statusItems->togglePanel(module, otherwise);
}

void AppDelegate::recordEnvironment() {
    const AppSettings& settings = m_with.settings;
    const auto& hidden = settings.moduleMetrics().get();
    m_with.improveEvents.record(
        "app.env",
        {{"hwModel", m_with.processMeter.hardwareModel()},
         {"enabledModules", enabledRawValues(settings)},
         {"styles",
          perModule(settings,
                    [&](StatsModule module) { return std::string(rawValue(settings.style(module))); })},
         {"metrics", perModule(settings,
                               [&](StatsModule module) {
                                   const auto entry = hidden.find(module);
                                   return formatText("%d",
                                                     {entry == hidden.end() ? 0 : entry->second.size()});
                               })},
         {"intervals",
          perModule(settings, [&](StatsModule module) { return wholeSeconds(settings.interval(module)); })},
         {"nestoraBridge", !m_with.placedModules.get().empty()}});
}

void AppDelegate::startSelfLoadReporting() {
    m_lastCPUTimeSeconds = m_with.processMeter.cpuTimeSeconds();
    m_lastCPUSampleAt = m_with.clock.now();
    m_selfLoadTimer = m_with.runLoop.every(
        kSelfLoadPeriod, [this] { m_with.runLoop.post(m_life.wrap([this] { recordSelfLoad(); })); });
}

void AppDelegate::recordSelfLoad() {
    const double cpu = m_with.processMeter.cpuTimeSeconds();
    const Date now = m_with.clock.now();
    const double gap = m_lastCPUSampleAt ? now - *m_lastCPUSampleAt : 0;
    const double average = gap > 0 && m_lastCPUTimeSeconds ? (cpu - *m_lastCPUTimeSeconds) / gap * 100 : 0;
    m_lastCPUTimeSeconds = cpu;
    m_lastCPUSampleAt = now;

    const AppSettings& settings = m_with.settings;
    const auto& enabled = settings.enabledModules().get();
    double shortest = settings.sampleInterval().get();
    if (!enabled.empty()) {
        shortest = settings.interval(enabled.front());
        for (const StatsModule module : enabled) shortest = std::min(shortest, settings.interval(module));
    }
    m_with.improveEvents.record("self.load",
                                {{"cpuAvgPct", average},
                                 {"memMB", static_cast<double>(m_with.processMeter.residentBytes()) / 1e6},
                                 {"enabledModules", enabledRawValues(settings)},
                                 {"minInterval", shortest}});
}

}  // namespace velmora
