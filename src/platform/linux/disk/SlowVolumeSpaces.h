#pragma once

#include "platform/linux/disk/DeviceNumber.h"
#include "platform/linux/disk/VolumeSpace.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The space of mounts that may keep an asker waiting, for ever if their server is dead. Each question is
/// asked on a thread of its own that nobody waits for, so that a mount which never answers costs only its own
/// figures, and the end of the program does not wait for it either. No mount is asked again before it has
/// answered.
class SlowVolumeSpaces {
public:
    using Ask = std::function<std::optional<VolumeSpace>(const std::string& mountPoint)>;
    /// Runs the work on another thread and returns at once; false if there can be no thread.
    using StartThread = std::function<bool(std::function<void()> work)>;

    explicit SlowVolumeSpaces(Ask ask = volumeSpace, StartThread startThread = startDetachedThread);

    /// A mount is another one when another device is mounted on the same folder.
    struct Mount {
        std::string mountPoint;
        DeviceNumber device;
        friend bool operator==(const Mount&, const Mount&) = default;
    };

    /// Takes in the answers that have come, and asks all these mounts anew. What is known of others is
    /// forgotten.
    void refresh(const std::vector<Mount>& mounts);
    /// The last answer, if it is no more than three refreshes old; nothing too if the mount answered with a
    /// failure, or never.
    std::optional<VolumeSpace> spaceOf(const std::string& mountPoint) const;

    static bool startDetachedThread(std::function<void()> work);

private:
    struct Question;
    struct Known {
        Mount mount;
        std::shared_ptr<Question> open;  ///< Null while no question is open.
        std::optional<VolumeSpace> last;
        int age = 0;  ///< Refreshes since the last answer.
    };

    void takeAnswer(Known& known);
    void ask(Known& known);

    Ask m_ask;
    StartThread m_startThread;
    std::vector<Known> m_known;
};

}  // namespace velmora
