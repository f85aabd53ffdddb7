#pragma once

#include "look/Scheme.h"

#include <QAbstractButton>

namespace velmora {

/// What all buttons of the settings share: Enter presses as Space does, the pointer's stay is seen, and the
/// focus shows only to who moves it with the keyboard.
class SettingsButton : public QAbstractButton {
public:
    explicit SettingsButton(QWidget* parent = nullptr);

    /// Whether the focus is to be drawn.
    bool showsFocus() const { return m_showsFocus; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    Scheme scheme() const;
    bool isHovered() const;
    /// A wash over the ground while the pointer is on the button, a stronger one while it is down; clear
    /// else.
    QColor wash() const;

private:
    bool m_showsFocus = false;
};

}  // namespace velmora
