#include "platform/qt/SwitchingStatusBar.h"

#include "platform/qt/strip/StripStatusBar.h"
#include "platform/qt/tray/NotifierStatusBar.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace velmora {

SwitchingStatusBar::SwitchingStatusBar(RunLoop& loop, const Session& session,
                                       const StatusBarPreferences& preferences, SessionBus bus,
                                       NotifierWatcher::ProcessName processName)
    : m_loop(loop),
      m_session(session),
      m_preferences(preferences),
      m_bus(std::move(bus)),
      m_watcher(m_bus, std::move(processName)),
      m_colors(loop, m_bus, session) {
    m_subscriptions.push_back(m_watcher.hostChanged.subscribe([this] { hostChanged(); }));
    m_subscriptions.push_back(m_colors.changed.subscribe([this] { applyShade(); }));
    if (m_watcher.isSettled()) {
        choose();
    } else {
        chooseAfter(kAnswerSeconds);
    }
}

SwitchingStatusBar::~SwitchingStatusBar() = default;

void SwitchingStatusBar::setPreferences(const StatusBarPreferences& preferences) {
    if (m_preferences == preferences) return;
    m_preferences = preferences;
    // Later, for the caller may be a click in what is going to be replaced.
    if (m_hasChosen) chooseAfter(0);
}

StatusBar::Appearance SwitchingStatusBar::appearance() const {
    if (m_backend) return m_backend->appearance();
    // What is drawn for now is most likely what the strip will show.
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return {.dark = isBarDark(m_place, m_preferences.ink, m_colors.surroundings()),
            .ratios = {screen ? screen->devicePixelRatio() : 1.0}};
}

void SwitchingStatusBar::setItems(const std::vector<StatusItem>& items) {
    m_items = items;
    std::erase_if(m_images, [&](const auto& entry) {
        return std::ranges::find(m_items, entry.first, &StatusItem::id) == m_items.end();
    });
    if (m_backend) m_backend->setItems(m_items);
}

void SwitchingStatusBar::setImage(const std::string& id, const ItemImage& image) {
    if (std::ranges::find(m_items, id, &StatusItem::id) == m_items.end()) return;
    m_images[id] = image;
    if (m_backend) m_backend->setImage(id, image);
}

void SwitchingStatusBar::hostChanged() {
    if (!m_hasChosen) {
        choose();
    } else {
        chooseAfter(m_watcher.host() ? kFoundSeconds : kLostSeconds);
    }
}

void SwitchingStatusBar::chooseAfter(double seconds) {
    m_choice = m_loop.after(seconds, [this] { choose(); });
}

void SwitchingStatusBar::choose() {
    m_choice = {};
    const std::optional<NotifierWatcher::Host>& host = m_watcher.host();
    const auto profile = host ? std::optional(host->profile) : std::nullopt;
    const StatusBarPlace place = chooseStatusBar(m_session, profile, m_preferences.backend);
    if (place == StatusBarPlace::tray && m_trayRest) {
        chooseAfter(NotifierStatusBar::kRestSeconds);
        return;
    }
    const bool first = !std::exchange(m_hasChosen, true);
    const std::optional<NotifierWatcher::Host> before = std::exchange(m_host, host);

    const bool samePlace = !first && place == m_place;
    if (samePlace && m_tray && before && host && before->profile == host->profile) {
        // A host that only was away for a moment still knows the items.
        if (before->owner != host->owner) m_tray->registerAll();
    } else if (!samePlace || m_tray) {
        moveTo(place);
        return;
    }
    applyShade();
}

void SwitchingStatusBar::moveTo(StatusBarPlace place) {
    m_backendSubscriptions.clear();
    // Hosts lose items that leave and come back at once.
    if (m_tray && place != StatusBarPlace::tray) {
        m_trayRest = m_loop.after(NotifierStatusBar::kRestSeconds, [this] { m_trayRest = {}; });
    }
    m_strip = nullptr;
    m_tray = nullptr;
    m_backend.reset();
    m_place = place;
    switch (place) {
        case StatusBarPlace::nowhere:
            break;
        case StatusBarPlace::tray: {
            auto tray = std::make_unique<NotifierStatusBar>(m_loop, m_bus, m_session, m_host->profile);
            m_tray = tray.get();
            m_backend = std::move(tray);
            break;
        }
        case StatusBarPlace::dock:
        case StatusBarPlace::topBar: {
            auto strip = std::make_unique<StripStatusBar>(m_session, place == StatusBarPlace::dock
                                                                         ? StripWindow::Kind::dock
                                                                         : StripWindow::Kind::topBar);
            m_strip = strip.get();
            m_backend = std::move(strip);
            break;
        }
    }
    m_colors.setPanelPixels(m_tray ? DesktopColors::PanelPixels::watched
                                   : DesktopColors::PanelPixels::ignored);
    applyShade();
    followBackend();
    appearanceChanged.fire();
}

void SwitchingStatusBar::followBackend() {
    if (!m_backend) return;
    m_backend->menuEntries = [this](const std::string& id) {
        return menuEntries ? menuEntries(id) : std::vector<StatusMenuEntry>{};
    };
    m_backend->setItems(m_items);
    for (const auto& [id, image] : m_images) m_backend->setImage(id, image);
    m_backendSubscriptions.push_back(m_backend->activated.subscribe(
        [this](const std::string& id, const Anchor& anchor) { activated.fire(id, anchor); }));
    m_backendSubscriptions.push_back(
        m_backend->menuChosen.subscribe([this](const std::string& action) { menuChosen.fire(action); }));
    m_backendSubscriptions.push_back(
        m_backend->appearanceChanged.subscribe([this] { appearanceChanged.fire(); }));
}

void SwitchingStatusBar::applyShade() {
    const bool dark = isBarDark(m_place, m_preferences.ink, m_colors.surroundings());
    if (m_strip) m_strip->setDark(dark);
    if (m_tray) m_tray->setDark(dark);
}

}  // namespace velmora
