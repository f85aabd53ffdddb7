#include "ShotOptions.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {
namespace {

constexpr double kSmallestScale = 1;
constexpr double kLargestScale = 4;

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

/// Six hexadecimal digits, with or without "#".
std::optional<RGBColor> parseColor(std::string_view text) {
    if (text.starts_with('#')) text.remove_prefix(1);
    const auto value = text.size() == 6 ? parseNumber<std::uint32_t>(text, 16) : std::nullopt;
    if (!value) return std::nullopt;
    return RGBColor{static_cast<std::uint8_t>(*value >> 16), static_cast<std::uint8_t>(*value >> 8),
                    static_cast<std::uint8_t>(*value)};
}

std::string takeWhat(std::string_view value, ShotOptions& options) {
    if (value == "styles") {
        options.what = ShotOptions::Kind::styles;
    } else if (value == "squares") {
        options.what = ShotOptions::Kind::squares;
    } else if (value == "panels") {
        options.what = ShotOptions::Kind::panels;
    } else if (value == "settings") {
        options.what = ShotOptions::Kind::settings;
    } else {
        return "--what needs styles, squares, panels or settings";
    }
    return {};
}

std::string takeModules(std::string_view value, ShotOptions& options) {
    const auto modules = parseModules(value);
    if (!modules) return "--modules needs names of cpu, memory, disk, network, sensors, battery";
    options.modules = *modules;
    return {};
}

std::string takeFigures(std::string_view value, ShotOptions& options) {
    if (value.empty()) return "--figures needs a file";
    options.figures = value;
    return {};
}

std::string takeScale(std::string_view value, ShotOptions& options) {
    const auto scale = parseNumber<double>(value);
    if (!scale || !(*scale >= kSmallestScale && *scale <= kLargestScale)) {
        return "--scale needs a number from 1 to 4";
    }
    options.scale = *scale;
    return {};
}

std::string takeScheme(std::string_view value, ShotOptions& options) {
    if (value != "light" && value != "dark") return "--scheme needs light or dark";
    options.scheme = value == "dark" ? ShotOptions::Scheme::dark : ShotOptions::Scheme::light;
    return {};
}

std::string takeLanguage(std::string_view value, ShotOptions& options) {
    const auto language = languageFromRawValue(value);
    if (!language) return "--lang needs a language of the program, such as en, ja, zh-Hans, pt-BR";
    options.language = *language;
    return {};
}

std::string takeColor(std::string_view value, ShotOptions& options) {
    options.color = parseColor(value);
    return options.color ? "" : "--color needs six hexadecimal digits, such as 0A84FF";
}

std::string takeFont(std::string_view value, ShotOptions& options) {
    if (value.empty()) return "--font needs a family";
    options.font = value;
    return {};
}

std::string takeOut(std::string_view value, ShotOptions& options) {
    if (value.empty()) return "--out needs a folder";
    options.out = value;
    return {};
}

struct OptionWithValue {
    std::string_view name;
    /// An error line for a wrong value, empty for a right one.
    std::string (*take)(std::string_view value, ShotOptions& options);
};
constexpr std::array<OptionWithValue, 9> kWithValue = {{{"--what", takeWhat},
                                                        {"--modules", takeModules},
                                                        {"--figures", takeFigures},
                                                        {"--scale", takeScale},
                                                        {"--scheme", takeScheme},
                                                        {"--lang", takeLanguage},
                                                        {"--color", takeColor},
                                                        {"--font", takeFont},
                                                        {"--out", takeOut}}};

}  // namespace

std::optional<ShotOptions> parseShotOptions(std::span<const std::string_view> arguments, std::string& error) {
    ShotOptions options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string_view argument = arguments[index];
        if (argument == "--help") {
            options.action = ShotOptions::Action::showHelp;
            continue;
        }
        if (argument == "--sheet") {
            options.sheet = ShotOptions::Sheet::with;
            continue;
        }
        const auto equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        const auto option = std::ranges::find(kWithValue, name, &OptionWithValue::name);
        if (option == kWithValue.end()) {
            error = "unknown option " + std::string(argument) + " (--help lists the options)";
            return std::nullopt;
        }
        if (equals == std::string_view::npos && ++index == arguments.size()) {
            error = std::string(name) + " needs a value";
            return std::nullopt;
        }
        error = option->take(
            equals == std::string_view::npos ? arguments[index] : argument.substr(equals + 1), options);
        if (!error.empty()) return std::nullopt;
    }
    return options;
}

}  // namespace velmora
