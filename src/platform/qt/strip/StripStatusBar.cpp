#include "platform/qt/strip/StripStatusBar.h"

namespace velmora {
namespace {

constexpr QColor kDarkBackdrop(42, 42, 45);

}  // namespace

StripStatusBar::StripStatusBar(const Session& session, StripWindow::Kind kind)
    : m_kind(kind), m_menu(session.windows), m_window(kind) {
    m_ratio = m_window.devicePixelRatioF();
    m_window.pressed = [this](const StatusItem& item, const Anchor& anchor) { press(item, anchor); };
    m_window.ratioChanged = [this] {
        const double ratio = m_window.devicePixelRatioF();
        if (qFuzzyCompare(ratio, m_ratio)) return;
        m_ratio = ratio;
        appearanceChanged.fire();
    };
    applyBackdrop();
}

void StripStatusBar::setDark(bool dark) {
    if (m_dark == dark) return;
    m_dark = dark;
    applyBackdrop();
    appearanceChanged.fire();
}

StatusBar::Appearance StripStatusBar::appearance() const {
    return {.dark = m_dark, .square = false, .ratios = {m_ratio}};
}

void StripStatusBar::setItems(const std::vector<StatusItem>& items) {
    m_window.setItems(items);
}

void StripStatusBar::setImage(const std::string& id, const ItemImage& image) {
    m_window.setImage(id, image);
}

void StripStatusBar::press(const StatusItem& item, const Anchor& anchor) {
    if (!item.hasMenu) {
        activated.fire(item.id, anchor);
        return;
    }
    if (menuEntries) {
        m_menu.toggle(menuEntries(item.id), anchor,
                      m_life.wrap([this](const std::string& action) { menuChosen.fire(action); }));
    }
}

void StripStatusBar::applyBackdrop() {
    const QColor dark = m_kind == StripWindow::Kind::topBar ? QColor(Qt::black) : kDarkBackdrop;
    m_window.setBackdrop(m_dark ? dark : QColor(Qt::white));
}

}  // namespace velmora
