#pragma once

#include "model/StatsModule.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The options of our tools: "--name", "--name VALUE" and "--name=VALUE".
namespace velmora::CommandLine {

/// An option that stands alone.
template <typename Options>
struct Flag {
    std::string_view name;
    void (*set)(Options& options);
};

/// An option that needs a value.
template <typename Options>
struct Setting {
    std::string_view name;
    /// Gives an error line for a wrong value, an empty one for a right one.
    std::string (*take)(std::string_view value, Options& options);
};

/// Takes the modules of a list such as "cpu,memory" for an option "--modules".
std::string takeModules(std::string_view list, std::vector<StatsModule>& modules);

/// `arguments` without the program's name. Nothing, with a line in `error`, for a wrong option.
template <typename Options>
std::optional<Options> parse(std::span<const std::string_view> arguments,
                             std::span<const Flag<Options>> flags, std::span<const Setting<Options>> settings,
                             std::string& error) {
    Options options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string_view argument = arguments[index];
        if (const auto flag = std::ranges::find(flags, argument, &Flag<Options>::name); flag != flags.end()) {
            flag->set(options);
            continue;
        }
        const auto equals = argument.find('=');
        const bool hasValue = equals != std::string_view::npos;
        const std::string_view name = argument.substr(0, equals);
        const auto setting = std::ranges::find(settings, name, &Setting<Options>::name);
        if (setting == settings.end()) {
            error = "unknown option " + std::string(argument) + " (--help lists the options)";
            return std::nullopt;
        }
        if (!hasValue && ++index == arguments.size()) {
            error = std::string(name) + " needs a value";
            return std::nullopt;
        }
        error = setting->take(hasValue ? argument.substr(equals + 1) : arguments[index], options);
        if (!error.empty()) return std::nullopt;
    }
    return options;
}

}  // namespace velmora::CommandLine
