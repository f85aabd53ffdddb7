#include "StyleShots.h"

#include "menubar/MenuBarRenderer.h"
#include "model/ModuleStyle.h"

#include <QPainter>

#include <cmath>

namespace velmora {
namespace {

/// Around an item, in points, as a bar leaves it.
constexpr double kSideMargin = 3;
constexpr double kTopMargin = 2;

QImage onBar(const MenuBarImage& item, const ShotOptions& options) {
    QImage tinted = MenuBarRenderer::tinted(item, options.scheme == ShotOptions::Scheme::dark);
    tinted.setDevicePixelRatio(1);
    const int side = static_cast<int>(std::lround(kSideMargin * options.scale));
    const int top = static_cast<int>(std::lround(kTopMargin * options.scale));
    QImage picture(tinted.width() + 2 * side, tinted.height() + 2 * top, QImage::Format_RGB32);
    picture.fill(backdropOf(options.scheme));
    QPainter painter(&picture);
    painter.drawImage(side, top, tinted);
    return picture;
}

}  // namespace

std::vector<Shot> takeStyleShots(const ShotOptions& options, const StatsSnapshot& snapshot) {
    const auto ink = MenuBarRenderer::Ink::of(options.color, options.scheme == ShotOptions::Scheme::dark);
    const bool squares = options.what == ShotOptions::Kind::squares;
    std::vector<Shot> shots;
    for (const StatsModule module : options.modules) {
        for (const ModuleStyle style : kAllStyles) {
            const MenuBarImage item =
                squares ? MenuBarRenderer::squareImage(style, module, snapshot, ink, options.scale)
                        : MenuBarRenderer::render(style, module, snapshot, ink, options.scale);
            const std::string group(rawValue(module));
            const std::string name = group + "-" + std::string(rawValue(style));
            shots.push_back({squares ? name + "-square" : name, group, onBar(item, options)});
        }
    }
    return shots;
}

}  // namespace velmora
