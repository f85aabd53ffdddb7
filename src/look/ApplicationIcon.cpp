#include "look/ApplicationIcon.h"

#include "look/PictureCache.h"
#include "look/PixelSquare.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <QSvgRenderer>

/// Ties the drawing to this object: the linker would otherwise leave it in the library. Stands outside every
/// namespace because the macro declares a function.
static QString drawingFile() {
    Q_INIT_RESOURCE(pictures);
    return QStringLiteral(":/icon/velmora.svg");
}

namespace velmora::ApplicationIcon {
namespace {

/// The sizes that desktops ask for.
constexpr int kSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

/// The places that show the icon are few, and the largest has 92 points.
constexpr qsizetype kCacheBytes = 1 << 20;

QSvgRenderer& drawing() {
    static QSvgRenderer drawing(drawingFile());
    return drawing;
}

/// The whole picture drawn into `bounds` of a picture with `pixels` along a side.
QImage drawn(int pixels, const QRectF& bounds) {
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing().render(&painter, bounds);
    return picture;
}

QImage artwork(int pixels) {
    static PictureCache cache(kCacheBytes);
    const PictureCache::Key key{.pixels = pixels};
    if (QImage kept = cache.find(key); !kept.isNull()) return kept;

    const double side = pixels * kPictureOverArtwork;
    const double margin = (side - pixels) / 2;
    QImage picture = drawn(pixels, QRectF(-margin, -margin, side, side));
    cache.insert(key, picture);
    return picture;
}

}  // namespace

void paintArtwork(QPainter& painter, const QRectF& box) {
    if (const auto square = PixelSquare::within(box, painter)) square->draw(painter, artwork(square->pixels));
}

QIcon icon() {
    QIcon icon;
    for (const int pixels : kSizes)
        icon.addPixmap(QPixmap::fromImage(drawn(pixels, QRectF(0, 0, pixels, pixels))));
    return icon;
}

}  // namespace velmora::ApplicationIcon
