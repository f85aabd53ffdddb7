#pragma once

#include "panels/kit/KitWidget.h"
#include "panels/kit/Views.h"

#include <QImage>

#include <string>
#include <vector>

namespace velmora {

/// The small plate that tells the figures of a graph's slot. It lies over everything else in the panel and
/// lets the pointer through. The widget is larger than the plate by the shadow's reach.
class HoverChip final : public KitWidget {
public:
    HoverChip(Scheme scheme, QWidget* parent);

    void setContent(const std::string& title, const std::vector<HoverChipRow>& rows, int mostWidth);
    /// The plate's size.
    QSize measured() const { return m_measured; }
    /// Puts the plate's middle there.
    void centreOn(QPointF middle);
    Spoken spoken() const override;

    static constexpr int kShadowRadius = 10;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void measure(int mostWidth);
    void drawRow(QPainter& painter, const HoverChipRow& row, const QRectF& place) const;

    std::string m_title;
    std::vector<HoverChipRow> m_rows;
    QSize m_measured;
    QImage m_shadow;  ///< As it was painted last.
    Scheme m_shadowScheme = Scheme::light;
};

}  // namespace velmora
