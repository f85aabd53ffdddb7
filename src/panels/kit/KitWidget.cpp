#include "panels/kit/KitWidget.h"

#include <QAccessibleWidget>

namespace velmora {
namespace {

/// Answers with what the widget shows at the moment of the question. The value stands in the description too:
/// screen readers on Linux ask for that where a value is no number.
class KitAccessible final : public QAccessibleWidget {
public:
    explicit KitAccessible(KitWidget* widget) : QAccessibleWidget(widget), m_widget(*widget) {}

    QAccessible::Role role() const override { return m_widget.spoken().role; }
    QString text(QAccessible::Text kind) const override {
        switch (kind) {
            case QAccessible::Name:
                return m_widget.spoken().name;
            case QAccessible::Value:
            case QAccessible::Description:
                return m_widget.spoken().value;
            default:
                return QAccessibleWidget::text(kind);
        }
    }

private:
    const KitWidget& m_widget;
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    auto* const widget =
        className == QLatin1String("velmora::KitWidget") ? qobject_cast<KitWidget*>(object) : nullptr;
    return widget ? new KitAccessible(widget) : nullptr;
}

}  // namespace

KitWidget::KitWidget(Scheme scheme, QWidget* parent) : QWidget(parent), m_scheme(scheme) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessible), true);
    setFocusPolicy(Qt::NoFocus);
}

void KitWidget::setScheme(Scheme scheme) {
    for (QObject* const child : children()) {
        if (auto* const part = qobject_cast<KitWidget*>(child)) part->setScheme(scheme);
    }
    if (m_scheme == scheme) return;
    m_scheme = scheme;
    update();
}

void KitWidget::setPlace(const QRect& place) {
    setGeometry(place);
    layOut();
}

void KitWidget::refresh() {
    update();
    if (!QAccessible::isActive()) return;
    for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::DescriptionChanged}) {
        QAccessibleEvent event(this, kind);
        QAccessible::updateAccessibility(&event);
    }
}

}  // namespace velmora
