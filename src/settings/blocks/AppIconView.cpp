#include "settings/blocks/AppIconView.h"

#include "look/ApplicationIcon.h"

#include <QPainter>

namespace velmora {

AppIconView::AppIconView(int size, QWidget* parent) : QWidget(parent) {
    setFixedSize(size, size);
}

void AppIconView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    ApplicationIcon::paintArtwork(painter, QRectF(rect()));
}

}  // namespace velmora
