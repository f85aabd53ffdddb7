#include "panels/kit/SoftShadow.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace velmora::SoftShadow {
namespace {

/// How dark each pixel of a row is, for a stroke of `length` points.
std::vector<double> profile(int pixels, double length, double radius, double ratio) {
    std::vector<double> darkness;
    darkness.reserve(static_cast<std::size_t>(pixels));
    for (int pixel = 0; pixel < pixels; ++pixel) {
        const double place = (pixel + 0.5) / ratio - radius;
        const double least = edge(-place, radius) + edge(place - length, radius) - 1;
        darkness.push_back(std::max(least, 0.0));
    }
    return darkness;
}

int pixelsOf(double points, double ratio) {
    return std::max(1, static_cast<int>(std::ceil(points * ratio)));
}

}  // namespace

double edge(double distance, double radius) {
    if (radius <= 0 || distance >= radius) return distance < 0 ? 1 : 0;
    if (distance <= -radius) return 1;
    // A bell curve's sum, with twice its deviation at the radius, and brought to exactly 0 and 1 there.
    constexpr double kRest = 0.02275;
    const double deviation = radius / 2;
    const double sum = 0.5 * std::erfc(distance / deviation / std::numbers::sqrt2);
    return std::clamp((sum - kRest) / (1 - 2 * kRest), 0.0, 1.0);
}

QImage image(QSizeF size, double radius, double opacity, double ratio) {
    const int width = pixelsOf(size.width() + 2 * radius, ratio);
    const int height = pixelsOf(size.height() + 2 * radius, ratio);
    const std::vector<double> across = profile(width, size.width(), radius, ratio);
    const std::vector<double> down = profile(height, size.height(), radius, ratio);
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const double row = down[static_cast<std::size_t>(y)] * opacity * 255;
        for (int x = 0; x < width; ++x) {
            const double alpha = across[static_cast<std::size_t>(x)] * row;
            line[x] = qRgba(0, 0, 0, static_cast<int>(std::lround(alpha)));
        }
    }
    image.setDevicePixelRatio(ratio);
    return image;
}

}  // namespace velmora::SoftShadow
