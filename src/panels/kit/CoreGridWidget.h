#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints the rings of all cores, however many there are.
class CoreGridWidget final : public ValueWidget<CoreGrid> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
