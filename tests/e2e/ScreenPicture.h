#pragma once

#include "PrivateSession.h"

#include <QImage>
#include <QRect>

namespace velmora {

/// Starts a window manager and waits until it manages the screen; throws if it does not come up.
void startWindowManager(PrivateSession& session);

/// What the session's screen shows now.
QImage screenPicture(const PrivateSession& session);
/// How many pixels of the area are clearly red, those at the edges of shapes included.
int reddishPixels(const QImage& picture, const QRect& area);

/// A window of the program as the X server and the window manager know it.
struct ShownWindow {
    QString id;
    QRect geometry;
};
/// The program's dock window; without an id while none is shown.
ShownWindow dockWindow(const PrivateSession& session);
/// The numbers of a property of a window, or of the root window for an empty id.
QList<int> windowNumbers(const PrivateSession& session, const QString& id, const QString& property);

}  // namespace velmora
