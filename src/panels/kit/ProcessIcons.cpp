#include "panels/kit/ProcessIcons.h"

#include "look/Symbol.h"
#include "panels/kit/Series.h"
#include "platform/ProcessIconSource.h"

#include <QFileInfo>
#include <QIcon>
#include <QImageReader>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace velmora {
namespace {

QPixmap themePicture(const QString& name, double ratio) {
    if (!QIcon::hasThemeIcon(name)) return {};
    constexpr QSize kSize(ProcessIcons::kSide, ProcessIcons::kSide);
    return QIcon::fromTheme(name).pixmap(kSize, ratio);
}

/// Null for what is no picture, and for what reading might not end of, such as a device.
QPixmap filePicture(const QString& path, double ratio) {
    if (!QFileInfo(path).isFile()) return {};
    QImageReader reader(path);
    const QSize natural = reader.size();
    if (natural.isEmpty()) return {};
    const int side = static_cast<int>(std::ceil(ProcessIcons::kSide * ratio));
    const QSize fitting = natural.scaled(side, side, Qt::KeepAspectRatio);
    reader.setScaledSize(fitting.expandedTo(QSize(1, 1)));
    const QImage image = reader.read();
    if (image.isNull()) return {};
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QPixmap ownPicture(double ratio) {
    // A middle grey is seen on either ground.
    QImage image = Symbol::image("terminal.fill", ProcessIcons::kSide, Series::gray, ratio);
    if (image.isNull()) {
        image = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
    }
    return QPixmap::fromImage(image);
}

}  // namespace

ProcessIcons::ProcessIcons(ProcessIconSource& source) : m_source(source) {}

QPixmap ProcessIcons::processIcon(std::int32_t pid, double ratio) {
    const double held = std::isfinite(ratio) ? std::clamp(ratio, 1.0, 8.0) : 1;
    const std::optional<std::string> found = m_source.iconOf(pid);
    const QString name = found ? QString::fromStdString(*found) : QString();
    // A hundredth of a pixel more or less is the same picture.
    const QString key = QString::number(std::lround(held * 100)) + u' ' + name;
    if (const auto kept = m_kept.constFind(key); kept != m_kept.constEnd()) return *kept;
    if (m_kept.size() >= kMostKept) m_kept.clear();
    return *m_kept.insert(key, picture(name, held));
}

QPixmap ProcessIcons::picture(const QString& name, double ratio) const {
    QPixmap pixmap;
    if (!name.isEmpty())
        pixmap = name.startsWith(u'/') ? filePicture(name, ratio) : themePicture(name, ratio);
    if (pixmap.isNull()) pixmap = themePicture(QStringLiteral("application-x-executable"), ratio);
    return pixmap.isNull() ? ownPicture(ratio) : pixmap;
}

}  // namespace velmora
