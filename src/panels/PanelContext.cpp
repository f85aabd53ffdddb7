#include "panels/PanelContext.h"

#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "model/StatsFormat.h"

#include <utility>

namespace velmora {

bool PanelContext::vis(std::string_view metric) const {
    return m_settings.isMetricVisible(metric, m_module);
}

std::string PanelContext::text(std::string_view key) const {
    return std::string(m_l10n.string(key));
}

std::string PanelContext::text(std::string_view key, std::initializer_list<FormatArgument> arguments) const {
    return formatText(m_l10n.string(key), arguments);
}

std::string PanelContext::name() const {
    return text(std::string("mod.").append(rawValue(m_module)));
}

const ByteStyle& PanelContext::byteStyle() const {
    return m_l10n.byteStyle();
}

std::string PanelContext::bytes(std::uint64_t size) const {
    return StatsFormat::bytes(static_cast<double>(size), byteStyle());
}

GraphHover PanelContext::hover(std::function<std::vector<HoverChipRow>(int slot)> rows) const {
    GraphHover hover;
    hover.interval = m_settings.interval(m_module);
    hover.rows = std::move(rows);
    hover.ago = text("graph.ago");
    hover.now = text("graph.now");
    return hover;
}

MenuPanel PanelContext::panel() const {
    MenuPanel panel;
    panel.name = name();
    panel.footer = m_footer;
    return panel;
}

}  // namespace velmora
