#pragma once

#include <optional>
#include <string>

/// What must be known of the session before the toolkit starts, which ends the process where it finds no
/// display.
namespace velmora::SessionCheck {

/// Chooses the windowing backend: under Wayland the X11 one where there is an X server for it, since a window
/// cannot place itself otherwise, else that of Wayland. The user's own choice stands. To be called before
/// `displayProblem`.
void chooseWindowingBackend();

/// Why nothing can be shown here; nothing if the display answers.
std::optional<std::string> displayProblem();

}  // namespace velmora::SessionCheck
