#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

namespace velmora {

/// Counts how often a shown widget paints itself.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& widget) {
        widget.installEventFilter(this);
        // What showing it asks for is over before the count begins.
        for (int before = -1; before != m_count;) {
            before = m_count;
            QApplication::processEvents();
        }
        m_count = 0;
    }

    /// After everything that was asked for until now.
    int count() const {
        QApplication::processEvents();
        return m_count;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++m_count;
        return false;
    }

private:
    int m_count = 0;
};

}  // namespace velmora
