#pragma once

namespace velmora {

/// While it lives, the calling thread reads disks only when nobody else wants to (ioprio_set(2)).
class IdlePriority {
public:
    IdlePriority();
    IdlePriority(const IdlePriority&) = delete;
    IdlePriority& operator=(const IdlePriority&) = delete;
    /// On the thread that made it.
    ~IdlePriority();

private:
    int m_previous = -1;
};

}  // namespace velmora
