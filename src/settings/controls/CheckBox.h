#pragma once

#include "settings/controls/SettingsButton.h"

#include <QRectF>
#include <QString>

#include <functional>

namespace velmora {

/// A box with a check mark and a label, which wraps where it has no room. It shows what it is told: a press
/// calls the action with the state that is asked for, and the mark changes when `setOn` says so.
class CheckBox final : public SettingsButton {
public:
    /// The label's size is in pixels.
    explicit CheckBox(int labelSize = 13, QWidget* parent = nullptr);

    /// Also the name for screen readers.
    void setLabel(const QString& label);
    bool isOn() const { return isChecked(); }
    void setOn(bool on) { setChecked(on); }
    void onToggle(std::function<void(bool on)> toggle) { m_onToggle = std::move(toggle); }

    /// The box itself, in the middle of the first line.
    QRectF boxFrame() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    bool hitButton(const QPoint& point) const override;
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

private:
    double lineHeight() const;

    int m_labelSize;
    std::function<void(bool)> m_onToggle;
};

}  // namespace velmora
