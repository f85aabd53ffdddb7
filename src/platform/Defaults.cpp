#include "platform/Defaults.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace velmora {
namespace {

using nlohmann::json;

std::optional<std::string> asText(const json& value) {
    if (!value.is_string()) return std::nullopt;
    return value.get<std::string>();
}

std::optional<double> asNumber(const json& value) {
    if (!value.is_number()) return std::nullopt;
    return value.get<double>();
}

std::optional<std::vector<std::string>> asTextArray(const json& value) {
    if (!value.is_array()) return std::nullopt;
    std::vector<std::string> texts;
    for (const json& element : value) {
        if (auto text = asText(element)) texts.push_back(std::move(*text));
    }
    return texts;
}

template <typename Entry>
std::optional<std::map<std::string, Entry>> asMap(const std::optional<json>& value,
                                                  std::optional<Entry> (*convert)(const json&)) {
    if (!value || !value->is_object()) return std::nullopt;
    std::map<std::string, Entry> entries;
    for (const auto& [key, element] : value->items()) {
        if (auto entry = convert(element)) entries.emplace(key, std::move(*entry));
    }
    return entries;
}

}  // namespace

std::optional<std::string> Defaults::text(std::string_view key) const {
    const auto value = read(key);
    return value ? asText(*value) : std::nullopt;
}

std::optional<bool> Defaults::boolean(std::string_view key) const {
    const auto value = read(key);
    if (!value || !value->is_boolean()) return std::nullopt;
    return value->get<bool>();
}

std::optional<double> Defaults::number(std::string_view key) const {
    const auto value = read(key);
    return value ? asNumber(*value) : std::nullopt;
}

std::optional<std::uint64_t> Defaults::unsignedInteger(std::string_view key) const {
    const auto value = read(key);
    if (!value || !value->is_number_unsigned()) return std::nullopt;
    return value->get<std::uint64_t>();
}

std::optional<std::vector<std::string>> Defaults::textArray(std::string_view key) const {
    const auto value = read(key);
    return value ? asTextArray(*value) : std::nullopt;
}

std::optional<std::vector<double>> Defaults::numberArray(std::string_view key) const {
    const auto value = read(key);
    if (!value || !value->is_array()) return std::nullopt;
    std::vector<double> numbers;
    for (const json& element : *value) {
        if (const auto number = asNumber(element)) numbers.push_back(*number);
    }
    return numbers;
}

std::optional<std::map<std::string, std::string>> Defaults::textMap(std::string_view key) const {
    return asMap<std::string>(read(key), asText);
}

std::optional<std::map<std::string, double>> Defaults::numberMap(std::string_view key) const {
    return asMap<double>(read(key), asNumber);
}

std::optional<std::map<std::string, std::vector<std::string>>> Defaults::textArrayMap(
    std::string_view key) const {
    return asMap<std::vector<std::string>>(read(key), asTextArray);
}

void Defaults::setText(std::string_view key, std::string_view value) {
    write(key, json(value), Urgency::now);
}

void Defaults::setBoolean(std::string_view key, bool value) {
    write(key, json(value), Urgency::now);
}

void Defaults::setNumber(std::string_view key, double value, Urgency urgency) {
    if (std::isfinite(value)) {
        write(key, json(value), urgency);
    } else {
        remove(key);
    }
}

void Defaults::setUnsignedInteger(std::string_view key, std::uint64_t value) {
    write(key, json(value), Urgency::now);
}

void Defaults::setTextArray(std::string_view key, const std::vector<std::string>& values) {
    write(key, json(values), Urgency::now);
}

void Defaults::setNumberArray(std::string_view key, const std::vector<double>& values) {
    write(key, json(values), Urgency::now);
}

void Defaults::setTextMap(std::string_view key, const std::map<std::string, std::string>& values) {
    write(key, json(values), Urgency::now);
}

void Defaults::setNumberMap(std::string_view key, const std::map<std::string, double>& values) {
    write(key, json(values), Urgency::now);
}

void Defaults::setTextArrayMap(std::string_view key,
                               const std::map<std::string, std::vector<std::string>>& values) {
    write(key, json(values), Urgency::now);
}

}  // namespace velmora
