#pragma once

namespace velmora {

/// What finds and installs newer versions of the program. It keeps its own settings.
class Updater {
public:
    virtual ~Updater() = default;
    /// Looks for a newer version now, and tells the user what it found.
    virtual void checkForUpdates() = 0;
    virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
};

}  // namespace velmora
