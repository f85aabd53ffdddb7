#pragma once

#include <QIcon>
#include <QRectF>

class QPainter;

/// The program's icon: its artwork within a transparent margin, as desktops expect of an icon. The artwork is
/// a rounded square with corners of `kCornerOverArtwork` of its side. For the main thread only.
namespace velmora::ApplicationIcon {

/// The whole picture's side over its artwork's.
inline constexpr double kPictureOverArtwork = 128.0 / 103.0;
inline constexpr double kCornerOverArtwork = 0.225;

/// Draws the icon so that its artwork fills `box`, or the largest square in its middle, moved to whole
/// pixels; the margin falls outside. Nothing for a box without room for a pixel.
void paintArtwork(QPainter& painter, const QRectF& box);

/// For windows and task lists: 16 to 256 pixels. Draws each size anew at every call.
QIcon icon();

}  // namespace velmora::ApplicationIcon
