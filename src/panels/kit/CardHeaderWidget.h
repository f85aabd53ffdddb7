#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints a card's title, the figure at its right edge and the note below.
class CardHeaderWidget final : public ValueWidget<CardHeader> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
