#include "settings/controls/SegmentIcon.h"

#include "look/Ink.h"
#include "settings/controls/SettingsScheme.h"

#include <QPainter>

namespace velmora {

SegmentIcon::SegmentIcon(const QImage& image, const QString& tooltip, QWidget* parent)
    : QAbstractButton(parent), m_image(image) {
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setToolTip(tooltip);
    setAccessibleName(tooltip);
}

QSizeF SegmentIcon::imageSize() const {
    return m_image.isNull() ? QSizeF() : m_image.deviceIndependentSize();
}

void SegmentIcon::paintEvent(QPaintEvent*) {
    if (m_image.isNull()) return;
    const Scheme scheme = schemeOf(this);
    QImage tinted = m_image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter tint(&tinted);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(tinted.rect(), isChecked() ? Ink::primary(scheme) : Ink::secondary(scheme));
    tint.end();

    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSizeF size = imageSize();
    painter.drawImage(QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size),
                      tinted);
}

}  // namespace velmora
