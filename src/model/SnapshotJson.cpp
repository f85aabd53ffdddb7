#include "model/SnapshotJson.h"

#include "model/SnapshotFields.h"
#include "model/StatsSnapshot.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <concepts>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace velmora {
namespace {

/// Keeps the order in which the members are written.
using Json = nlohmann::ordered_json;
using TemperatureHistories = decltype(SensorsStats::temperatureHistories);

template <typename Type>
concept Record = requires(const Type& record) {
    SnapshotFields::visit(record, [](const char*, const auto&) {});
};

// Writing. An overload for each kind of value; null stands for what is left out.

Json written(bool value) {
    return value;
}
Json written(const std::string& value) {
    return value;
}
Json written(const std::integral auto& value) {
    return value;
}
Json written(double value) {
    return std::isfinite(value) ? Json(value) : Json(nullptr);
}
Json written(const Date& date) {
    return written(date.secondsSince1970);
}
Json written(TempCategory category) {
    return std::string(rawValue(category));
}
Json written(const ModuleSet& modules) {
    Json names = Json::array();
    for (const StatsModule module : kAllModules) {
        if (modules.contains(module)) names.push_back(std::string(rawValue(module)));
    }
    return names;
}

Json written(const Record auto& record);
template <typename Element>
Json written(const std::vector<Element>& list);
template <typename Element, std::size_t Cap>
Json written(const History<Element, Cap>& series);
Json written(const TemperatureHistories& histories);

Json writtenList(const auto& list) {
    Json array = Json::array();
    for (const auto& element : list) array.push_back(written(element));
    return array;
}

template <typename Element>
Json written(const std::vector<Element>& list) {
    return writtenList(list);
}

template <typename Element, std::size_t Cap>
Json written(const History<Element, Cap>& series) {
    return writtenList(series);
}

Json written(const TemperatureHistories& histories) {
    Json byCategory = Json::object();
    for (const TempCategory category : kAllTempCategories) {
        const auto& series = histories[indexOf(category)];
        if (!series.empty()) byCategory[std::string(rawValue(category))] = written(series);
    }
    return byCategory;
}

struct FieldWriter {
    Json& object;

    template <typename Value>
    void operator()(const char* name, const std::optional<Value>& value) {
        if (value) object[name] = written(*value);
    }
    void operator()(const char* name, const auto& value) { object[name] = written(value); }
};

Json written(const Record auto& record) {
    Json object = Json::object();
    SnapshotFields::visit(record, FieldWriter{object});
    return object;
}

// Reading. Each overload leaves the value as it is, and says so with false, when the text has another type
// there.

bool readInto(bool& value, const Json& json) {
    if (!json.is_boolean()) return false;
    value = json.get<bool>();
    return true;
}

bool readInto(std::string& value, const Json& json) {
    if (!json.is_string()) return false;
    value = json.get<std::string>();
    return true;
}

bool readInto(double& value, const Json& json) {
    if (!json.is_number()) return false;
    value = json.get<double>();
    return true;
}

bool readInto(std::uint64_t& value, const Json& json) {
    if (!json.is_number_unsigned()) return false;
    value = json.get<std::uint64_t>();
    return true;
}

bool readInto(int& value, const Json& json) {
    constexpr int kSmallest = std::numeric_limits<int>::min();
    constexpr int kLargest = std::numeric_limits<int>::max();
    if (!json.is_number_integer()) return false;
    // The largest unsigned numbers would turn negative in the comparison below.
    if (json.is_number_unsigned() && json.get<std::uint64_t>() > std::uint64_t{kLargest}) return false;
    const auto number = json.get<std::int64_t>();
    if (number < kSmallest || number > kLargest) return false;
    value = static_cast<int>(number);
    return true;
}

bool readInto(Date& date, const Json& json) {
    return readInto(date.secondsSince1970, json);
}

bool readInto(TempCategory& category, const Json& json) {
    if (!json.is_string()) return false;
    const auto found = tempCategoryFromRawValue(json.get<std::string>());
    category = found.value_or(category);
    return found.has_value();
}

bool readInto(ModuleSet& modules, const Json& json) {
    if (!json.is_array()) return false;
    modules.clear();
    for (const Json& element : json) {
        if (!element.is_string()) continue;
        if (const auto module = moduleFromRawValue(element.get<std::string>())) modules.insert(*module);
    }
    return true;
}

template <typename Value>
bool readInto(std::optional<Value>& value, const Json& json) {
    Value found{};
    if (!readInto(found, json)) return false;
    value = std::move(found);
    return true;
}

bool readInto(Record auto& record, const Json& json);
template <typename Element>
bool readInto(std::vector<Element>& list, const Json& json);

template <typename Element, std::size_t Cap>
bool readInto(History<Element, Cap>& series, const Json& json) {
    if (!json.is_array()) return false;
    series.clear();
    for (const Json& element : json) {
        Element value{};
        readInto(value, element);
        series.append(value);
    }
    return true;
}

template <typename Element>
bool readInto(std::vector<Element>& list, const Json& json) {
    if (!json.is_array()) return false;
    list.clear();
    for (const Json& element : json) readInto(list.emplace_back(), element);
    return true;
}

bool readInto(TemperatureHistories& histories, const Json& json) {
    if (!json.is_object()) return false;
    for (const auto& [name, series] : json.items()) {
        if (const auto category = tempCategoryFromRawValue(name))
            readInto(histories[indexOf(*category)], series);
    }
    return true;
}

struct FieldReader {
    const Json& object;

    void operator()(const char* name, auto& value) {
        const auto found = object.find(name);
        if (found != object.end()) readInto(value, *found);
    }
};

bool readInto(Record auto& record, const Json& json) {
    if (!json.is_object()) return false;
    SnapshotFields::visit(record, FieldReader{json});
    return true;
}

}  // namespace

std::string snapshotToJson(const StatsSnapshot& snapshot) {
    // Names of processes and volumes are bytes of the system's and need not be UTF-8.
    return written(snapshot).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<StatsSnapshot> snapshotFromJson(std::string_view text, std::string& error) {
    Json json;
    try {
        json = Json::parse(text);
    } catch (const Json::exception& exception) {
        error = std::string("The text is not JSON: ") + exception.what();
        return std::nullopt;
    }
    if (!json.is_object()) {
        error = std::string("The text is not a JSON object but of type ") + json.type_name();
        return std::nullopt;
    }
    StatsSnapshot snapshot;
    readInto(snapshot, json);
    return snapshot;
}

}  // namespace velmora
