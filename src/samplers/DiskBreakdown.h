#pragma once

#include "base/Date.h"
#include "base/LifeGuard.h"

#include <cstdint>
#include <map>
#include <optional>
#include <stop_token>
#include <string>

namespace velmora {

class Clock;
class Defaults;
class DiskPlaceSource;
class RunLoop;
class WorkQueue;

/// How many bytes lie in a few well-known places. Looking takes seconds to minutes, so it happens on a queue,
/// at most every 30 minutes, and the last result is kept across runs. Main thread only.
class DiskBreakdown {
public:
    /// Bytes by place: "docs", "apps", "icloud", "system" and "trash".
    using Parts = std::map<std::string, std::int64_t>;

    /// The queue should be the breakdown's own: a walk holds it for long. It must end before the run loop and
    /// the source do, and after this object.
    DiskBreakdown(DiskPlaceSource& places, Defaults& defaults, const Clock& clock, WorkQueue& queue,
                  RunLoop& loop);
    DiskBreakdown(const DiskBreakdown&) = delete;
    DiskBreakdown& operator=(const DiskBreakdown&) = delete;
    /// Ends a walk early.
    ~DiskBreakdown();

    /// The last known result, which may be old, at once; nothing if there never was one. Has a new one made
    /// if it is too old.
    std::optional<Parts> parts();
    /// Has the places measured and the result stored, unless that is going on already.
    void scan();

private:
    struct Result {
        Date at;
        Parts parts;
    };

    std::optional<Result> storedResult() const;
    void store(Parts parts);

    DiskPlaceSource& m_places;
    Defaults& m_defaults;
    const Clock& m_clock;
    WorkQueue& m_queue;
    RunLoop& m_loop;
    std::optional<Result> m_cache;
    bool m_scanning = false;  ///< A scan is queued or running.
    std::stop_source m_stop;
    LifeGuard m_life;
};

}  // namespace velmora
