#pragma once

#include "settings/controls/SettingsButton.h"

namespace velmora {

/// One of a group of which at most one is chosen: a row of a sidebar, or a swatch. The group are the choices
/// with the same parent: one stop for the Tab key, at the chosen one, and arrow keys go from one to the next
/// and press it. It shows what it is told: a press calls the action, and the mark moves when `setChosen` says
/// so.
class ChoiceButton : public SettingsButton {
public:
    explicit ChoiceButton(QWidget* parent);

    bool isChosen() const { return isChecked(); }
    /// Also takes the mark away from the whole group, which a press cannot.
    void setChosen(bool chosen);

protected:
    void nextCheckState() override {}
};

}  // namespace velmora
