#include "platform/qt/strip/StripCell.h"

#include "platform/qt/strip/StripGeometry.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

/// What a screen reader hears: a button with the item's name, and its figure as it is when it is asked for.
class StripCellAccessible final : public QAccessibleWidget {
public:
    explicit StripCellAccessible(StripCell* cell)
        : QAccessibleWidget(cell, QAccessible::Button), m_cell(*cell) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return QString::fromStdString(m_cell.item().title);
        if (kind == QAccessible::Description || kind == QAccessible::Value) {
            return QString::fromStdString(m_cell.image().label);
        }
        return QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && m_cell.pressed) m_cell.pressed(m_cell);
    }

private:
    StripCell& m_cell;
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    auto* const cell =
        className == QLatin1String("velmora::StripCell") ? qobject_cast<StripCell*>(object) : nullptr;
    return cell ? new StripCellAccessible(cell) : nullptr;
}

int logicalWidth(const ItemPixels& pixels) {
    return static_cast<int>(std::ceil(pixels.width / pixels.ratio));
}

}  // namespace

StripCell::StripCell(QWidget* parent, const StatusItem& item) : QWidget(parent) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(makeAccessible), true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    setItem(item);
}

void StripCell::setItem(const StatusItem& item) {
    m_item = item;
    setToolTip(QString::fromStdString(item.toolTip));
    setAccessibleName(QString::fromStdString(item.title));
}

StripCell::ImageChange StripCell::setImage(const ItemImage& image) {
    m_hasImage = true;
    if (m_image.label != image.label) m_image.label = image.label;
    if (m_image.pixels == image.pixels) return ImageChange::none;
    const int widthBefore = imageWidth();
    m_image.pixels = image.pixels;
    update();
    return imageWidth() == widthBefore ? ImageChange::pixels : ImageChange::width;
}

int StripCell::imageWidth() const {
    const ItemPixels* const pixels = pixelsFor(devicePixelRatioF());
    return pixels ? logicalWidth(*pixels) : StripGeometry::kImageHeight;
}

void StripCell::setBackdrop(const QColor& backdrop) {
    if (m_backdrop == backdrop) return;
    m_backdrop = backdrop;
    update();
}

void StripCell::setHovered(bool hovered) {
    if (m_hovered == hovered) return;
    m_hovered = hovered;
    update();
}

void StripCell::enterEvent(QEnterEvent*) {
    setHovered(true);
}

void StripCell::leaveEvent(QEvent*) {
    // A cell stays lit while the popup that it opened takes the pointer from it.
    if (!QApplication::activePopupWidget()) setHovered(false);
}

void StripCell::mousePressEvent(QMouseEvent*) {
    setHovered(true);
    if (pressed) pressed(*this);
    if (QWidget* const popup = QApplication::activePopupWidget()) popup->installEventFilter(this);
}

bool StripCell::eventFilter(QObject* popup, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        popup->removeEventFilter(this);
        setHovered(rect().contains(mapFromGlobal(QCursor::pos())));
    }
    return false;
}

void StripCell::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_backdrop);
    if (m_hovered) {
        QColor hover = m_backdrop.lightnessF() < 0.5F ? Qt::white : Qt::black;
        hover.setAlphaF(0.12F);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(hover);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    }
    const ItemPixels* const pixels = pixelsFor(devicePixelRatioF());
    if (!pixels) return;
    QImage image(reinterpret_cast<const uchar*>(pixels->argb.data()), pixels->width, pixels->height,
                 qsizetype{pixels->width} * 4, QImage::Format_ARGB32);
    image.setDevicePixelRatio(pixels->ratio);
    const QSizeF size(pixels->width / pixels->ratio, pixels->height / pixels->ratio);
    // A whole device pixel, or the image would be resampled.
    const double ratio = devicePixelRatioF();
    const double x = std::floor((width() - size.width()) / 2 * ratio) / ratio;
    const double y = std::floor((height() - size.height()) / 2 * ratio) / ratio;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !qFuzzyCompare(pixels->ratio, ratio));
    painter.drawImage(QPointF(x, y), image);
}

/// The image of the given ratio, else the smallest of those above it, else the largest.
const ItemPixels* StripCell::pixelsFor(double ratio) const {
    const ItemPixels* best = nullptr;
    for (const ItemPixels& pixels : m_image.pixels) {
        const bool usable = pixels.width > 0 && pixels.height > 0 && pixels.ratio > 0 &&
                            pixels.argb.size() == static_cast<std::size_t>(pixels.width) *
                                                      static_cast<std::size_t>(pixels.height);
        if (!usable) continue;
        const bool fits = pixels.ratio >= ratio;
        const bool bestFits = best && best->ratio >= ratio;
        if (!best || (fits && (!bestFits || pixels.ratio < best->ratio)) ||
            (!fits && !bestFits && pixels.ratio > best->ratio)) {
            best = &pixels;
        }
    }
    return best;
}

}  // namespace velmora
