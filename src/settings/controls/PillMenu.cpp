#include "settings/controls/PillMenu.h"

#include "settings/controls/PillMenuStyle.h"

#include <QAction>
#include <QBitmap>
#include <QPainter>
#include <QPixmap>

#include <cstddef>

namespace velmora {
namespace {

/// An icon knows its pixels only, so the size in points goes along as the action's data.
void setImage(QAction& action, const std::optional<QImage>& image) {
    action.setData(image ? QVariant(image->deviceIndependentSize()) : QVariant());
    action.setIcon(image ? QIcon(QPixmap::fromImage(*image)) : QIcon());
}

/// A title as it is: the toolkit would take "&" for the mark of a mnemonic.
QString withoutMnemonic(QString title) {
    return title.replace('&', QStringLiteral("&&"));
}

}  // namespace

PillMenu::PillMenu(QWidget* owner, std::function<void(int)> pick) : QMenu(owner), m_pick(std::move(pick)) {
    auto* const style = new PillMenuStyle;
    style->setParent(this);
    setStyle(style);
    setAttribute(Qt::WA_DeleteOnClose);
    // With a compositor the corners are smooth; without one, the mask below leaves them out.
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlag(Qt::NoDropShadowWindowHint);
    // A change of scheme comes with the palette, which a window does not take over by itself.
    setAttribute(Qt::WA_WindowPropagation);
    // The click that closes the menu does nothing else: on the pill it would open the menu again.
    setAttribute(Qt::WA_NoMouseReplay);
}

void PillMenu::setItems(const std::vector<Item>& items) {
    while (actions().size() > static_cast<qsizetype>(items.size())) delete actions().constLast();
    while (actions().size() < static_cast<qsizetype>(items.size())) {
        const int tag = static_cast<int>(actions().size());
        QAction* const action = addAction(QString());
        action->setCheckable(true);
        action->setIconVisibleInMenu(true);
        connect(action, &QAction::triggered, this, [this, tag] { m_pick(tag); });
    }
    for (std::size_t index = 0; index < items.size(); ++index) {
        QAction* const action = actions()[static_cast<qsizetype>(index)];
        action->setText(withoutMnemonic(items[index].title));
        setImage(*action, items[index].image);
        action->setChecked(items[index].on);
    }
}

void PillMenu::resizeEvent(QResizeEvent* event) {
    QMenu::resizeEvent(event);
    QBitmap shape(size());
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), PillMenuStyle::kCornerRadius - 1,
                            PillMenuStyle::kCornerRadius - 1);
    painter.end();
    setMask(shape);
}

}  // namespace velmora
