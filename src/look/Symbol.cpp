#include "look/Symbol.h"

#include "look/PictureCache.h"
#include "look/PixelSquare.h"

#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>

/// Ties the drawings to this object: the linker would otherwise leave them in the library. Stands outside
/// every namespace because the macro declares a function.
static void loadDrawings() {
    Q_INIT_RESOURCE(pictures);
}

namespace velmora::Symbol {
namespace {

constexpr auto kNames = std::to_array<std::string_view>({
    "apple.terminal",
    "arrow.clockwise",
    "arrow.up.arrow.down",
    "battery.100percent.bolt",
    "battery.75percent",
    "bell",
    "chart.bar.xaxis",
    "checkmark",
    "chevron.down",
    "cpu.fill",
    "cursorarrow.click",
    "doc.text",
    "envelope",
    "exclamationmark.triangle",
    "gauge.with.dots.needle.67percent",
    "gearshape.fill",
    "globe",
    "hand.raised",
    "info.circle.fill",
    "internaldrive",
    "internaldrive.fill",
    "key",
    "location.circle",
    "lock",
    "memorychip.fill",
    "person.crop.circle.fill",
    "slider.horizontal.3",
    "sparkles",
    "terminal.fill",
    "thermometer.medium",
    "trash",
    "waveform.path.ecg",
    "wifi",
});
static_assert(std::ranges::is_sorted(kNames));

/// Some hundred symbols of 13 points at two pixels to the point; all of them in one colour need a tenth.
constexpr qsizetype kCacheBytes = 1 << 20;

std::optional<std::size_t> indexOf(std::string_view name) {
    const auto found = std::ranges::lower_bound(kNames, name);
    if (found == kNames.end() || *found != name) return {};
    return static_cast<std::size_t>(std::distance(kNames.begin(), found));
}

QSvgRenderer& drawing(std::size_t index) {
    static std::array<std::unique_ptr<QSvgRenderer>, kNames.size()> drawings;
    std::unique_ptr<QSvgRenderer>& drawing = drawings.at(index);
    if (!drawing) {
        loadDrawings();
        const std::string_view name = kNames.at(index);
        const QString file = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
        drawing = std::make_unique<QSvgRenderer>(QStringLiteral(":/symbols/%1.svg").arg(file));
    }
    return *drawing;
}

/// Turns black ink into `color` and drops white.
void tint(QImage& picture, const QColor& color) {
    const QRgb ink = qPremultiply(color.rgba());
    const auto part = [](int channel, int coverage) { return (channel * coverage + 127) / 255; };
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            // Colours are premultiplied here: black adds to the alpha alone, white equally to both.
            const int coverage = std::max(0, qAlpha(line[x]) - qRed(line[x]));
            line[x] = qRgba(part(qRed(ink), coverage), part(qGreen(ink), coverage),
                            part(qBlue(ink), coverage), part(qAlpha(ink), coverage));
        }
    }
}

QImage picture(std::size_t index, int pixels, const QColor& color) {
    static PictureCache cache(kCacheBytes);
    const PictureCache::Key key{index, pixels, color.rgba()};
    if (QImage kept = cache.find(key); !kept.isNull()) return kept;

    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing(index).render(&painter, QRectF(picture.rect()));
    painter.end();
    tint(picture, color);
    cache.insert(key, picture);
    return picture;
}

}  // namespace

bool exists(std::string_view name) {
    return indexOf(name).has_value();
}

std::vector<std::string_view> names() {
    return {kNames.begin(), kNames.end()};
}

void paint(QPainter& painter, std::string_view name, const QRectF& box, const QColor& color) {
    const std::optional<std::size_t> index = indexOf(name);
    if (!index || !color.isValid()) return;
    if (const auto square = PixelSquare::within(box, painter))
        square->draw(painter, picture(*index, square->pixels, color));
}

QImage image(std::string_view name, double points, const QColor& color, double ratio) {
    const std::optional<std::size_t> index = indexOf(name);
    const double pixels = std::round(points * ratio);
    const bool hasRoom = points > 0 && ratio > 0 && pixels >= 1 && pixels <= PixelSquare::kMostPixels;
    if (!index || !color.isValid() || !hasRoom) return {};
    QImage image = picture(*index, static_cast<int>(pixels), color);
    image.setDevicePixelRatio(ratio);
    return image;
}

}  // namespace velmora::Symbol
