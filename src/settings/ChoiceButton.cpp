#include "settings/ChoiceButton.h"

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
}

}  // namespace velmora
