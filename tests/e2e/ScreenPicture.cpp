#include "ScreenPicture.h"

#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

namespace velmora {

void startWindowManager(PrivateSession& session) {
    constexpr int kAttempts = 3;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const QProcess& manager = session.start("xfwm4", {"--compositor=off"});
        const auto manages = [&] { return !windowNumbers(session, {}, "_NET_WORKAREA").isEmpty(); };
        waitUntil([&] { return manages() || manager.state() == QProcess::NotRunning; });
        if (manages()) return;
    }
    throw std::runtime_error("no window manager came up");
}

QImage screenPicture(const PrivateSession& session) {
    QImage picture;
    picture.loadFromData(session.output("import", {"-silent", "-window", "root", "png:-"}), "PNG");
    return picture.convertToFormat(QImage::Format_RGB32);
}

int reddishPixels(const QImage& picture, const QRect& area) {
    constexpr int kLeastExcess = 100;
    int count = 0;
    const QRect inside = area.intersected(picture.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qRed(pixel) - std::max(qGreen(pixel), qBlue(pixel)) > kLeastExcess) ++count;
        }
    }
    return count;
}

ShownWindow dockWindow(const PrivateSession& session) {
    const QString tree = QString::fromUtf8(session.output("xwininfo", {"-root", "-tree"}));
    static const QRegularExpression line(
        R"((0x[0-9a-f]+) .*\s(\d+)x(\d+)\+-?\d+\+-?\d+\s+\+(-?\d+)\+(-?\d+))");
    auto matches = line.globalMatch(tree);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const QString id = match.captured(1);
        const QByteArray type = session.output("xprop", {"-id", id, "_NET_WM_WINDOW_TYPE"});
        const QByteArray owner = session.output("xprop", {"-id", id, "_NET_WM_NAME", "WM_CLASS"});
        if (!type.contains("_NET_WM_WINDOW_TYPE_DOCK") || !owner.toLower().contains("velmora")) continue;
        // A window has another size until it is shown.
        if (!session.output("xwininfo", {"-id", id}).contains("IsViewable")) continue;
        return {id, QRect(match.captured(4).toInt(), match.captured(5).toInt(), match.captured(2).toInt(),
                          match.captured(3).toInt())};
    }
    return {};
}

QList<int> windowNumbers(const PrivateSession& session, const QString& id, const QString& property) {
    const QStringList window = id.isEmpty() ? QStringList{"-root"} : QStringList{"-id", id};
    const QString text =
        QString::fromUtf8(session.output("xprop", window + QStringList{"-notype", property}));
    QList<int> numbers;
    for (const QString& word : text.section('=', 1).split(',')) {
        bool isNumber = false;
        const int number = word.trimmed().toInt(&isNumber);
        if (isNumber) numbers.append(number);
    }
    return numbers;
}

}  // namespace velmora
