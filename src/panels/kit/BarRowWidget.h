#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints a label, a bar and a figure. The bar keeps its length as long as the figure is no wider than its
/// column.
class BarRowWidget final : public ValueWidget<BarRow> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
