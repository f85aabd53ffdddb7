#include "platform/linux/desktop/LinuxSystemLog.h"

#include "base/FormatText.h"
#include "platform/Clock.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>

namespace velmora {
namespace {

constexpr std::string_view kCategory = "velmora";

/// A service's or desktop entry's standard error often is the journal already; `JOURNAL_STREAM` then names
/// it.
bool standardErrorIsTheJournal() {
    const char* stream = std::getenv("JOURNAL_STREAM");
    struct stat status {};
    if (stream == nullptr || ::fstat(STDERR_FILENO, &status) != 0) return false;
    return formatText("%u:%u", {std::uint64_t{status.st_dev}, std::uint64_t{status.st_ino}}) == stream;
}

iovec piece(std::string_view text) {
    return {const_cast<char*>(text.data()), text.size()};
}

/// One call, so that the lines of two threads or processes do not mix.
void writeToStandardError(std::string_view line) {
    const std::array pieces = {piece(line), piece("\n")};
    // Nobody to tell if nobody listens.
    if (::writev(STDERR_FILENO, pieces.data(), static_cast<int>(pieces.size())) < 0) return;
}

}  // namespace

struct LinuxSystemLog::Journal {
    using Send = int (*)(const iovec*, int);

    static std::unique_ptr<Journal> find() {
        void* library = ::dlopen("libsystemd.so.0", RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) return nullptr;
        const auto send = reinterpret_cast<Send>(::dlsym(library, "sd_journal_sendv"));
        if (send == nullptr) {
            ::dlclose(library);
            return nullptr;
        }
        return std::make_unique<Journal>(Journal{send});
    }

    void write(std::string_view line) const {
        const std::string message = formatText("MESSAGE=%s", {line});
        const std::array fields = {piece(message), piece("SYSLOG_IDENTIFIER=velmora"), piece("PRIORITY=5")};
        send(fields.data(), static_cast<int>(fields.size()));
    }

    // The library stays loaded: threads may still log while the process ends.
    Send send;
};

LinuxSystemLog::LinuxSystemLog(const Clock& clock)
    : m_clock(clock),
      m_journal(Journal::find()),
      m_writesToStandardError(!m_journal || !standardErrorIsTheJournal()) {}

LinuxSystemLog::~LinuxSystemLog() = default;

void LinuxSystemLog::write(std::string_view line) {
    write(kCategory, line);
}

void LinuxSystemLog::write(std::string_view category, std::string_view line) {
    m_ring.append(m_clock.now(), category, line);
    if (m_writesToStandardError) writeToStandardError(line);
    if (m_journal) m_journal->write(line);
}

}  // namespace velmora
