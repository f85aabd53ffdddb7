#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints a bar as wide as the card.
class UsageBarWidget final : public ValueWidget<UsageBar> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
