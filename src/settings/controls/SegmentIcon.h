#pragma once

#include <QAbstractButton>
#include <QImage>

namespace velmora {

/// One icon of a segmented control: a template image in one colour. It takes no clicks of its own; screen
/// readers find it as one choice of several.
class SegmentIcon final : public QAbstractButton {
public:
    SegmentIcon(const QImage& image, const QString& tooltip, QWidget* parent);

    /// The image's size in points; empty without one.
    QSizeF imageSize() const;

protected:
    void nextCheckState() override {}  // The control decides what is selected.
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
};

}  // namespace velmora
