#include "settings/controls/VMPillButton.h"

namespace velmora {

VMPillButton::VMPillButton(const QString& title, PillFill fill, std::function<void()> action, QWidget* parent)
    : QWidget(parent),
      m_action(std::move(action)),
      m_button(new PillButton(
          title, fill, [this] { tapped(); }, this)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setFocusProxy(m_button);
}

void VMPillButton::setTitle(const QString& title) {
    if (title == m_button->buttonTitle()) return;
    m_button->setButtonTitle(title);
    updateGeometry();
}

QSize VMPillButton::sizeHint() const {
    return m_button->sizeHint();
}

void VMPillButton::resizeEvent(QResizeEvent*) {
    m_button->setGeometry(rect());
}

void VMPillButton::tapped() {
    if (m_action) m_action();
}

}  // namespace velmora
