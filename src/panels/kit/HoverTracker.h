#pragma once

#include <QObject>
#include <QPointF>

#include <functional>
#include <optional>

class QWidget;

namespace velmora {

/// Tells where the pointer is in a widget, also while its window is not the active one.
class HoverTracker final : public QObject {
public:
    /// `tracked` owns the tracker.
    explicit HoverTracker(QWidget& tracked);

    /// The pointer's place in the widget when it enters and moves; nothing when it leaves.
    std::function<void(std::optional<QPointF>)> onMove;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void report(std::optional<QPointF> place) const;
};

}  // namespace velmora
