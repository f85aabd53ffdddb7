#include "panels/PanelAccessibility.h"

#include "panels/PanelWindow.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

#include <vector>

namespace velmora {
namespace {

std::vector<PanelWindow*> openPopups() {
    std::vector<PanelWindow*> popups;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const panel = qobject_cast<PanelWindow*>(widget);
        if (panel && panel->isVisible() && panel->windowType() == Qt::Popup) popups.push_back(panel);
    }
    return popups;
}

/// The windows of the application, and after them the panels that are popups.
class ApplicationAccessible final : public QAccessibleApplication {
public:
    int childCount() const override {
        return QAccessibleApplication::childCount() + static_cast<int>(openPopups().size());
    }
    QAccessibleInterface* child(int index) const override {
        const int windows = QAccessibleApplication::childCount();
        if (index < windows) return QAccessibleApplication::child(index);
        const std::vector<PanelWindow*> popups = openPopups();
        const auto place = static_cast<std::size_t>(index - windows);
        return place < popups.size() ? QAccessible::queryAccessibleInterface(popups[place]) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const std::vector<PanelWindow*> popups = openPopups();
        for (std::size_t place = 0; place < popups.size(); ++place) {
            if (child && child->object() == popups[place])
                return QAccessibleApplication::childCount() + static_cast<int>(place);
        }
        return QAccessibleApplication::indexOfChild(child);
    }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    if (object == qApp && className == QLatin1String("QApplication")) return new ApplicationAccessible;
    if (className == QLatin1String("velmora::PanelWindow"))
        return new QAccessibleWidget(qobject_cast<QWidget*>(object), QAccessible::Dialog);
    return nullptr;
}

}  // namespace

void installPanelAccessibility() {
    QAccessible::installFactory(makeAccessible);
}

}  // namespace velmora
