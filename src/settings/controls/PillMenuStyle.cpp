#include "settings/controls/PillMenuStyle.h"

#include "look/Ink.h"
#include "look/Symbol.h"
#include "look/SystemFont.h"
#include "settings/controls/SettingsScheme.h"

#include <QAction>
#include <QFontMetricsF>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr int kMargin = 5;
constexpr int kMinItemHeight = 24;
constexpr int kImageClearance = 3;
constexpr int kScrollerHeight = 16;
constexpr double kHighlightRadius = 5;
constexpr double kMarkLeading = 5;
constexpr double kMarkSide = 14;
constexpr double kContentLeading = 24;
constexpr double kImageGap = 9;
constexpr double kTrailing = 14;
/// A longer title is cut at its end, so that no menu is wider than a small screen.
constexpr double kMostTitle = 340;

QFont titleFont() {
    return SystemFont::ofPixelSize(13, QFont::Normal);
}

QString title(const QStyleOptionMenuItem& item) {
    return QString(item.text).replace(QLatin1String("&&"), QLatin1String("&"));
}

/// Room for the largest of the menu's images; empty in a menu without any.
QSizeF imageColumn(const QWidget* menu) {
    QSizeF largest(0, 0);
    for (const QAction* action : menu ? menu->actions() : QList<QAction*>()) {
        largest = largest.expandedTo(action->data().toSizeF());
    }
    return largest;
}

double titleLeading(const QSizeF& images) {
    return kContentLeading + (images.width() > 0 ? images.width() + kImageGap : 0);
}

QSize itemSize(const QStyleOptionMenuItem& item, const QWidget* menu) {
    const QSizeF images = imageColumn(menu);
    const double text =
        std::min(std::ceil(QFontMetricsF(titleFont()).horizontalAdvance(title(item))), kMostTitle);
    return {static_cast<int>(std::ceil(titleLeading(images) + text + kTrailing)),
            std::max(kMinItemHeight, static_cast<int>(std::ceil(images.height())) + 2 * kImageClearance)};
}

QColor ground(Scheme scheme) {
    return scheme == Scheme::dark ? QColor(44, 44, 47) : QColor(255, 255, 255);
}

void paintImage(QPainter& painter, const QStyleOptionMenuItem& item, const QWidget* menu) {
    const auto* const actions = qobject_cast<const QMenu*>(menu);
    const QAction* const action = actions ? actions->actionAt(item.rect.center()) : nullptr;
    if (!action) return;
    const QPixmap image = item.icon.pixmap(item.icon.availableSizes().constFirst(), 1.0);
    const QSizeF size = action->data().toSizeF();
    const double top = item.rect.top() + std::round((item.rect.height() - size.height()) / 2);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRectF(QPointF(item.rect.left() + kContentLeading, top), size), image,
                       QRectF(image.rect()));
}

void paintItem(QPainter& painter, const QStyleOptionMenuItem& item, const QWidget* menu) {
    const Scheme scheme = schemeOf(menu);
    const QRectF bounds(item.rect);
    painter.setRenderHint(QPainter::Antialiasing);
    // A wash in place of the accent colour: the images may be in any colour, and stay what they are.
    if (item.state & QStyle::State_Selected) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Ink::primary(scheme, 0.1));
        painter.drawRoundedRect(bounds, kHighlightRadius, kHighlightRadius);
    }
    if (item.checked) {
        Symbol::paint(
            painter, "checkmark",
            QRectF(bounds.left() + kMarkLeading, bounds.center().y() - kMarkSide / 2, kMarkSide, kMarkSide),
            Ink::primary(scheme));
    }
    const QSizeF images = imageColumn(menu);
    if (!item.icon.isNull()) paintImage(painter, item, menu);
    const QFont font = titleFont();
    const QRectF place = bounds.adjusted(titleLeading(images), 0, -kTrailing + 1, 0);
    painter.setFont(font);
    painter.setPen(Ink::primary(scheme));
    painter.drawText(
        place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        QFontMetricsF(font).elidedText(title(item), Qt::ElideRight, place.width(), Qt::TextSingleLine));
}

void paintScroller(QPainter& painter, const QStyleOption& option, const QWidget* menu) {
    constexpr double kSide = 12;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(option.rect).center());
    const bool downwards = option.state & QStyle::State_DownArrow;
    if (!downwards) painter.rotate(180);
    Symbol::paint(painter, "chevron.down", QRectF(-kSide / 2, -kSide / 2, kSide, kSide),
                  Ink::secondary(schemeOf(menu)));
    painter.restore();
}

void paintGround(QPainter& painter, const QStyleOption& option, const QWidget* menu) {
    const Scheme scheme = schemeOf(menu);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // The ground reaches under the line: without a compositor, what lies behind the window shows black.
    const QRectF bounds(option.rect);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground(scheme));
    painter.drawRoundedRect(bounds, PillMenuStyle::kCornerRadius, PillMenuStyle::kCornerRadius);
    const double radius = PillMenuStyle::kCornerRadius - 0.5;
    painter.setPen(Ink::primary(scheme, 0.14));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(bounds.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

}  // namespace

// The base is the one style that is the same on every desktop.
PillMenuStyle::PillMenuStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

int PillMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return kMargin;
        case PM_MenuPanelWidth:
        case PM_MenuTearoffHeight:
        case PM_MenuDesktopFrameWidth:
            return 0;
        case PM_MenuScrollerHeight:
            return kScrollerHeight;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int PillMenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returnData) const {
    switch (hint) {
        case SH_Menu_KeyboardSearch:
        case SH_Menu_Scrollable:
        case SH_Menu_MouseTracking:
            return 1;
        case SH_Menu_FlashTriggeredItem:
        case SH_Menu_FadeOutOnHide:
        case SH_Menu_Mask:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QSize PillMenuStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                      const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_MenuItem && item) return itemSize(*item, widget);
    if (type == CT_Menu) return size;
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

void PillMenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    switch (element) {
        case CE_MenuItem:
            if (const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
                paintItem(*painter, *item, widget);
            }
            return;
        case CE_MenuScroller:
            return paintScroller(*painter, *option, widget);
        case CE_MenuEmptyArea:
        case CE_MenuHMargin:
        case CE_MenuVMargin:
            return;
        default:
            QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void PillMenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    switch (element) {
        case PE_PanelMenu:
            return paintGround(*painter, *option, widget);
        case PE_FrameMenu:
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

}  // namespace velmora
