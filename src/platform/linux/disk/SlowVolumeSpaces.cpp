#include "platform/linux/disk/SlowVolumeSpaces.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <system_error>
#include <thread>
#include <utility>

namespace velmora {

/// Shared with the thread that asks, which writes the answer and then says so.
struct SlowVolumeSpaces::Question {
    std::optional<VolumeSpace> answer;
    std::atomic<bool> isAnswered = false;
};

SlowVolumeSpaces::SlowVolumeSpaces(Ask ask, StartThread startThread)
    : m_ask(std::move(ask)), m_startThread(std::move(startThread)) {}

void SlowVolumeSpaces::refresh(const std::vector<Mount>& mounts) {
    std::erase_if(m_known,
                  [&](const Known& known) { return std::ranges::find(mounts, known.mount) == mounts.end(); });
    for (const Mount& mount : mounts) {
        if (std::ranges::find(m_known, mount, &Known::mount) == m_known.end()) {
            Known fresh;
            fresh.mount = mount;
            m_known.push_back(std::move(fresh));
        }
    }
    for (Known& known : m_known) takeAnswer(known);
    for (Known& known : m_known) ask(known);
}

std::optional<VolumeSpace> SlowVolumeSpaces::spaceOf(const std::string& mountPoint) const {
    constexpr int kOldest = 3;
    const auto known = std::ranges::find_if(
        m_known, [&](const Known& candidate) { return candidate.mount.mountPoint == mountPoint; });
    if (known == m_known.end() || known->age > kOldest) return std::nullopt;
    return known->last;
}

bool SlowVolumeSpaces::startDetachedThread(std::function<void()> work) {
    try {
        std::thread(std::move(work)).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void SlowVolumeSpaces::takeAnswer(Known& known) {
    if (known.open && known.open->isAnswered.load(std::memory_order_acquire)) {
        known.last = known.open->answer;
        known.age = 0;
        known.open.reset();
    } else if (known.last) {
        ++known.age;
    }
}

void SlowVolumeSpaces::ask(Known& known) {
    // Dead servers may be many, and each holds a thread.
    constexpr std::ptrdiff_t kMostOpen = 32;
    const auto open =
        std::ranges::count_if(m_known, [](const Known& other) { return other.open != nullptr; });
    if (known.open || open >= kMostOpen) return;
    auto question = std::make_shared<Question>();
    const bool isAsked = m_startThread([ask = m_ask, mountPoint = known.mount.mountPoint, question] {
        question->answer = ask(mountPoint);
        question->isAnswered.store(true, std::memory_order_release);
    });
    if (isAsked) known.open = std::move(question);
}

}  // namespace velmora
