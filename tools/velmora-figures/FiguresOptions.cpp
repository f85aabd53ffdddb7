#include "FiguresOptions.h"

#include "base/ParseNumber.h"
#include "command-line/CommandLine.h"

namespace velmora {
namespace {

constexpr double kShortestInterval = 0.5;
constexpr double kLongestInterval = 3600;

std::string takeRoot(std::string_view value, FiguresOptions& options) {
    if (value.empty()) return "--root needs a folder";
    options.root = value;
    return {};
}

std::string takeInterval(std::string_view value, FiguresOptions& options) {
    const auto seconds = parseNumber<double>(value);
    if (!seconds || !(*seconds >= kShortestInterval && *seconds <= kLongestInterval)) {
        return "--interval needs a number of seconds from 0.5 to 3600";
    }
    options.intervalSeconds = *seconds;
    return {};
}

std::string takeCount(std::string_view value, FiguresOptions& options) {
    const auto count = parseNumber<std::uint64_t>(value);
    if (!count || *count == 0) return "--count needs a whole number from 1";
    options.count = *count;
    return {};
}

std::string takeModules(std::string_view value, FiguresOptions& options) {
    return CommandLine::takeModules(value, options.modules);
}

constexpr CommandLine::Flag<FiguresOptions> kFlags[] = {
    {"--help", [](FiguresOptions& options) { options.action = FiguresOptions::Action::showHelp; }},
    {"--text", [](FiguresOptions& options) { options.form = FiguresOptions::Form::text; }}};
constexpr CommandLine::Setting<FiguresOptions> kSettings[] = {
    {"--root", takeRoot}, {"--interval", takeInterval}, {"--count", takeCount}, {"--modules", takeModules}};

}  // namespace

std::optional<FiguresOptions> parseFiguresOptions(std::span<const std::string_view> arguments,
                                                  std::string& error) {
    return CommandLine::parse<FiguresOptions>(arguments, kFlags, kSettings, error);
}

}  // namespace velmora
