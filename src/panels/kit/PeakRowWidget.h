#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints pairs of label and figure. A figure does not move the pair after it.
class PeakRowWidget final : public ValueWidget<PeakRow> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
