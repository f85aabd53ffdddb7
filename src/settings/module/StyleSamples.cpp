#include "settings/module/StyleSamples.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora::StyleSamples {
namespace {

/// The top of a picture in the middle of a higher one, a whole number of points.
double middleOffset(double height, double available) {
    return std::round((available - height) / 2);
}

MenuBarImage onCanvas(const MenuBarImage& sample, const QSize& pixels, double ratio, double height) {
    QImage canvas(pixels, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    if (!sample.image.isNull()) {
        QImage drawing = sample.image;
        const double offset = middleOffset(drawing.deviceIndependentSize().height(), height);
        drawing.setDevicePixelRatio(1);
        QPainter painter(&canvas);
        painter.drawImage(0, static_cast<int>(std::lround(offset * ratio)), drawing);
    }
    canvas.setDevicePixelRatio(ratio);
    return {canvas, sample.isTemplate};
}

}  // namespace

std::map<std::string, MenuBarImage> uniformSize(const std::map<std::string, MenuBarImage>& samples) {
    QSize pixels(0, 0);
    double height = 0;
    double ratio = 1;
    for (const auto& [style, sample] : samples) {
        if (sample.image.isNull()) continue;
        pixels = pixels.expandedTo(sample.image.size());
        height = std::max(height, sample.image.deviceIndependentSize().height());
        ratio = sample.image.devicePixelRatio();
    }
    std::map<std::string, MenuBarImage> uniform;
    if (pixels.isEmpty()) return uniform;
    for (const auto& [style, sample] : samples) {
        uniform.emplace(style, onCanvas(sample, pixels, ratio, height));
    }
    return uniform;
}

std::map<std::string, MenuBarImage> ofModule(StatsModule module, const StatsSnapshot& snapshot,
                                             const MenuBarRenderer::Ink& ink, double ratio) {
    std::map<std::string, MenuBarImage> samples;
    for (const ModuleStyle style : kAllStyles) {
        samples.emplace(rawValue(style), MenuBarRenderer::render(style, module, snapshot, ink, ratio));
    }
    return uniformSize(samples);
}

}  // namespace velmora::StyleSamples
