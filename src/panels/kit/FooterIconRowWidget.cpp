#include "panels/kit/FooterIconRowWidget.h"

#include "panels/kit/FooterButton.h"
#include "panels/kit/RowGeometry.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kSpacing = 8;

RowGeometry::ButtonRows rowsOf(std::size_t count, int width) {
    return {static_cast<int>(count), width, FooterButton::kSide, kSpacing};
}

}  // namespace

FooterIconRowWidget::FooterIconRowWidget(Scheme scheme, QWidget* parent) : KitWidget(scheme, parent) {}

void FooterIconRowWidget::setRow(const FooterIconRow& row) {
    std::vector<FooterButton*> buttons;
    for (const FooterShortcut& shortcut : row.shortcuts) {
        const auto known = std::ranges::find(m_buttons, shortcut.id, &FooterButton::id);
        if (known == m_buttons.end()) {
            buttons.push_back(makeButton(shortcut));
        } else {
            (*known)->setShortcut(shortcut);
            buttons.push_back(*known);
            m_buttons.erase(known);
        }
    }
    // A press may be what takes its own button away.
    for (FooterButton* const gone : m_buttons) {
        if (m_hoveredID == gone->id()) m_hoveredID.reset();
        gone->hide();
        gone->deleteLater();
    }
    m_buttons = std::move(buttons);
    for (std::size_t index = 1; index < m_buttons.size(); ++index) {
        setTabOrder(m_buttons[index - 1], m_buttons[index]);
    }
}

void FooterIconRowWidget::setScheme(Scheme scheme) {
    KitWidget::setScheme(scheme);
    for (FooterButton* const button : m_buttons) button->setScheme(scheme);
}

int FooterIconRowWidget::heightForWidth(int width) const {
    return rowsOf(m_buttons.size(), width).height();
}

KitWidget::Spoken FooterIconRowWidget::spoken() const {
    return {QAccessible::ToolBar, {}, {}};
}

FooterButton* FooterIconRowWidget::makeButton(const FooterShortcut& shortcut) {
    auto* const button = new FooterButton(shortcut, scheme(), this);
    button->pointerCrossed = [this, button](bool isInside) {
        if (isInside) {
            setHoveredID(button->id());
        } else if (m_hoveredID == button->id()) {
            setHoveredID(std::nullopt);
        }
    };
    button->show();
    return button;
}

void FooterIconRowWidget::setHoveredID(std::optional<std::string> id) {
    m_hoveredID = std::move(id);
    for (FooterButton* const button : m_buttons) button->setHovered(m_hoveredID == button->id());
}

void FooterIconRowWidget::layOut() {
    const RowGeometry::ButtonRows rows = rowsOf(m_buttons.size(), width());
    for (std::size_t index = 0; index < m_buttons.size(); ++index) {
        const RowGeometry::ButtonRows::Corner corner = rows.corner(static_cast<int>(index));
        m_buttons[index]->setGeometry(corner.x, corner.y, FooterButton::kSide, FooterButton::kSide);
    }
}

}  // namespace velmora
