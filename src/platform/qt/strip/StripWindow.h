#pragma once

#include "platform/StatusBar.h"
#include "platform/qt/x11/DockProperties.h"

#include <QColor>
#include <QMetaObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QScreen;

namespace velmora {

class StripCell;

/// The strip at the top edge of the primary screen: a dock that reserves its room, or an unmanaged window
/// inside the desktop's top bar. It is shown while it has items, once each has its image, and follows the
/// screen.
class StripWindow final : public QWidget {
public:
    enum class Kind { dock, topBar };
    explicit StripWindow(Kind kind);
    ~StripWindow() override;

    void setItems(const std::vector<StatusItem>& items);
    void setImage(const std::string& id, const ItemImage& image);
    void setBackdrop(const QColor& backdrop);
    /// Nothing while the item is not shown.
    std::optional<Anchor> placeOf(const std::string& id) const;

    /// An item was clicked; the anchor is its cell.
    std::function<void(const StatusItem& item, const Anchor& anchor)> pressed;
    /// The strip's pixel ratio may be another one now.
    std::function<void()> ratioChanged;

protected:
    void leaveEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void followScreen();
    void place();
    void declareDock();
    QRect wantedGeometry(int stripWidth) const;
    void reserve();

    Kind m_kind;
    QColor m_backdrop = Qt::black;
    std::vector<StripCell*> m_cells;
    std::optional<DockProperties> m_properties;  // Docks only.
    std::optional<Strut> m_strut;
    QRect m_asked;
    std::optional<int> m_forcedY;  // Where the window manager put the dock instead.
    QPointer<QScreen> m_screen;
    std::vector<QMetaObject::Connection> m_screenConnections;
};

}  // namespace velmora
