#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints two rates, each in its half: the figure, and its label with a dot below.
class BigRateHeaderWidget final : public ValueWidget<BigRateHeader> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
