#include "FiguresOptions.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <cstddef>

namespace velmora {
namespace {

constexpr double kShortestInterval = 0.5;
constexpr double kLongestInterval = 3600;

/// "cpu,memory"; nothing if a name is unknown or none is given.
std::optional<std::vector<StatsModule>> parseModules(std::string_view list) {
    std::vector<StatsModule> modules;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        const auto module = moduleFromRawValue(list.substr(begin, end - begin));
        if (!module) return std::nullopt;
        modules.push_back(*module);
        begin = end + 1;
    }
    return modules;
}

/// Takes the value of an option into `options`; an error line for a wrong one, empty for a right one.
std::string takeValue(std::string_view name, std::string_view value, FiguresOptions& options) {
    if (name == "--root") {
        if (value.empty()) return "--root needs a folder";
        options.root = value;
    } else if (name == "--interval") {
        const auto seconds = parseNumber<double>(value);
        if (!seconds || !(*seconds >= kShortestInterval && *seconds <= kLongestInterval))
            return "--interval needs a number of seconds from 0.5 to 3600";
        options.intervalSeconds = *seconds;
    } else if (name == "--count") {
        const auto count = parseNumber<std::uint64_t>(value);
        if (!count || *count == 0) return "--count needs a whole number from 1";
        options.count = *count;
    } else {
        const auto modules = parseModules(value);
        if (!modules) return "--modules needs names of cpu, memory, disk, network, sensors, battery";
        options.modules = *modules;
    }
    return {};
}

}  // namespace

std::optional<FiguresOptions> parseFiguresOptions(std::span<const std::string_view> arguments,
                                                  std::string& error) {
    constexpr std::string_view kWithValue[] = {"--root", "--interval", "--count", "--modules"};
    FiguresOptions options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string_view argument = arguments[index];
        if (argument == "--help") {
            options.action = FiguresOptions::Action::showHelp;
            continue;
        }
        if (argument == "--text") {
            options.form = FiguresOptions::Form::text;
            continue;
        }
        const auto equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        if (std::ranges::find(kWithValue, name) == std::ranges::end(kWithValue)) {
            error = "unknown option " + std::string(argument) + " (--help lists the options)";
            return std::nullopt;
        }
        if (equals == std::string_view::npos && ++index == arguments.size()) {
            error = std::string(name) + " needs a value";
            return std::nullopt;
        }
        error = takeValue(
            name, equals == std::string_view::npos ? arguments[index] : argument.substr(equals + 1), options);
        if (!error.empty()) return std::nullopt;
    }
    return options;
}

}  // namespace velmora
