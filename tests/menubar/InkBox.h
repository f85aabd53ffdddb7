#pragma once

#include <QImage>
#include <QRect>

namespace velmora {

/// The smallest rectangle around all pixels that can be seen: fainter ones are the far edge of smoothing.
inline QRect inkBox(const QImage& image) {
    constexpr int kFaintest = 40;
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) >= kFaintest) box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

}  // namespace velmora
