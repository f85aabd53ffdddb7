#include "platform/linux/files/FolderWatch.h"

#include "platform/RunLoop.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

namespace velmora {

FolderWatch::FolderWatch(const std::filesystem::path& folder, RunLoop& runLoop,
                         std::function<void(std::string_view name)> changed)
    : m_events(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)), m_changed(std::move(changed)) {
    constexpr std::uint32_t kEvents = IN_MODIFY | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
    if (!m_events || inotify_add_watch(m_events.get(), folder.c_str(), kEvents) < 0) return;
    m_watch = runLoop.watch(m_events.get(), RunLoop::Readiness::readable, [this] { readEvents(); });
}

void FolderWatch::readEvents() {
    alignas(inotify_event) std::array<char, 4096> buffer;
    const ssize_t length = read(m_events.get(), buffer.data(), buffer.size());
    for (std::size_t offset = 0;
         length > 0 && offset + sizeof(inotify_event) <= static_cast<std::size_t>(length);) {
        // The kernel hands out whole, aligned events.
        const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + offset);
        offset += sizeof(inotify_event) + event->len;
        if (event->len > 0) m_changed(event->name);
    }
}

}  // namespace velmora
