#include "ShotOptions.h"

#include "base/ParseNumber.h"
#include "command-line/CommandLine.h"

#include <cstdint>

namespace velmora {
namespace {

constexpr double kSmallestScale = 1;
constexpr double kLargestScale = 4;

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
    return CommandLine::takeModules(value, options.modules);
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

constexpr CommandLine::Flag<ShotOptions> kFlags[] = {
    {"--help", [](ShotOptions& options) { options.action = ShotOptions::Action::showHelp; }},
    {"--sheet", [](ShotOptions& options) { options.sheet = ShotOptions::Sheet::with; }}};
constexpr CommandLine::Setting<ShotOptions> kSettings[] = {
    {"--what", takeWhat},   {"--modules", takeModules}, {"--figures", takeFigures},
    {"--scale", takeScale}, {"--scheme", takeScheme},   {"--lang", takeLanguage},
    {"--color", takeColor}, {"--font", takeFont},       {"--out", takeOut}};

}  // namespace

std::optional<ShotOptions> parseShotOptions(std::span<const std::string_view> arguments, std::string& error) {
    return CommandLine::parse<ShotOptions>(arguments, kFlags, kSettings, error);
}

}  // namespace velmora
