#pragma once

#include <QImage>
#include <QRectF>

#include <optional>

class QPainter;

namespace velmora {

/// Where a square picture goes so that its pixels fall on whole pixels of what is painted on, which keeps
/// thin strokes sharp.
struct PixelSquare {
    /// No picture is drawn with more pixels along a side; what is larger is an enlarged one.
    static constexpr int kMostPixels = 1024;

    QRectF box;      ///< In the painter's coordinates.
    int pixels = 0;  ///< Along a side of the picture, at least 1.
    bool isExact =
        false;  ///< Whether pixel falls on pixel: not where the painter turns, or stretches unevenly.

    /// The largest one in the middle of `bounds`. Nothing if there is no room for a pixel.
    static std::optional<PixelSquare> within(const QRectF& bounds, const QPainter& painter);

    void draw(QPainter& painter, const QImage& picture) const;
};

}  // namespace velmora
