#include "settings/controls/ChoiceButton.h"

#include <algorithm>
#include <vector>

namespace velmora {

ChoiceButton::ChoiceButton(QWidget* parent) : SettingsButton(parent) {
    setCheckable(true);
    setAutoExclusive(true);
}

void ChoiceButton::setChosen(bool chosen) {
    // An exclusive button does not let go of its mark by itself.
    setAutoExclusive(chosen);
    setChecked(chosen);
    setAutoExclusive(true);

    std::vector<ChoiceButton*> group;
    for (QObject* const child : parentWidget() ? parentWidget()->children() : QObjectList{this}) {
        if (auto* const choice = dynamic_cast<ChoiceButton*>(child)) group.push_back(choice);
    }
    const bool anyIsChosen = std::ranges::any_of(group, &ChoiceButton::isChosen);
    for (ChoiceButton* const choice : group) {
        choice->setFocusPolicy(choice->isChosen() || !anyIsChosen ? Qt::TabFocus : Qt::NoFocus);
    }
    if (!chosen) return;
    // The keyboard's place in the group is where the choice is, also after a press with the pointer. An arrow
    // key chooses first and then moves the focus by itself, so this waits for it.
    const auto follow = [this] {
        const auto isFocusedChoice = [](const QObject* child) {
            const auto* const choice = dynamic_cast<const ChoiceButton*>(child);
            return choice && choice->hasFocus();
        };
        if (isChosen() && parentWidget() &&
            std::ranges::any_of(parentWidget()->children(), isFocusedChoice)) {
            setFocus();
        }
    };
    QMetaObject::invokeMethod(this, follow, Qt::QueuedConnection);
}

}  // namespace velmora
