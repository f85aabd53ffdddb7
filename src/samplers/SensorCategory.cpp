#include "samplers/SensorCategory.h"

#include <algorithm>
#include <array>
#include <string>

namespace velmora {
namespace {

// Every text that is looked for is made of ASCII letters that no letter beyond ASCII folds to, so folding
// these alone gives what the rules of any language would.
constexpr char lowered(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// The name in lower case, without the heap for names of a usual length.
class LoweredName {
public:
    explicit LoweredName(std::string_view name) {
        if (name.size() <= m_short.size()) {
            m_text = {m_short.data(), name.size()};
            std::ranges::transform(name, m_short.begin(), lowered);
        } else {
            m_long.resize(name.size());
            std::ranges::transform(name, m_long.begin(), lowered);
            m_text = m_long;
        }
    }
    LoweredName(const LoweredName&) = delete;
    LoweredName& operator=(const LoweredName&) = delete;

    std::string_view text() const { return m_text; }

private:
    std::array<char, 128> m_short;
    std::string m_long;
    std::string_view m_text;
};

bool contains(std::string_view name, std::string_view text) {
    return name.find(text) != std::string_view::npos;
}

enum class Place { anywhere, atBeginning };

struct Rule {
    Place place;
    std::string_view text;
    TempCategory category;
};

/// The first rule that fits decides: "NAND CH0 temp" is a disk, and "tcal" is a calibration value whatever
/// else is in the name.
constexpr std::array kRules = {
    Rule{Place::anywhere, "nand", TempCategory::ssd},
    Rule{Place::anywhere, "ssd", TempCategory::ssd},
    Rule{Place::atBeginning, "tn", TempCategory::ssd},
    Rule{Place::anywhere, "gpu", TempCategory::gpu},
    Rule{Place::atBeginning, "tg0", TempCategory::gpu},
    Rule{Place::anywhere, "batt", TempCategory::battery},
    Rule{Place::anywhere, "gas gauge", TempCategory::battery},
    Rule{Place::anywhere, "tcal", TempCategory::other},
    Rule{Place::anywhere, "tdie", TempCategory::cpu},
    Rule{Place::anywhere, "pacc", TempCategory::cpu},
    Rule{Place::anywhere, "eacc", TempCategory::cpu},
    Rule{Place::anywhere, "cpu", TempCategory::cpu},
    Rule{Place::atBeginning, "tc0", TempCategory::cpu},
    Rule{Place::anywhere, "soc", TempCategory::soc},
    Rule{Place::anywhere, "tdev", TempCategory::enclosure},
    Rule{Place::atBeginning, "ts0", TempCategory::enclosure},
    Rule{Place::atBeginning, "th0", TempCategory::enclosure},
};

bool fits(const Rule& rule, std::string_view loweredName) {
    switch (rule.place) {
        case Place::anywhere:
            return contains(loweredName, rule.text);
        case Place::atBeginning:
            return loweredName.starts_with(rule.text);
    }
    return false;
}

}  // namespace

TempCategory categoryOfSensor(std::string_view sensorName) {
    const LoweredName name(sensorName);
    const auto rule = std::ranges::find_if(kRules, [&](const Rule& each) { return fits(each, name.text()); });
    return rule == kRules.end() ? TempCategory::other : rule->category;
}

ProcessorSensor processorSensor(std::string_view sensorName) {
    if (contains(sensorName, "tdie") || contains(sensorName, "pACC") || contains(sensorName, "eACC") ||
        contains(LoweredName(sensorName).text(), "cpu"))
        return ProcessorSensor::cpu;
    return contains(sensorName, "SOC") ? ProcessorSensor::soc : ProcessorSensor::none;
}

}  // namespace velmora
