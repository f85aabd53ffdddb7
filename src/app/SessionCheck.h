#pragma once

#include <memory>
#include <optional>
#include <string>

struct xcb_connection_t;

/// What must be known of the session before the toolkit starts, which ends the process where it finds no
/// display.
namespace velmora::SessionCheck {

/// Chooses the windowing backend: under Wayland the X11 one where there is an X server for it, since a window
/// cannot place itself otherwise, else that of Wayland. The user's own choice stands. To be called before
/// `DisplayCheck` is made.
void chooseWindowingBackend();

/// Asks the display once, when it is made. To be kept until the toolkit has a connection of its own: an X
/// server that loses its last client starts afresh and turns away who comes meanwhile.
class DisplayCheck {
public:
    DisplayCheck();

    /// Why nothing can be shown here; nothing if the display answers.
    const std::optional<std::string>& problem() const { return m_problem; }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };

    bool xServerAnswers();
    std::optional<std::string> ask();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::optional<std::string> m_problem;
};

}  // namespace velmora::SessionCheck
