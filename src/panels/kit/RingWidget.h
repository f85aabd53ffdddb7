#pragma once

#include "panels/kit/KitWidget.h"
#include "panels/kit/RingGeometry.h"
#include "panels/kit/Views.h"

namespace velmora {

/// A ring with its figure in the middle and its caption below.
class RingWidget final : public KitWidget {
public:
    RingWidget(const RingStat& ring, Scheme scheme, QWidget* parent);

    void setRing(const RingStat& ring);
    /// What the ring asks for from left to right.
    RingGeometry::RingNeed need() const;
    int heightNeeded() const;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    RingStat m_ring;
};

}  // namespace velmora
