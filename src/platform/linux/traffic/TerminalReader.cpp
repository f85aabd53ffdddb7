#include "platform/linux/traffic/TerminalReader.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace velmora {

TerminalReader::TerminalReader(FileDescriptor master, RunLoop& runLoop)
    : m_master(std::move(master)), m_runLoop(runLoop) {}

void TerminalReader::setReadabilityHandler(Handler handler) {
    m_watch.reset();
    m_handler = std::move(handler);
    if (m_handler && m_master)
        m_watch = m_runLoop.watch(m_master.get(), RunLoop::Readiness::readable, [this] { read(); });
}

void TerminalReader::close() {
    m_watch.reset();
    m_master.reset();
    m_pending.clear();
}

void TerminalReader::read() {
    // No more than this at once: a writer that never pauses must not hold up the main thread.
    constexpr int kMostReads = 16;
    std::array<char, 4096> block{};
    bool hasEnded = false;
    for (int reads = 0; reads < kMostReads; ++reads) {
        const ssize_t length = ::read(m_master.get(), block.data(), block.size());
        if (length < 0 && errno == EINTR) continue;
        if (length < 0 && errno == EAGAIN) break;
        // The master answers EIO once nobody has the other side open any more.
        if (length <= 0) {
            hasEnded = true;
            break;
        }
        m_pending.append(block.data(), static_cast<std::size_t>(length));
    }
    const std::size_t unfinished = hasEnded ? 0 : unfinishedCharacterLength(m_pending);
    const std::string_view whole = std::string_view(m_pending).substr(0, m_pending.size() - unfinished);
    const Handler handler = m_handler;  // It may clear itself.
    if (!whole.empty() && handler) {
        const std::string chunk(whole);
        m_pending.erase(0, whole.size());
        handler(chunk);
    }
    if (hasEnded) end();
}

void TerminalReader::end() {
    // A terminal that has ended is readable for ever.
    m_watch.reset();
    const Handler handler = m_handler;
    if (handler) handler({});
}

std::size_t unfinishedCharacterLength(std::string_view text) {
    constexpr std::size_t kLongest = 4;
    for (std::size_t length = 1; length < kLongest && length <= text.size(); ++length) {
        const auto byte = static_cast<unsigned char>(text[text.size() - length]);
        if ((byte & 0xC0u) == 0x80u) continue;
        const std::size_t wanted = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        return wanted > length ? length : 0;
    }
    return 0;
}

}  // namespace velmora
