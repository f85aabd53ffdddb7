#include "platform/linux/power/PowerSupply.h"

#include "base/ParseNumber.h"
#include "base/Utf8Text.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

/// A name of a device that is longer is cut.
constexpr std::size_t kLongestText = 128;

std::optional<std::int64_t> number(std::string_view text) {
    // A hundred times what a driver makes of the 32-bit "unknown" of firmware: that must get through to where
    // impossible figures are sorted out, and sums of a few must fit.
    constexpr std::int64_t kBeyondReason = 1'000'000'000'000'000;
    const auto value = parseNumber<std::int64_t>(text);
    if (!value || *value > kBeyondReason || *value < -kBeyondReason) return std::nullopt;
    return value;
}

std::string plainText(std::string_view text) {
    text = text.substr(0, kLongestText);
    while (text.ends_with(' ')) text.remove_suffix(1);
    while (text.starts_with(' ')) text.remove_prefix(1);
    const bool hasControl =
        std::ranges::any_of(text, [](char letter) { return letter >= 0 && letter < ' '; });
    return hasControl ? std::string() : validUtf8(text);
}

struct TextProperty {
    std::string_view name;
    std::string PowerSupply::*member;
};
constexpr std::array kTexts = {
    TextProperty{"TYPE", &PowerSupply::type},
    TextProperty{"SCOPE", &PowerSupply::scope},
    TextProperty{"STATUS", &PowerSupply::status},
    TextProperty{"MODEL_NAME", &PowerSupply::modelName},
};

struct NumberProperty {
    std::string_view name;
    std::optional<std::int64_t> PowerSupply::*member;
};
constexpr std::array kNumbers = {
    NumberProperty{"PRESENT", &PowerSupply::present},
    NumberProperty{"ONLINE", &PowerSupply::online},
    NumberProperty{"CAPACITY", &PowerSupply::capacity},
    NumberProperty{"ENERGY_NOW", &PowerSupply::energyNow},
    NumberProperty{"ENERGY_FULL", &PowerSupply::energyFull},
    NumberProperty{"ENERGY_FULL_DESIGN", &PowerSupply::energyFullDesign},
    NumberProperty{"CHARGE_NOW", &PowerSupply::chargeNow},
    NumberProperty{"CHARGE_FULL", &PowerSupply::chargeFull},
    NumberProperty{"CHARGE_FULL_DESIGN", &PowerSupply::chargeFullDesign},
    NumberProperty{"VOLTAGE_NOW", &PowerSupply::voltageNow},
    NumberProperty{"VOLTAGE_MIN_DESIGN", &PowerSupply::voltageMinDesign},
    NumberProperty{"CURRENT_NOW", &PowerSupply::currentNow},
    NumberProperty{"POWER_NOW", &PowerSupply::powerNow},
    NumberProperty{"CYCLE_COUNT", &PowerSupply::cycleCount},
    NumberProperty{"TEMP", &PowerSupply::temperature},
};

constexpr auto kNames = [] {
    std::array<std::string_view, kTexts.size() + kNumbers.size()> names{};
    std::size_t count = 0;
    for (const auto& property : kTexts) names[count++] = property.name;
    for (const auto& property : kNumbers) names[count++] = property.name;
    return names;
}();

}  // namespace

bool PowerSupply::isThere() const {
    return present.value_or(1) != 0;
}

bool PowerSupply::isMachineBattery() const {
    return type == "Battery" && scope != "Device" && isThere();
}

bool PowerSupply::isOutsideSupply() const {
    return scope != "Device" && (type == "Mains" || type == "Wireless" || type.starts_with("USB"));
}

void takePowerSupplyProperty(PowerSupply& supply, std::string_view name, std::string_view value) {
    if (const auto text = std::ranges::find(kTexts, name, &TextProperty::name); text != kTexts.end()) {
        supply.*text->member = plainText(value);
    } else if (const auto found = std::ranges::find(kNumbers, name, &NumberProperty::name);
               found != kNumbers.end()) {
        supply.*found->member = number(value);
    }
}

PowerSupply parsePowerSupply(std::string_view text) {
    constexpr std::string_view kPrefix = "POWER_SUPPLY_";
    PowerSupply supply;
    while (true) {
        // A line without its end may have lost digits.
        const auto length = text.find('\n');
        if (length == std::string_view::npos) return supply;
        std::string_view line = text.substr(0, length);
        text.remove_prefix(length + 1);
        if (!line.starts_with(kPrefix)) continue;
        line.remove_prefix(kPrefix.size());
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        takePowerSupplyProperty(supply, line.substr(0, equals), line.substr(equals + 1));
    }
}

std::span<const std::string_view> powerSupplyPropertyNames() {
    return kNames;
}

}  // namespace velmora
