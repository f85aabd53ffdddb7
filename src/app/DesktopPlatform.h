#pragma once

#include "app/InterfaceScheme.h"
#include "base/Subscription.h"
#include "platform/Platform.h"
#include "platform/qt/desktop/IconThemeName.h"

#include <memory>

namespace velmora {

/// The adapters of a Linux desktop that need no application object. The language override, the toolkit's
/// texts and the status bar come with `addToolkit`.
Platform desktopPlatform();

/// What follows the desktop and the stored choices while the program runs. It must end before `endPlatform`.
struct Toolkit {
    Subscription barChoice;  ///< The status bar follows the stored choice of its place and ink.
    std::unique_ptr<InterfaceScheme> interfaceScheme;
    std::unique_ptr<IconThemeName> iconTheme;  ///< Found out and put to use, once.
};

/// Adds what needs the application object.
[[nodiscard]] Toolkit addToolkit(Platform& platform);

/// Takes away what must not outlive the application object, and puts what is stored on the disk.
void endPlatform(Platform& platform);

}  // namespace velmora
