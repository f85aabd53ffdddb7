#pragma once

#include "panels/kit/KitWidget.h"
#include "panels/kit/Views.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

class FooterButton;

/// The shortcuts below a panel's cards.
class FooterIconRowWidget final : public KitWidget {
public:
    FooterIconRowWidget(Scheme scheme, QWidget* parent);

    /// A shortcut of the same id keeps its button, and with it the keyboard focus.
    void setRow(const FooterIconRow& row);
    void setScheme(Scheme scheme) override;
    int heightForWidth(int width) const override;
    Spoken spoken() const override;

    const std::vector<FooterButton*>& buttons() const { return m_buttons; }
    /// The button under the pointer.
    const std::optional<std::string>& hoveredID() const { return m_hoveredID; }

protected:
    void layOut() override;

private:
    FooterButton* makeButton(const FooterShortcut& shortcut);
    void setHoveredID(std::optional<std::string> id);

    std::vector<FooterButton*> m_buttons;
    std::optional<std::string> m_hoveredID;
};

}  // namespace velmora
