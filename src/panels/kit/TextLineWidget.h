#pragma once

#include "panels/kit/ViewWidget.h"

namespace velmora {

/// Paints one line of text.
class TextLineWidget final : public ValueWidget<TextLine> {
public:
    using ValueWidget::ValueWidget;

    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
