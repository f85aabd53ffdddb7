#pragma once

#include "base/FormatText.h"
#include "model/StatsModule.h"
#include "panels/kit/Views.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmora {

class AppSettings;
class L10n;
struct ByteStyle;

/// What a panel is made from besides its figures: the language, the sections that the user hides, the pace of
/// the module and the buttons below. Lives while one panel value is made; nothing in that value refers to it.
class PanelContext {
public:
    PanelContext(StatsModule module, const AppSettings& settings, const L10n& l10n, FooterIconRow footer = {})
        : m_module(module), m_settings(settings), m_l10n(l10n), m_footer(std::move(footer)) {}

    /// Whether the section is shown: true unless the user hid it.
    bool vis(std::string_view metric) const;
    /// The text under the key in the present language.
    std::string text(std::string_view key) const;
    /// The text under the key as a format.
    std::string text(std::string_view key, std::initializer_list<FormatArgument> arguments) const;
    /// The module's own name.
    std::string name() const;
    /// How the present language writes sizes. Valid for the run.
    const ByteStyle& byteStyle() const;
    /// A size in bytes.
    std::string bytes(std::uint64_t size) const;

    /// The hover of a graph of the module's samples.
    GraphHover hover(std::function<std::vector<HoverChipRow>(int slot)> rows) const;
    /// The module's panel without cards.
    MenuPanel panel() const;

private:
    StatsModule m_module;
    const AppSettings& m_settings;
    const L10n& m_l10n;
    FooterIconRow m_footer;
};

}  // namespace velmora
