#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace velmora {

/// Where the system's files hang: "/" for the running system, or a folder that holds a captured `proc` and
/// `sys`.
class SystemRoot {
public:
    SystemRoot() : SystemRoot("/") {}
    explicit SystemRoot(std::string path) : m_path(std::move(path)) {
        if (!m_path.ends_with('/')) m_path.push_back('/');
    }

    /// The path of "proc/stat" and the like, which has no slash in front.
    std::string path(std::string_view relative) const {
        std::string path = m_path;
        path += relative;
        return path;
    }
    /// A captured tree is read alone: calls that ask the running kernel do not go with it.
    bool isRunningSystem() const { return m_path == "/"; }

    friend bool operator==(const SystemRoot&, const SystemRoot&) = default;

private:
    std::string m_path;  ///< With a slash at the end.
};

}  // namespace velmora
