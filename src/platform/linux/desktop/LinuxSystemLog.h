#pragma once

#include "platform/SystemLog.h"
#include "platform/linux/desktop/LogRing.h"

#include <memory>

namespace velmora {

class Clock;

/// Writes each line to standard error, to the journal where there is one (as identifier "velmora"), and into
/// a ring that the process can read back.
class LinuxSystemLog final : public SystemLog {
public:
    /// Finds the journal's library at run time, so a system without it needs none.
    explicit LinuxSystemLog(const Clock& clock);
    ~LinuxSystemLog() override;
    LinuxSystemLog(const LinuxSystemLog&) = delete;
    LinuxSystemLog& operator=(const LinuxSystemLog&) = delete;

    void write(std::string_view line) override;
    /// The same for a line of another part of the process, such as the toolkit.
    void write(std::string_view category, std::string_view line);

    const LogRing& ring() const { return m_ring; }

private:
    struct Journal;

    const Clock& m_clock;
    LogRing m_ring;
    std::unique_ptr<Journal> m_journal;
    bool m_writesToStandardError;
};

}  // namespace velmora
