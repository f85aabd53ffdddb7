#pragma once

#include "panels/kit/KitWidget.h"
#include "panels/kit/ViewFactory.h"
#include "panels/kit/Views.h"

#include <vector>

namespace velmora {

class CardWidget;
class FooterIconRowWidget;
class HoverChip;
class ProcessIcons;

/// Lays out and paints a panel: its cards in a column 300 wide, the footer below them, and the hover chip
/// over everything. It has always the size that its content needs. The ground behind it is `MenuBackdrop`'s.
class PanelWidget final : public KitWidget {
    Q_OBJECT
public:
    static constexpr int kWidth = 300;

    /// `icons` outlives the widget.
    PanelWidget(Scheme scheme, ProcessIcons& icons, QWidget* parent = nullptr);
    ~PanelWidget() override;

    /// What is of the same kind at the same place as before goes on with its new value, so that the hovered
    /// slot and the keyboard focus stay, and what is equal is not painted again. The rest is made anew.
    void setPanel(MenuPanel panel);

    QSize sizeHint() const override;
    Spoken spoken() const override;

    const std::vector<CardWidget*>& cards() const { return m_cards; }
    FooterIconRowWidget& footer() const { return *m_footer; }
    /// Visible while a graph reports a hovered slot.
    HoverChip& chip() const { return *m_chip; }

private:
    void place();
    void updateChip();

    ViewFactory m_factory;
    QString m_name;
    std::vector<CardWidget*> m_cards;
    FooterIconRowWidget* m_footer;
    HoverChip* m_chip;
    int m_height = 0;
};

}  // namespace velmora
