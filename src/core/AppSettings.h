#pragma once

#include "base/Published.h"
#include "base/Signal.h"
#include "base/Subscription.h"
#include "model/ModuleStyle.h"
#include "model/StatsModule.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

class Bundle;
class Defaults;
class LoginItem;
class SystemLog;

/// An opaque sRGB colour, each channel 0 to 255.
struct RGBColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const RGBColor&, const RGBColor&) = default;
};

/// The user's choices. A setter notifies and stores at once: first `willChange`, on the same call stack while
/// the old value still stands, then the property's own subscribers with the new value, then the store. Who
/// needs the new value from `willChange` defers by one `RunLoop::post`. What another process stores is
/// followed in the same way. An unset choice is absent, never a sentinel. Main thread only.
class AppSettings {
public:
    using Styles = std::map<StatsModule, ModuleStyle>;
    using Colors = std::map<StatsModule, std::string>;
    using Intervals = std::map<StatsModule, double>;
    using HiddenMetrics = std::map<StatsModule, std::set<std::string>>;

    /// Restores everything from the defaults. A first run, in which the login item was never decided on,
    /// stores that it is wanted and registers it.
    AppSettings(Defaults& defaults, const Bundle& bundle, LoginItem& loginItem, SystemLog& log);
    AppSettings(const AppSettings&) = delete;
    AppSettings& operator=(const AppSettings&) = delete;
    static AppSettings& shared();

    /// Fires before any property changes.
    Signal<>& willChange() { return m_willChange; }

    const Published<bool>& onboardingCompleted() const { return m_onboardingCompleted; }
    void setOnboardingCompleted(bool completed);
    const Published<bool>& launchAtLogin() const { return m_launchAtLogin; }
    void setLaunchAtLogin(bool launch);
    /// Absent: follow the system.
    const Published<std::optional<std::string>>& languageCode() const { return m_languageCode; }
    void setLanguageCode(std::optional<std::string> code);
    /// Always in module order, without duplicates.
    const Published<std::vector<StatsModule>>& enabledModules() const { return m_enabledModules; }
    void setEnabledModules(const std::vector<StatsModule>& modules);
    /// Seconds.
    const Published<double>& sampleInterval() const { return m_sampleInterval; }
    void setSampleInterval(double seconds);
    /// A module without an entry draws `graphValue`.
    const Published<Styles>& moduleStyles() const { return m_moduleStyles; }
    void setModuleStyles(const Styles& styles);
    /// Hexadecimal texts; a module without an entry follows the bar.
    const Published<Colors>& moduleColors() const { return m_moduleColors; }
    void setModuleColors(const Colors& colors);
    /// Seconds; see `interval`.
    const Published<Intervals>& moduleIntervals() const { return m_moduleIntervals; }
    void setModuleIntervals(const Intervals& intervals);
    /// Keys of the panel sections that are hidden.
    const Published<HiddenMetrics>& moduleMetrics() const { return m_moduleMetrics; }
    void setModuleMetrics(const HiddenMetrics& hidden);
    const Published<bool>& crashReportingEnabled() const { return m_crashReportingEnabled; }
    void setCrashReportingEnabled(bool enabled);
    const Published<bool>& improveDataSharing() const { return m_improveDataSharing; }
    void setImproveDataSharing(bool sharing);

    bool isEnabled(StatsModule module) const;
    void setEnabled(StatsModule module, bool on);
    /// The module's own interval, else for the battery at least 10 s, else `sampleInterval`.
    double interval(StatsModule module) const;
    void setInterval(double seconds, StatsModule module);
    /// The stored style, else `graphValue`.
    ModuleStyle style(StatsModule module) const;
    void setStyle(ModuleStyle style, StatsModule module);
    /// Nothing for an absent, empty or unparsable text: automatic ink.
    std::optional<RGBColor> color(StatsModule module) const;
    bool isMetricVisible(std::string_view key, StatsModule module) const;
    void setMetric(const std::string& key, bool visible, StatsModule module);

    /// Registers or unregisters the login item as `launchAtLogin` says. Without a bundle identifier it writes
    /// a log line and does nothing; a failure is logged and changes no setting.
    void applyLaunchAtLogin();

    /// Called after `improveDataSharing` was turned off, here or by another process.
    void setImproveQueueClearer(std::function<void()> clear) { m_clearImproveQueue = std::move(clear); }

private:
    /// Takes over what another process stored: changed properties notify as after a setter, and nothing is
    /// stored again.
    void followStore();
    template <typename Value>
    void follow(Published<Value>& property, const Value& stored);

    Defaults& m_defaults;
    const Bundle& m_bundle;
    LoginItem& m_loginItem;
    SystemLog& m_log;
    std::function<void()> m_clearImproveQueue;

    Signal<> m_willChange;
    Published<bool> m_onboardingCompleted{false};
    Published<bool> m_launchAtLogin{true};
    Published<std::optional<std::string>> m_languageCode;
    Published<std::vector<StatsModule>> m_enabledModules;
    Published<double> m_sampleInterval{2.0};
    Published<Styles> m_moduleStyles;
    Published<Colors> m_moduleColors;
    Published<Intervals> m_moduleIntervals;
    Published<HiddenMetrics> m_moduleMetrics;
    Published<bool> m_crashReportingEnabled{true};
    Published<bool> m_improveDataSharing{true};
    Subscription m_storeChanges;
};

}  // namespace velmora
