#include "settings/controls/PulldownPill.h"

#include "look/Ink.h"
#include "look/Symbol.h"
#include "look/SystemFont.h"
#include "settings/controls/FocusRing.h"
#include "settings/controls/PillTheme.h"

#include <QAccessibleWidget>
#include <QFontMetricsF>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kCornerRadius = 7;
constexpr double kLeading = 10;
constexpr double kGap = 5;
constexpr double kTrailing = 9;
constexpr double kChevronSide = 9;
// The drawing leaves a margin in its square; in one this much larger, its ink is as wide as the chevron.
constexpr double kChevronMargin = 1;
constexpr double kInvisibleBelow = 0.01;
constexpr int kNaturalHeight = 28;

QFont labelFont() {
    return SystemFont::ofPixelSize(12, QFont::Medium);
}

/// A button with a menu, whose value is the title.
class PulldownPillAccessible final : public QAccessibleWidget {
public:
    explicit PulldownPillAccessible(PulldownPill* pill) : QAccessibleWidget(pill, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? pill().label() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString& name) override {
        if (actionNames().contains(name)) pill().click();
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    PulldownPill& pill() const { return *static_cast<PulldownPill*>(widget()); }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* const pill = qobject_cast<PulldownPill*>(object);
    return pill ? new PulldownPillAccessible(pill) : nullptr;
}

}  // namespace

PulldownPill::Places PulldownPill::places(QSizeF size) {
    const double chevronLeft = size.width() - kTrailing - kChevronSide;
    Places places;
    places.chevron = QRectF(chevronLeft, (size.height() - kChevronSide) / 2, kChevronSide, kChevronSide);
    places.label = QRectF(kLeading, 0, std::max(chevronLeft - kGap - kLeading, 0.0), size.height());
    return places;
}

PulldownPill::PulldownPill(const QString& title, std::function<void()> action, QWidget* parent)
    : SettingsButton(parent), m_label(title) {
    static const bool installed = (QAccessible::installFactory(makeAccessible), true);
    static_cast<void>(installed);
    connect(this, &QAbstractButton::clicked, this, std::move(action));
}

void PulldownPill::setLabel(const QString& label) {
    if (label == m_label) return;
    m_label = label;
    updateGeometry();
    update();
    QAccessibleValueChangeEvent event(this, label);
    QAccessible::updateAccessibility(&event);
}

bool PulldownPill::hitTest(QPoint pointInParent) const {
    if (isHidden()) return false;
    const auto* const effect = qobject_cast<const QGraphicsOpacityEffect*>(graphicsEffect());
    if (effect && effect->isEnabled() && effect->opacity() < kInvisibleBelow) return false;
    return rect().contains(mapFromParent(pointInParent));
}

bool PulldownPill::hitButton(const QPoint& point) const {
    return hitTest(mapToParent(point));
}

QSize PulldownPill::sizeHint() const {
    const double label = std::ceil(QFontMetricsF(labelFont()).horizontalAdvance(m_label));
    return {static_cast<int>(kLeading + label + kGap + kChevronSide + kTrailing), kNaturalHeight};
}

void PulldownPill::keyPressEvent(QKeyEvent* event) {
    const bool opens = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (!opens) return SettingsButton::keyPressEvent(event);
    if (!event->isAutoRepeat()) click();
}

void PulldownPill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds(rect());
    painter.setPen(Qt::NoPen);
    for (const QColor& ground : {PillTheme::field(scheme()), wash()}) {
        painter.setBrush(ground);
        painter.drawRoundedRect(bounds, kCornerRadius, kCornerRadius);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(PillTheme::fieldBorder(scheme()));
    painter.drawRoundedRect(bounds.adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius - 0.5, kCornerRadius - 0.5);

    const Places at = places(bounds.size());
    const QFont font = labelFont();
    const QString shown =
        QFontMetricsF(font).elidedText(m_label, Qt::ElideRight, at.label.width(), Qt::TextSingleLine);
    painter.setFont(font);
    painter.setPen(Ink::primary(scheme()));
    painter.drawText(at.label, Qt::AlignCenter | Qt::TextSingleLine, shown);
    Symbol::paint(painter, "chevron.down",
                  at.chevron.adjusted(-kChevronMargin, -kChevronMargin, kChevronMargin, kChevronMargin),
                  Ink::tertiary(scheme()));

    if (showsFocus()) paintFocusRing(painter, bounds, kCornerRadius, RingGround::field);
}

}  // namespace velmora
