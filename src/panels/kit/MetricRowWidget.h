#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints a label and its figure.
class MetricRowWidget final : public ValueWidget<MetricRow> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
