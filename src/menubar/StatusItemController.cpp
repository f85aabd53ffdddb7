#include "menubar/StatusItemController.h"

#include "l10n/L10n.h"
#include "menubar/MenuBarIcon.h"
#include "menubar/MenuBarRenderer.h"
#include "platform/RunLoop.h"

#include <algorithm>
#include <cstring>

namespace velmora {
namespace {

constexpr std::string_view kIdPrefix = "Velmora.";
constexpr std::string_view kFallbackId = "Velmora.fallback";

std::string itemId(StatsModule module) {
    return std::string(kIdPrefix).append(rawValue(module));
}

StatusItem moduleItem(StatsModule module) {
    StatusItem item;
    item.id = itemId(module);
    item.title = shortLabel(module);
    item.toolTip = std::string("Velmora — ").append(shortLabel(module));
    return item;
}

StatusItem fallbackItem() {
    StatusItem item;
    item.id = kFallbackId;
    item.title = "Velmora";
    item.toolTip = "Velmora";
    item.isSquare = true;
    item.hasMenu = true;
    return item;
}

void storePixels(const MenuBarImage& drawn, bool darkBar, ItemPixels& pixels) {
    const QImage image = MenuBarRenderer::tinted(drawn, darkBar).convertToFormat(QImage::Format_ARGB32);
    pixels.width = image.width();
    pixels.height = image.height();
    pixels.ratio = image.devicePixelRatio();
    pixels.argb.resize(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    const auto rowBytes = static_cast<std::size_t>(image.width()) * sizeof(std::uint32_t);
    for (int row = 0; row < image.height(); ++row) {
        std::memcpy(
            pixels.argb.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(image.width()),
            image.constScanLine(row), rowBytes);
    }
}

}  // namespace

StatusItemController::StatusItemController(const Published<StatsSnapshot>& snapshot, AppSettings& settings,
                                           const L10n& l10n, RunLoop& runLoop, StatusBar& statusBar,
                                           PanelHost& panels, Actions actions)
    : m_snapshot(snapshot),
      m_settings(settings),
      m_l10n(l10n),
      m_runLoop(runLoop),
      m_statusBar(statusBar),
      m_panels(panels),
      m_actions(std::move(actions)),
      m_lastEnabled(settings.enabledModules().get()) {
    rebuildItems();

    m_subscriptions.push_back(m_snapshot.subscribe(
        [this](const StatsSnapshot& current) { refreshImages(current, current.updated); }));
    m_subscriptions.push_back(
        m_settings.enabledModules().subscribe([this](const std::vector<StatsModule>& enabled) {
            if (enabled == m_lastEnabled) return;
            m_lastEnabled = enabled;
            m_runLoop.post(m_life.wrap([this] { rebuildItems(); }));
        }));
    // The signal fires before the new value stands, hence the hop.
    m_subscriptions.push_back(m_settings.willChange().subscribe(
        [this] { m_runLoop.post(m_life.wrap([this] { refreshImages(m_snapshot.get(), std::nullopt); })); }));
    m_subscriptions.push_back(m_statusBar.appearanceChanged.subscribe(
        [this] { m_runLoop.post(m_life.wrap([this] { refreshImages(m_snapshot.get(), std::nullopt); })); }));
    m_subscriptions.push_back(m_statusBar.activated.subscribe(
        [this](const std::string& id, const Anchor& anchor) { openItem(id, anchor); }));
    m_subscriptions.push_back(
        m_statusBar.menuChosen.subscribe([this](const std::string& action) { runMenuAction(action); }));
    m_statusBar.menuEntries = [this](const std::string& id) { return menuOf(id); };
}

StatusItemController::~StatusItemController() {
    m_statusBar.menuEntries = nullptr;
}

void StatusItemController::rebuildItems() {
    m_items = m_settings.enabledModules().get();
    m_hasFallback = m_items.empty();

    std::vector<StatusItem> items;
    for (const StatsModule module : m_items) items.push_back(moduleItem(module));
    if (m_hasFallback) items.push_back(fallbackItem());
    m_statusBar.setItems(items);
    refreshImages(m_snapshot.get(), std::nullopt);
}

void StatusItemController::refreshImages(const StatsSnapshot& snapshot,
                                         const std::optional<ModuleSet>& only) {
    if (only && only->empty()) return;
    const StatusBar::Appearance appearance = m_statusBar.appearance();
    for (const StatsModule module : m_items) {
        if (!only || only->contains(module)) drawModule(module, snapshot, appearance);
    }
    if (!only) refreshFallbackIcon();
}

void StatusItemController::drawModule(StatsModule module, const StatsSnapshot& snapshot,
                                      const StatusBar::Appearance& appearance) {
    const ModuleStyle style = m_settings.style(module);
    const auto ink = MenuBarRenderer::Ink::of(m_settings.color(module), appearance.dark);
    m_image.pixels.resize(appearance.ratios.size());
    for (std::size_t index = 0; index < appearance.ratios.size(); ++index) {
        const double ratio = appearance.ratios[index];
        storePixels(appearance.square ? MenuBarRenderer::squareImage(style, module, snapshot, ink, ratio)
                                      : MenuBarRenderer::render(style, module, snapshot, ink, ratio),
                    appearance.dark, m_image.pixels[index]);
    }
    m_image.label = MenuBarRenderer::valueLine(module, snapshot).toStdString();
    m_statusBar.setImage(itemId(module), m_image);
}

void StatusItemController::refreshFallbackIcon() {
    if (!m_hasFallback) return;
    const StatusBar::Appearance appearance = m_statusBar.appearance();
    m_image.pixels.resize(appearance.ratios.size());
    for (std::size_t index = 0; index < appearance.ratios.size(); ++index) {
        storePixels(MenuBarIcon::gauge(appearance.ratios[index]), appearance.dark, m_image.pixels[index]);
    }
    m_image.label.clear();
    m_statusBar.setImage(std::string(kFallbackId), m_image);
}

void StatusItemController::togglePanel(StatsModule module, const Anchor& otherwise) {
    if (std::ranges::find(m_items, module) == m_items.end()) return;
    m_panels.toggle(module, m_statusBar.placeOf(itemId(module)).value_or(otherwise));
}

void StatusItemController::openItem(const std::string& id, const Anchor& anchor) {
    for (const StatsModule module : m_items) {
        if (itemId(module) == id) m_panels.toggle(module, anchor);
    }
}

std::vector<StatusMenuEntry> StatusItemController::menuOf(const std::string& id) const {
    if (id == kFallbackId) return commonMenu();
    for (const StatsModule module : m_items) {
        if (itemId(module) == id) return moduleMenu(module);
    }
    return {};
}

/// A panel has the way to the settings in its footer; where a host opens a menu in its place, the menu has
/// it.
std::vector<StatusMenuEntry> StatusItemController::moduleMenu(StatsModule module) const {
    const std::string titleKey = std::string("mod.").append(rawValue(module));
    std::vector<StatusMenuEntry> entries{
        {std::string(kActivateAction), std::string(m_l10n.string(titleKey)), ""}};
    if (m_actions.showSettings)
        entries.push_back({"menu.settings", std::string(m_l10n.string("menu.settings")), ","});
    return entries;
}

std::vector<StatusMenuEntry> StatusItemController::commonMenu() const {
    struct Row {
        std::string_view key;
        std::string_view keyEquivalent;
        const std::function<void()>& action;
    };
    const Row rows[] = {{"menu.settings", ",", m_actions.showSettings},
                        {"menu.guide", "", m_actions.showGuide},
                        {"menu.check_updates", "", m_actions.checkForUpdates},
                        {"menu.about", "", m_actions.showAbout}};
    std::vector<StatusMenuEntry> entries;
    const auto add = [this, &entries](std::string_view key, std::string_view keyEquivalent) {
        entries.push_back({std::string(key), std::string(m_l10n.string(key)), std::string(keyEquivalent)});
    };
    for (const Row& row : rows) {
        if (row.action) add(row.key, row.keyEquivalent);
    }
    if (!entries.empty()) entries.emplace_back();
    if (m_actions.quit) add("menu.quit", "q");
    return entries;
}

void StatusItemController::runMenuAction(const std::string& action) {
    const std::function<void()>* chosen = action == "menu.settings"        ? &m_actions.showSettings
                                          : action == "menu.guide"         ? &m_actions.showGuide
                                          : action == "menu.check_updates" ? &m_actions.checkForUpdates
                                          : action == "menu.about"         ? &m_actions.showAbout
                                          : action == "menu.quit"          ? &m_actions.quit
                                                                           : nullptr;
    if (chosen && *chosen) (*chosen)();
}

}  // namespace velmora
