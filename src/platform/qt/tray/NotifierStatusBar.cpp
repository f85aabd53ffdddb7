#include "platform/qt/tray/NotifierStatusBar.h"

#include "platform/PanelPlacement.h"
#include "platform/qt/tray/NotifierItem.h"
#include "platform/qt/tray/RegistrationPlan.h"
#include "platform/qt/tray/TrayAnchor.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <limits>
#include <utility>

namespace velmora {
namespace {

double largestScreenRatio() {
    double largest = 1;
    for (const QScreen* screen : QGuiApplication::screens()) {
        largest = std::max(largest, screen->devicePixelRatio());
    }
    return largest;
}

}  // namespace

NotifierStatusBar::NotifierStatusBar(RunLoop& loop, const SessionBus& bus, const Session& session,
                                     const HostProfile& host)
    : m_loop(loop),
      m_bus(bus),
      m_session(session),
      m_host(host),
      m_ratios(ratiosFor(host, largestScreenRatio())),
      m_menu(session.windows) {
    connect(qApp, &QGuiApplication::screenAdded, this, [this] { screensChanged(); });
    connect(qApp, &QGuiApplication::screenRemoved, this, [this] { screensChanged(); });
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, [this] { screensChanged(); });
    qApp->installEventFilter(this);
}

NotifierStatusBar::~NotifierStatusBar() = default;

void NotifierStatusBar::setDark(bool dark) {
    if (std::exchange(m_dark, dark) != dark) appearanceChanged.fire();
}

void NotifierStatusBar::registerAll() {
    std::vector<std::string> wanted;
    for (const auto& item : m_items) wanted.push_back(item->item().id);
    const RegistrationPlan plan = RegistrationPlan::make(m_host, {}, wanted);
    // What the old host still owed an answer for is asked of the new one.
    for (const auto& item : m_items) item->forgetRegistration();
    m_entered.clear();
    m_entering = nullptr;
    m_waiting.clear();
    for (const std::string& id : plan.enter) m_waiting.push_back(find(id));
    step();
}

StatusBar::Appearance NotifierStatusBar::appearance() const {
    return {.dark = m_dark, .square = !m_host.keepsWidth, .ratios = m_ratios};
}

std::vector<double> NotifierStatusBar::ratiosFor(const HostProfile& host, double largest) {
    if (host.keepsWidth && largest <= 2) return {1, 2};
    return {1, 2, 3};
}

void NotifierStatusBar::setItems(const std::vector<StatusItem>& items) {
    std::vector<std::string> present;
    for (const NotifierItem* const item : m_entered) present.push_back(item->item().id);
    std::vector<std::string> wanted;
    wanted.reserve(items.size());
    for (const StatusItem& item : items) wanted.push_back(item.id);
    const RegistrationPlan plan = RegistrationPlan::make(m_host, present, wanted);

    m_waiting.clear();
    for (const std::string& id : plan.leave) takeOut(*find(id));

    std::vector<std::unique_ptr<NotifierItem>> old = std::exchange(m_items, {});
    for (const StatusItem& item : items) {
        const auto known = std::ranges::find_if(
            old, [&](const auto& candidate) { return candidate && candidate->item().id == item.id; });
        if (known == old.end()) {
            m_items.push_back(makeItem(item));
        } else {
            (*known)->setItem(item);
            m_items.push_back(std::move(*known));
        }
    }
    for (const std::string& id : plan.enter) m_waiting.push_back(find(id));
    // Later, when the images are there too.
    if (!m_restPause && !m_stepPause && !m_entering) {
        m_stepPause = m_loop.after(0, [this] {
            m_stepPause = {};
            step();
        });
    }
}

void NotifierStatusBar::setImage(const std::string& id, const ItemImage& image) {
    NotifierItem* const item = find(id);
    if (!item) return;
    item->setImage(image);
    if (item->isMenu()) item->refreshMenu();
}

bool NotifierStatusBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::LanguageChange) {
        for (const auto& item : m_items) item->refreshMenu();
    }
    return false;
}

NotifierItem* NotifierStatusBar::find(const std::string& id) const {
    const auto item =
        std::ranges::find_if(m_items, [&](const auto& candidate) { return candidate->item().id == id; });
    return item == m_items.end() ? nullptr : item->get();
}

std::unique_ptr<NotifierItem> NotifierStatusBar::makeItem(const StatusItem& item) {
    auto made =
        std::make_unique<NotifierItem>(m_bus, m_host, item, [this, id = item.id] { return entriesOf(id); });
    // Queued: what a click does may remove the item whose call is being answered.
    connect(
        made.get(), &NotifierItem::clicked, this, [this, id = item.id](int x, int y) { clicked(id, x, y); },
        Qt::QueuedConnection);
    connect(
        made.get(), &NotifierItem::menuEntryChosen, this,
        [this, id = item.id](const QString& action) { chosen(id, action); }, Qt::QueuedConnection);
    return made;
}

std::vector<StatusMenuEntry> NotifierStatusBar::entriesOf(const std::string& id) const {
    return menuEntries ? menuEntries(id) : std::vector<StatusMenuEntry>{};
}

void NotifierStatusBar::clicked(const std::string& id, int x, int y) {
    const NotifierItem* const item = find(id);
    if (!item) return;
    const Anchor anchor = anchorFor(*item, x, y);
    if (item->isMenu()) {
        m_menu.toggle(entriesOf(id), anchor, [self = QPointer(this)](const std::string& action) {
            if (self) self->menuChosen.fire(action);
        });
    } else {
        activated.fire(id, anchor);
    }
}

void NotifierStatusBar::chosen(const std::string& id, const QString& action) {
    const NotifierItem* const item = find(id);
    if (!item) return;
    if (action.toStdString() == kActivateAction && !item->isMenu()) {
        // A host's menu says no point; one that lies on no screen stands for that.
        constexpr int kNoScreen = std::numeric_limits<int>::min();
        activated.fire(id, anchorFor(*item, kNoScreen, kNoScreen));
    } else {
        menuChosen.fire(action.toStdString());
    }
}

Anchor NotifierStatusBar::anchorFor(const NotifierItem& item, int x, int y) const {
    const auto& pixels = item.image().pixels;
    const QPoint pointer = QCursor::pos();
    return trayAnchor({.x = x,
                       .y = y,
                       .pointerX = pointer.x(),
                       .pointerY = pointer.y(),
                       .imageWidth = pixels.empty() ? 0 : pixels.front().width},
                      m_host, m_session.windows, ScreenPlace::all());
}

void NotifierStatusBar::takeOut(NotifierItem& item) {
    item.leave();
    std::erase(m_entered, &item);
    if (m_entering == &item) m_entering = nullptr;
    m_restPause = m_loop.after(kRestSeconds, [this] {
        m_restPause = {};
        step();
    });
}

/// Registers the next item, unless one has not been answered or a pause is on.
void NotifierStatusBar::step() {
    if (m_entering || m_stepPause || m_restPause || m_waiting.empty()) return;
    m_entering = m_waiting.front();
    m_waiting.pop_front();
    m_entered.push_back(m_entering);
    m_entering->enter([this] {
        m_entering = nullptr;
        m_stepPause = m_loop.after(kStepSeconds, [this] {
            m_stepPause = {};
            step();
        });
    });
}

void NotifierStatusBar::screensChanged() {
    std::vector<double> ratios = ratiosFor(m_host, largestScreenRatio());
    if (ratios == m_ratios) return;
    m_ratios = std::move(ratios);
    appearanceChanged.fire();
}

}  // namespace velmora
