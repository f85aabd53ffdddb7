#pragma once

#include "platform/StatusBar.h"

#include <QColor>
#include <QWidget>

#include <functional>

namespace velmora {

/// One item of the strip: an image between two margins.
class StripCell final : public QWidget {
    Q_OBJECT
public:
    StripCell(QWidget* parent, const StatusItem& item);

    const StatusItem& item() const { return m_item; }
    void setItem(const StatusItem& item);

    enum class ImageChange { none, pixels, width };
    /// Equal pixels change nothing and cost no repaint.
    ImageChange setImage(const ItemImage& image);
    const ItemImage& image() const { return m_image; }
    bool hasImage() const { return m_hasImage; }
    /// In logical coordinates; a cell that has no image yet is as wide as an icon.
    int imageWidth() const;

    void setBackdrop(const QColor& backdrop);

    /// Whether the cell is shown as the one under the pointer.
    bool isHovered() const { return m_hovered; }
    void setHovered(bool hovered);

    /// The cell was clicked, with any button.
    std::function<void(StripCell&)> pressed;

    bool eventFilter(QObject* popup, QEvent* event) override;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const ItemPixels* pixelsFor(double ratio) const;

    StatusItem m_item;
    ItemImage m_image;
    bool m_hasImage = false;
    QColor m_backdrop;
    bool m_hovered = false;
};

}  // namespace velmora
