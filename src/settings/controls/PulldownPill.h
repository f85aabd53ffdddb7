#pragma once

#include "settings/controls/SettingsButton.h"

#include <QRectF>
#include <QString>

#include <functional>

namespace velmora {

/// A soft rounded field with a title and a chevron; pressing it calls the action.
class PulldownPill final : public SettingsButton {
    // The accessible interface is found by the class name.
    Q_OBJECT
public:
    struct Places {
        QRectF label;
        QRectF chevron;
    };
    /// Where title and chevron stand in a pill of this size; an empty label where there is no room for one.
    static Places places(QSizeF size);

    PulldownPill(const QString& title, std::function<void()> action, QWidget* parent = nullptr);

    /// The title: one line in the middle, cut at its end where it is too long.
    QString label() const { return m_label; }
    void setLabel(const QString& label);

    /// Whether a press at this point, in the parent's coordinates, reaches the pill. One that is hidden, or
    /// whose opacity effect makes it invisible, takes none.
    bool hitTest(QPoint pointInParent) const;

    QSize sizeHint() const override;

protected:
    bool hitButton(const QPoint& point) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_label;
};

}  // namespace velmora
