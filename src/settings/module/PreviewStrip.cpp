#include "settings/module/PreviewStrip.h"

#include "look/Ink.h"
#include "look/Symbol.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/PixelGrid.h"
#include "settings/controls/SettingsScheme.h"

#include <QPainter>

namespace velmora {
namespace {

constexpr double kSides = 11;
constexpr double kSpacing = 8;
constexpr double kSymbol = 16;
constexpr PanelFont kClockFont{.size = 11, .digits = DigitWidth::monospaced};
const QString kClock = QStringLiteral("9:41");

/// A box of the size whose right edge is at `right`, in the middle of the strip.
QRectF endingAt(double right, const QSizeF& size) {
    return {right - size.width(), (PreviewStrip::kHeight - size.height()) / 2, size.width(), size.height()};
}

}  // namespace

PreviewStrip::PreviewStrip(std::function<MenuBarImage(double)> render, QWidget* parent)
    : QWidget(parent), m_render(std::move(render)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

PreviewStrip::Frames PreviewStrip::frames(double width, const QSizeF& item, const QSizeF& clock) {
    Frames frames;
    frames.clock = endingAt(width - kSides, clock);
    frames.battery = endingAt(frames.clock.left() - kSpacing, QSizeF(kSymbol, kSymbol));
    frames.wifi = endingAt(frames.battery.left() - kSpacing, QSizeF(kSymbol, kSymbol));
    frames.item = endingAt(frames.wifi.left() - kSpacing, item);
    return frames;
}

QSize PreviewStrip::sizeHint() const {
    return {0, kHeight};
}

void PreviewStrip::paintEvent(QPaintEvent*) {
    constexpr double kCornerRadius = 7;
    constexpr double kGroundOpacity = 0.06;
    const Scheme scheme = schemeOf(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ink::primary(scheme, kGroundOpacity));
    painter.drawRoundedRect(QRectF(rect()), kCornerRadius, kCornerRadius);

    const QImage item = MenuBarRenderer::tinted(m_render(devicePixelRatioF()), scheme == Scheme::dark);
    const Frames place =
        frames(width(), item.deviceIndependentSize(),
               QSizeF(PanelText::width(kClockFont, kClock), PanelText::lineHeight(kClockFont)));
    const PixelGrid grid(painter);
    painter.drawImage(QPointF(grid.x(place.item.left()), grid.y(place.item.top())), item);
    Symbol::paint(painter, "wifi", place.wifi, Ink::secondary(scheme));
    Symbol::paint(painter, "battery.75percent", place.battery, Ink::secondary(scheme));
    PanelText::draw(painter, kClockFont, kClock, place.clock, PanelText::Side::trailing,
                    Ink::secondary(scheme));
}

}  // namespace velmora
