#include "panels/kit/BlendScroller.h"

#include "look/Ink.h"

#include <QCommonStyle>
#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

namespace velmora {
namespace {

constexpr int kExtent = 9;
constexpr int kShortestKnob = 28;
constexpr double kInset = 2;

/// Says how large the parts of the bar are and where clicks land; there are no arrow buttons.
class KnobStyle final : public QCommonStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        switch (metric) {
            case PM_ScrollBarExtent:
                return kExtent;
            case PM_ScrollBarSliderMin:
                return kShortestKnob;
            // The whole bar lies over the content.
            case PM_ScrollView_ScrollBarOverlap:
                return kExtent;
            case PM_ScrollView_ScrollBarSpacing:
                return 0;
            default:
                return QCommonStyle::pixelMetric(metric, option, widget);
        }
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        if (hint == SH_ScrollBar_Transient) return 1;
        return QCommonStyle::styleHint(hint, option, widget, returned);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (control != CC_ScrollBar || !bar) {
            return QCommonStyle::subControlRect(control, option, part, widget);
        }
        const bool isUpright = bar->orientation == Qt::Vertical;
        const int length = isUpright ? bar->rect.height() : bar->rect.width();
        const int knob = knobLength(*bar, length);
        const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                                  length - knob, bar->upsideDown);
        const auto part1D = [&](int from, int size) {
            return isUpright ? QRect(bar->rect.left(), bar->rect.top() + from, bar->rect.width(), size)
                             : QRect(bar->rect.left() + from, bar->rect.top(), size, bar->rect.height());
        };
        switch (part) {
            case SC_ScrollBarSlider:
                return part1D(start, knob);
            case SC_ScrollBarGroove:
                return bar->rect;
            case SC_ScrollBarSubPage:
                return part1D(0, start);
            case SC_ScrollBarAddPage:
                return part1D(start + knob, length - start - knob);
            default:
                return {};
        }
    }

private:
    static int knobLength(const QStyleOptionSlider& bar, int length) {
        const qint64 range = qint64{bar.maximum} - bar.minimum;
        if (range <= 0) return length;
        const auto share = static_cast<int>(qint64{length} * bar.pageStep / (range + bar.pageStep));
        return std::clamp(share, std::min(kShortestKnob, length), length);
    }
};

}  // namespace

BlendScroller::BlendScroller(Qt::Orientation orientation, Scheme scheme, QWidget* parent)
    : QScrollBar(orientation, parent), m_style(std::make_unique<KnobStyle>()), m_scheme(scheme) {
    setStyle(m_style.get());
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
}

BlendScroller::~BlendScroller() {
    // The style goes before the widget that asks it.
    setStyle(nullptr);
}

void BlendScroller::setScheme(Scheme scheme) {
    if (m_scheme == scheme) return;
    m_scheme = scheme;
    update();
}

QRectF BlendScroller::knob() const {
    if (maximum() <= minimum()) return {};
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect slider =
        style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    return QRectF(slider).adjusted(kInset, kInset, -kInset, -kInset);
}

void BlendScroller::enterEvent(QEnterEvent* event) {
    QScrollBar::enterEvent(event);
    update();
}

void BlendScroller::leaveEvent(QEvent* event) {
    QScrollBar::leaveEvent(event);
    update();
}

void BlendScroller::paintEvent(QPaintEvent*) {
    const QRectF shape = knob();
    if (shape.isEmpty()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ink::primary(m_scheme, isSliderDown() || underMouse() ? 0.5 : 0.3));
    const double radius = std::min(shape.width(), shape.height()) / 2;
    painter.drawRoundedRect(shape, radius, radius);
}

}  // namespace velmora
