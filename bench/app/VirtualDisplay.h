#pragma once

#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

// Programs on a virtual display of a benchmark's own, seen from outside.

namespace velmora {

/// A process that ends with this object.
class Child {
public:
    template <typename Prepare>
    Child(const char* program, std::initializer_list<const char*> arguments, Prepare prepare)
        : m_pid(::fork()) {
        if (m_pid != 0) return;
        prepare();
        std::array<char*, 12> words{const_cast<char*>(program)};
        std::size_t count = 1;
        for (const char* argument : arguments) words[count++] = const_cast<char*>(argument);
        ::execvp(program, words.data());
        ::_exit(127);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        ::kill(m_pid, SIGTERM);
        ::waitpid(m_pid, nullptr, 0);
    }

private:
    pid_t m_pid;
};

inline void silence() {
    const int nothing = ::open("/dev/null", O_WRONLY);
    ::dup2(nothing, STDERR_FILENO);
}

/// A virtual display; its name once it is ready.
class VirtualDisplay {
public:
    VirtualDisplay() : m_server(makeServer()) {
        std::array<char, 16> number{};
        if (::read(m_pipe[0], number.data(), number.size() - 1) > 0)
            m_name = ":" + std::to_string(std::atoi(number.data()));
    }
    const std::string& name() const { return m_name; }

private:
    Child makeServer() {
        if (::pipe(m_pipe.data()) != 0) std::abort();
        return Child("Xvfb", {"-displayfd", "3", "-screen", "0", "1280x720x24", "-nolisten", "tcp"}, [this] {
            ::dup2(m_pipe[1], 3);
            silence();
        });
    }
    std::array<int, 2> m_pipe{-1, -1};
    Child m_server;
    std::string m_name;
};

/// The windows that are shown on a virtual display, in the order in which they appear.
class DisplayWatch {
public:
    explicit DisplayWatch(const VirtualDisplay& display);
    DisplayWatch(const DisplayWatch&) = delete;
    DisplayWatch& operator=(const DisplayWatch&) = delete;
    ~DisplayWatch();

    /// The next window that is shown; none after ten seconds.
    xcb_window_t nextShown();
    /// Waits until the window is hidden or destroyed; false after ten seconds.
    bool waitUntilHidden(xcb_window_t window);

    /// A click of the left button at the given point of the window, as the server would tell of it.
    void click(xcb_window_t window, int x, int y);
    /// Waits until the window shows, at the given point of its own, one of two colours (0xRRGGBB): it was
    /// painted. False after ten seconds.
    bool waitUntilPainted(xcb_window_t window, int x, int y, std::uint32_t color, std::uint32_t otherColor);

private:
    template <typename Match>
    xcb_window_t next(Match match);

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
};

/// The optimised program under an executable name and in a home of its own, so that no other copy is ended;
/// its files go with this object.
class ProgramCopy {
public:
    ProgramCopy();
    ProgramCopy(const ProgramCopy&) = delete;
    ProgramCopy& operator=(const ProgramCopy&) = delete;
    ~ProgramCopy();

    const std::string& path() const { return m_path; }
    /// In the child, before the program starts there: on that display, without a session bus.
    void prepare(const VirtualDisplay& display) const;

private:
    std::filesystem::path m_home;
    std::string m_path;
};

}  // namespace velmora
