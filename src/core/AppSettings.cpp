#include "core/AppSettings.h"

#include "base/ParseNumber.h"
#include "platform/Bundle.h"
#include "platform/Defaults.h"
#include "platform/LoginItem.h"
#include "platform/SystemLog.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

namespace Key {
constexpr std::string_view kOnboardingCompleted = "onboardingCompleted";
constexpr std::string_view kLaunchAtLogin = "launchAtLogin";
constexpr std::string_view kLanguageCode = "languageCode";
constexpr std::string_view kEnabledModules = "enabledModules";
constexpr std::string_view kSampleInterval = "sampleInterval";
constexpr std::string_view kModuleStyles = "moduleStyles";
constexpr std::string_view kModuleColors = "moduleColors";
constexpr std::string_view kModuleIntervals = "moduleIntervals";
constexpr std::string_view kModuleHiddenMetrics = "moduleHiddenMetrics";
constexpr std::string_view kCrashReportingEnabled = "crashReportingEnabled";
constexpr std::string_view kImproveDataSharing = "improveDataSharing";
// Older versions had one switch for all graphs, under one of these names. Read only, never removed.
constexpr std::string_view kMenubarGraphs = "menubarGraphs";
constexpr std::string_view kCPUShowsGraph = "cpuShowsGraph";
}  // namespace Key

constexpr double kBatteryIntervalFloor = 10.0;

std::vector<StatsModule> inModuleOrder(const std::vector<StatsModule>& modules) {
    std::vector<StatsModule> ordered;
    for (const StatsModule module : kAllModules) {
        if (std::ranges::find(modules, module) != modules.end()) ordered.push_back(module);
    }
    return ordered;
}

std::vector<StatsModule> storedModules(const Defaults& defaults) {
    const auto texts = defaults.textArray(Key::kEnabledModules);
    if (!texts) return {StatsModule::cpu, StatsModule::memory, StatsModule::network};
    std::vector<StatsModule> modules;
    for (const std::string& text : *texts) {
        if (const auto module = moduleFromRawValue(text)) modules.push_back(*module);
    }
    return inModuleOrder(modules);
}

/// The entries of a stored map whose keys are modules, with their values converted by `convert`; entries that
/// it gives nothing for are left out.
template <typename Value, typename Stored, typename Convert>
std::map<StatsModule, Value> byModule(const std::optional<std::map<std::string, Stored>>& stored,
                                      Convert convert) {
    std::map<StatsModule, Value> entries;
    if (!stored) return entries;
    for (const auto& [raw, element] : *stored) {
        const auto module = moduleFromRawValue(raw);
        if (!module) continue;
        if (std::optional<Value> value = convert(element)) entries.emplace(*module, std::move(*value));
    }
    return entries;
}

/// The reverse: a map to store.
template <typename Stored, typename Value, typename Convert>
std::map<std::string, Stored> byRawValue(const std::map<StatsModule, Value>& entries, Convert convert) {
    std::map<std::string, Stored> stored;
    for (const auto& [module, value] : entries) stored.emplace(rawValue(module), convert(value));
    return stored;
}

AppSettings::Styles migratedStyles(const Defaults& defaults) {
    auto showsGraphs = defaults.boolean(Key::kMenubarGraphs);
    if (!showsGraphs) showsGraphs = defaults.boolean(Key::kCPUShowsGraph);
    AppSettings::Styles styles;
    if (showsGraphs.value_or(true)) return styles;
    for (const StatsModule module : kAllModules) styles.emplace(module, ModuleStyle::value);
    return styles;
}

AppSettings::Styles storedStyles(const Defaults& defaults) {
    const auto texts = defaults.textMap(Key::kModuleStyles);
    if (!texts) return migratedStyles(defaults);
    return byModule<ModuleStyle>(texts, [](const std::string& text) { return styleFromRawValue(text); });
}

AppSettings::Colors storedColors(const Defaults& defaults) {
    return byModule<std::string>(defaults.textMap(Key::kModuleColors),
                                 [](const std::string& text) { return std::optional(text); });
}

AppSettings::Intervals storedIntervals(const Defaults& defaults) {
    return byModule<double>(defaults.numberMap(Key::kModuleIntervals),
                            [](double seconds) { return std::optional(seconds); });
}

AppSettings::HiddenMetrics storedHiddenMetrics(const Defaults& defaults) {
    using Keys = std::set<std::string>;
    return byModule<Keys>(
        defaults.textArrayMap(Key::kModuleHiddenMetrics),
        [](const std::vector<std::string>& keys) { return std::optional(Keys(keys.begin(), keys.end())); });
}

bool storedFlag(const Defaults& defaults, std::string_view key, bool otherwise) {
    return defaults.boolean(key).value_or(otherwise);
}

double storedInterval(const Defaults& defaults) {
    return defaults.number(Key::kSampleInterval).value_or(2.0);
}

}  // namespace

AppSettings::AppSettings(Defaults& defaults, const Bundle& bundle, LoginItem& loginItem, SystemLog& log)
    : m_defaults(defaults), m_bundle(bundle), m_loginItem(loginItem), m_log(log) {
    const bool decidedOnLogin = defaults.read(Key::kLaunchAtLogin).has_value();
    followStore();
    if (!decidedOnLogin) {
        m_defaults.setBoolean(Key::kLaunchAtLogin, true);
        applyLaunchAtLogin();
    }
    m_storeChanges = defaults.changedOutside.subscribe([this] { followStore(); });
}

template <typename Value>
void AppSettings::follow(Published<Value>& property, const Value& stored) {
    if (property.get() == stored) return;
    m_willChange.fire();
    property.set(stored);
}

void AppSettings::followStore() {
    follow(m_onboardingCompleted, storedFlag(m_defaults, Key::kOnboardingCompleted, false));
    follow(m_launchAtLogin, storedFlag(m_defaults, Key::kLaunchAtLogin, true));
    follow(m_languageCode, m_defaults.text(Key::kLanguageCode));
    follow(m_enabledModules, storedModules(m_defaults));
    follow(m_sampleInterval, storedInterval(m_defaults));
    follow(m_moduleStyles, storedStyles(m_defaults));
    follow(m_moduleColors, storedColors(m_defaults));
    follow(m_moduleIntervals, storedIntervals(m_defaults));
    follow(m_moduleMetrics, storedHiddenMetrics(m_defaults));
    follow(m_crashReportingEnabled, storedFlag(m_defaults, Key::kCrashReportingEnabled, true));
    const bool wasSharing = m_improveDataSharing.get();
    follow(m_improveDataSharing, storedFlag(m_defaults, Key::kImproveDataSharing, true));
    // The refusal counts for what waits here too, whichever process heard it.
    if (wasSharing && !m_improveDataSharing.get() && m_clearImproveQueue) m_clearImproveQueue();
}

// What is stored is the property's value after its subscribers ran: one of them may have set it again.

void AppSettings::setOnboardingCompleted(bool completed) {
    m_willChange.fire();
    m_onboardingCompleted.set(completed);
    m_defaults.setBoolean(Key::kOnboardingCompleted, m_onboardingCompleted.get());
}

void AppSettings::setLaunchAtLogin(bool launch) {
    m_willChange.fire();
    m_launchAtLogin.set(launch);
    m_defaults.setBoolean(Key::kLaunchAtLogin, m_launchAtLogin.get());
    applyLaunchAtLogin();
}

void AppSettings::setLanguageCode(std::optional<std::string> code) {
    m_willChange.fire();
    m_languageCode.set(std::move(code));
    if (const auto& stored = m_languageCode.get()) {
        m_defaults.setText(Key::kLanguageCode, *stored);
    } else {
        m_defaults.remove(Key::kLanguageCode);
    }
}

void AppSettings::setEnabledModules(const std::vector<StatsModule>& modules) {
    m_willChange.fire();
    m_enabledModules.set(inModuleOrder(modules));
    std::vector<std::string> texts;
    for (const StatsModule module : m_enabledModules.get()) texts.emplace_back(rawValue(module));
    m_defaults.setTextArray(Key::kEnabledModules, texts);
}

void AppSettings::setSampleInterval(double seconds) {
    m_willChange.fire();
    m_sampleInterval.set(seconds);
    m_defaults.setNumber(Key::kSampleInterval, m_sampleInterval.get());
}

void AppSettings::setModuleStyles(const Styles& styles) {
    m_willChange.fire();
    m_moduleStyles.set(styles);
    const auto texts = byRawValue<std::string>(
        m_moduleStyles.get(), [](ModuleStyle style) { return std::string(rawValue(style)); });
    m_defaults.setTextMap(Key::kModuleStyles, texts);
}

void AppSettings::setModuleColors(const Colors& colors) {
    m_willChange.fire();
    m_moduleColors.set(colors);
    const auto texts =
        byRawValue<std::string>(m_moduleColors.get(), [](const std::string& text) { return text; });
    m_defaults.setTextMap(Key::kModuleColors, texts);
}

void AppSettings::setModuleIntervals(const Intervals& intervals) {
    m_willChange.fire();
    m_moduleIntervals.set(intervals);
    const auto numbers = byRawValue<double>(m_moduleIntervals.get(), [](double seconds) { return seconds; });
    m_defaults.setNumberMap(Key::kModuleIntervals, numbers);
}

void AppSettings::setModuleMetrics(const HiddenMetrics& hidden) {
    using Keys = std::vector<std::string>;
    m_willChange.fire();
    m_moduleMetrics.set(hidden);
    const auto arrays = byRawValue<Keys>(m_moduleMetrics.get(), [](const std::set<std::string>& keys) {
        return Keys(keys.begin(), keys.end());
    });
    m_defaults.setTextArrayMap(Key::kModuleHiddenMetrics, arrays);
}

void AppSettings::setCrashReportingEnabled(bool enabled) {
    m_willChange.fire();
    m_crashReportingEnabled.set(enabled);
    m_defaults.setBoolean(Key::kCrashReportingEnabled, m_crashReportingEnabled.get());
}

void AppSettings::setImproveDataSharing(bool sharing) {
    m_willChange.fire();
    m_improveDataSharing.set(sharing);
    m_defaults.setBoolean(Key::kImproveDataSharing, m_improveDataSharing.get());
    if (!m_improveDataSharing.get() && m_clearImproveQueue) m_clearImproveQueue();
}

bool AppSettings::isEnabled(StatsModule module) const {
    return std::ranges::find(m_enabledModules.get(), module) != m_enabledModules.get().end();
}

void AppSettings::setEnabled(StatsModule module, bool on) {
    std::vector<StatsModule> modules = m_enabledModules.get();
    std::erase(modules, module);
    if (on) modules.push_back(module);
    setEnabledModules(modules);
}

double AppSettings::interval(StatsModule module) const {
    const Intervals& own = m_moduleIntervals.get();
    if (const auto entry = own.find(module); entry != own.end()) return entry->second;
    const double inherited = m_sampleInterval.get();
    return module == StatsModule::battery ? std::max(inherited, kBatteryIntervalFloor) : inherited;
}

void AppSettings::setInterval(double seconds, StatsModule module) {
    Intervals intervals = m_moduleIntervals.get();
    intervals[module] = seconds;
    setModuleIntervals(intervals);
}

ModuleStyle AppSettings::style(StatsModule module) const {
    const Styles& styles = m_moduleStyles.get();
    const auto entry = styles.find(module);
    return entry != styles.end() ? entry->second : ModuleStyle::graphValue;
}

void AppSettings::setStyle(ModuleStyle style, StatsModule module) {
    Styles styles = m_moduleStyles.get();
    styles[module] = style;
    setModuleStyles(styles);
}

std::optional<RGBColor> AppSettings::color(StatsModule module) const {
    constexpr std::size_t kDigitsOf32Bits = 8;
    const Colors& colors = m_moduleColors.get();
    const auto entry = colors.find(module);
    // More digits are no colour even if they are zeros.
    if (entry == colors.end() || entry->second.size() > kDigitsOf32Bits) return std::nullopt;
    const auto bits = parseNumber<std::uint32_t>(entry->second, 16);
    if (!bits) return std::nullopt;
    const auto channel = [&](int shift) { return static_cast<std::uint8_t>(*bits >> shift & 0xFFU); };
    return RGBColor{channel(16), channel(8), channel(0)};
}

bool AppSettings::isMetricVisible(std::string_view key, StatsModule module) const {
    const HiddenMetrics& hidden = m_moduleMetrics.get();
    const auto entry = hidden.find(module);
    return entry == hidden.end() || std::ranges::find(entry->second, key) == entry->second.end();
}

void AppSettings::setMetric(const std::string& key, bool visible, StatsModule module) {
    HiddenMetrics hidden = m_moduleMetrics.get();
    std::set<std::string>& keys = hidden[module];
    if (visible) {
        keys.erase(key);
    } else {
        keys.insert(key);
    }
    setModuleMetrics(hidden);
}

void AppSettings::applyLaunchAtLogin() {
    if (!m_bundle.identifier()) {
        m_log.write("Velmora: skipping launch-at-login update (not running from an app bundle)");
        return;
    }
    const auto failure = m_launchAtLogin.get() ? m_loginItem.registerItem() : m_loginItem.unregisterItem();
    if (failure) m_log.write("Velmora: launch-at-login update failed: " + *failure);
}

}  // namespace velmora
