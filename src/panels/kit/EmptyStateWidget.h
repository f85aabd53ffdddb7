#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints a symbol above a text.
class EmptyStateWidget final : public ValueWidget<EmptyState> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
