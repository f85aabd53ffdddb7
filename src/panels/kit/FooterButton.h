#pragma once

#include "look/Scheme.h"
#include "panels/kit/Views.h"

#include <QAbstractButton>

#include <functional>

namespace velmora {

/// A round button of a panel's last row.
class FooterButton final : public QAbstractButton {
    Q_OBJECT
public:
    static constexpr int kSide = 28;

    FooterButton(const FooterShortcut& shortcut, Scheme scheme, QWidget* parent);

    const std::string& id() const { return m_shortcut.id; }
    /// The button of the same id goes on with another symbol, help or action.
    void setShortcut(const FooterShortcut& shortcut);
    void setScheme(Scheme scheme);
    /// Only then the button has a ground.
    void setHovered(bool isHovered);
    bool isHovered() const { return m_isHovered; }

    QSize sizeHint() const override { return {kSide, kSide}; }

    /// The pointer came or went.
    std::function<void(bool isInside)> pointerCrossed;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    FooterShortcut m_shortcut;
    Scheme m_scheme;
    bool m_isHovered = false;
};

}  // namespace velmora
