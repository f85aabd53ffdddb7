#pragma once

#include "settings/controls/SettingsButton.h"

#include <QRectF>

#include <functional>

namespace velmora {

/// An on-off switch, 38 by 22 points. It shows what it is told: a press calls the action with the state that
/// is asked for, and the switch turns when `setOn` says so.
class ToggleSwitch final : public SettingsButton {
public:
    explicit ToggleSwitch(QWidget* parent = nullptr);

    bool isOn() const { return isChecked(); }
    void setOn(bool on) { setChecked(on); }
    void onToggle(std::function<void(bool on)> toggle) { m_onToggle = std::move(toggle); }

    /// The knob's disc in the state.
    static QRectF knobFrame(bool on);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<void(bool)> m_onToggle;
};

}  // namespace velmora
