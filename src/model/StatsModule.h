#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>

namespace velmora {

/// The six modules, in the order in which a tick visits them and in which they stand on the status bar.
enum class StatsModule { cpu, memory, disk, network, sensors, battery };

inline constexpr std::array kAllModules = {StatsModule::cpu,     StatsModule::memory,  StatsModule::disk,
                                           StatsModule::network, StatsModule::sensors, StatsModule::battery};
inline constexpr std::size_t kModuleCount = kAllModules.size();

constexpr std::size_t indexOf(StatsModule module) {
    return static_cast<std::size_t>(module);
}

/// The text that stands for the module in every stored map and message: "cpu", "memory" …
std::string_view rawValue(StatsModule module);
/// Exact and case sensitive; nothing for any other text.
std::optional<StatsModule> moduleFromRawValue(std::string_view raw);
/// The three letters on the status bar: "CPU", "MEM", "DSK", "NET", "SEN", "BAT".
std::string_view shortLabel(StatsModule module);

/// A section of a module's panel that the user may hide.
struct ModuleMetric {
    std::string_view key;       ///< As stored in the hidden sets.
    std::string_view labelKey;  ///< Key of its name in the string tables.
};
/// The module's hideable sections in display order.
std::span<const ModuleMetric> metrics(StatsModule module);

/// A set of modules, iterated in module order.
class ModuleSet {
public:
    ModuleSet() = default;
    ModuleSet(std::initializer_list<StatsModule> modules) {
        for (const StatsModule module : modules) insert(module);
    }
    static ModuleSet all() {
        return ModuleSet{StatsModule::cpu,     StatsModule::memory,  StatsModule::disk,
                         StatsModule::network, StatsModule::sensors, StatsModule::battery};
    }

    void insert(StatsModule module) { m_bits.set(indexOf(module)); }
    void remove(StatsModule module) { m_bits.reset(indexOf(module)); }
    void clear() { m_bits.reset(); }
    bool contains(StatsModule module) const { return m_bits.test(indexOf(module)); }
    bool empty() const { return m_bits.none(); }
    std::size_t size() const { return m_bits.count(); }
    friend bool operator==(const ModuleSet&, const ModuleSet&) = default;

private:
    std::bitset<kModuleCount> m_bits;
};

}  // namespace velmora
