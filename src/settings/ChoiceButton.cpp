#include "settings/ChoiceButton.h"

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
}

}  // namespace velmora
