#pragma once

#include "panels/kit/ViewWidget.h"

#include <vector>

namespace velmora {

class RingWidget;

/// Rings side by side.
class RingRowWidget final : public ViewWidget {
public:
    RingRowWidget(const RingRow& row, Scheme scheme, QWidget* parent);

    int heightForWidth(int width) const override;
    void setView(const PanelView& view) override;
    Spoken spoken() const override;

protected:
    void layOut() override;

private:
    void setRow(const RingRow& row);

    double m_spacing = 0;
    std::vector<RingWidget*> m_rings;
};

}  // namespace velmora
