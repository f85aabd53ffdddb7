#pragma once

#include "panels/kit/Views.h"
#include "platform/ProcessIconSource.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QWidget>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

class FakeProcessIconSource final : public ProcessIconSource {
public:
    std::optional<std::string> iconOf(std::int32_t pid) override {
        ++questions;
        const auto found = icons.find(pid);
        return found == icons.end() ? std::nullopt : std::optional(found->second);
    }

    std::map<std::int32_t, std::string> icons;
    int questions = 0;
};

/// What a widget paints, on a transparent ground.
inline QImage pictureOf(QWidget& widget, double ratio = 1) {
    if (widget.size().isEmpty()) return {};
    QImage picture((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    widget.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture;
}

inline bool isEmpty(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) != 0) return false;
        }
    }
    return true;
}

inline void movePointer(QWidget& widget, QPointF to) {
    QMouseEvent event(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void leave(QWidget& widget) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&widget, &event);
}

/// Counts how often a widget is painted.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
};

inline std::vector<double> repeated(double value, int count) {
    return std::vector<double>(static_cast<std::size_t>(count), value);
}

}  // namespace velmora
