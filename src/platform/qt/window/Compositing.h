#pragma once

#include "platform/qt/session/Session.h"

namespace velmora {

/// Whether a window may have transparent parts. On a plain X server it takes a compositing manager, which the
/// user may start and end at any time; without one what is transparent shows as black. Asks the X server and
/// waits for its answer.
bool isComposited(Session::WindowSystem windows);

}  // namespace velmora
