#include "platform/linux/machines/FigureDifferences.h"

#include "base/FormatText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmora {
namespace {

using nlohmann::json;

bool isSame(const json& expected, const json& found) {
    if (!expected.is_number() || !found.is_number()) return expected == found;
    if (!expected.is_number_float() && !found.is_number_float()) return expected == found;
    constexpr double kRelative = 1e-10;
    const auto left = expected.get<double>();
    const auto right = found.get<double>();
    return std::abs(left - right) <= kRelative * std::max(std::abs(left), std::abs(right));
}

class Comparison {
public:
    void compare(const std::string& place, const json* expected, const json* found) {
        if (expected && found && expected->is_object() && found->is_object()) {
            compareFields(place, *expected, *found);
        } else if (expected && found && expected->is_array() && found->is_array()) {
            compareElements(place, *expected, *found);
        } else if (!expected || !found || !isSame(*expected, *found)) {
            m_lines += formatText("%s: expected %s, found %s\n", {place, textOf(expected), textOf(found)});
        }
    }
    std::string lines() && { return std::move(m_lines); }

private:
    static std::string textOf(const json* value) {
        return value ? value->dump(-1, ' ', false, json::error_handler_t::replace) : "nothing";
    }
    static const json* fieldOf(const json& object, const std::string& name) {
        const auto found = object.find(name);
        return found == object.end() ? nullptr : &*found;
    }
    static const json* elementOf(const json& array, std::size_t index) {
        return index < array.size() ? &array[index] : nullptr;
    }

    void compareFields(const std::string& place, const json& expected, const json& found) {
        const std::string prefix = place.empty() ? place : place + '.';
        for (const auto& [name, value] : expected.items())
            compare(prefix + name, &value, fieldOf(found, name));
        for (const auto& [name, value] : found.items()) {
            if (!expected.contains(name)) compare(prefix + name, nullptr, &value);
        }
    }
    void compareElements(const std::string& place, const json& expected, const json& found) {
        for (std::size_t index = 0; index < std::max(expected.size(), found.size()); ++index) {
            compare(place + formatText("[%zu]", {index}), elementOf(expected, index),
                    elementOf(found, index));
        }
    }

    std::string m_lines;
};

}  // namespace

std::string figureDifferences(const json& expected, const json& found) {
    Comparison comparison;
    comparison.compare("", &expected, &found);
    return std::move(comparison).lines();
}

}  // namespace velmora
