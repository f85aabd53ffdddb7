#include "platform/linux/loop/HeadlessRunLoop.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace velmora {
namespace {

/// A period of nothing would keep the thread busy.
constexpr double kShortestPeriod = 0.001;
/// Some thirty years; a longer time overflows the kernel's counter.
constexpr double kLongestTime = 1e9;

timespec timeOf(double seconds) {
    if (!(seconds > 0)) return {};
    const double held = std::min(seconds, kLongestTime);
    const double whole = std::floor(held);
    return {static_cast<time_t>(whole), std::min(static_cast<long>((held - whole) * 1e9), 999'999'999L)};
}

std::uint32_t eventsOf(RunLoop::Readiness readiness) {
    switch (readiness) {
        case RunLoop::Readiness::readable:
            return EPOLLIN;
        case RunLoop::Readiness::writable:
            return EPOLLOUT;
        case RunLoop::Readiness::exceptional:
            return EPOLLPRI;
    }
    return 0;
}

/// Takes what made an event or timer descriptor readable out of it; false if there was nothing.
bool drain(int descriptor) {
    std::uint64_t count = 0;
    return ::read(descriptor, &count, sizeof count) == static_cast<ssize_t>(sizeof count);
}

}  // namespace

HeadlessRunLoop::HeadlessRunLoop() : m_epoll(::epoll_create1(EPOLL_CLOEXEC)) {
    auto wakeUp = std::make_shared<Watched>();
    wakeUp->descriptor = FileDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    wakeUp->kind = Watched::Kind::wakeUp;
    m_wakeUp = wakeUp->descriptor.get();
    m_wakeUpWatch = add(std::move(wakeUp), EPOLLIN);
}

HeadlessRunLoop::~HeadlessRunLoop() = default;

void HeadlessRunLoop::post(std::function<void()> task) {
    const std::lock_guard lock(m_postedMutex);
    m_posted.push_back(std::move(task));
    // Only a counter at its end can refuse, and then the loop is awake anyway.
    ::eventfd_write(m_wakeUp, 1);
}

Subscription HeadlessRunLoop::after(double seconds, std::function<void()> task) {
    return addTimer(seconds, 0, std::move(task));
}

Subscription HeadlessRunLoop::every(double seconds, std::function<void()> task) {
    // In this order also for what is not a number.
    const double period = std::max(kShortestPeriod, seconds);
    return addTimer(period, period, std::move(task));
}

Subscription HeadlessRunLoop::addTimer(double firstSeconds, double periodSeconds,
                                       std::function<void()> task) {
    auto timer = std::make_shared<Watched>();
    timer->descriptor = FileDescriptor(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK));
    timer->kind = Watched::Kind::timer;
    timer->task = std::move(task);
    itimerspec times{.it_interval = timeOf(periodSeconds), .it_value = timeOf(firstSeconds)};
    // A first time of nothing would disarm the timer.
    if (times.it_value.tv_sec == 0 && times.it_value.tv_nsec == 0) times.it_value.tv_nsec = 1;
    ::timerfd_settime(timer->descriptor.get(), 0, &times, nullptr);
    return add(std::move(timer), EPOLLIN);
}

Subscription HeadlessRunLoop::watch(int descriptor, Readiness readiness, std::function<void()> task) {
    auto foreign = std::make_shared<Watched>();
    // A number can be waited for only once, so each watch has its own for the same open file.
    foreign->descriptor = FileDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
    foreign->kind = Watched::Kind::foreign;
    foreign->task = std::move(task);
    return add(std::move(foreign), eventsOf(readiness));
}

Subscription HeadlessRunLoop::add(std::shared_ptr<Watched> watched, std::uint32_t events) {
    const Key key = m_watches->nextKey++;
    const int descriptor = watched->descriptor.get();
    epoll_event event{};
    event.events = events;
    event.data.u64 = key;
    ::epoll_ctl(m_epoll.get(), EPOLL_CTL_ADD, descriptor, &event);
    m_watches->byKey.emplace(key, std::move(watched));
    return Subscription([watches = std::weak_ptr(m_watches), key, epoll = m_epoll.get()] {
        const auto owner = watches.lock();
        if (!owner) return;
        const auto found = owner->byKey.find(key);
        if (found == owner->byKey.end()) return;
        // Closing a duplicate alone would leave the open file in the set.
        ::epoll_ctl(epoll, EPOLL_CTL_DEL, found->second->descriptor.get(), nullptr);
        // The task may hold other handles, which then end inside this call.
        const std::shared_ptr<Watched> ended = std::move(found->second);
        owner->byKey.erase(found);
    });
}

void HeadlessRunLoop::run() {
    std::array<epoll_event, 16> events{};
    while (!m_quit) {
        const int count = ::epoll_wait(m_epoll.get(), events.data(), static_cast<int>(events.size()), -1);
        for (int index = 0; index < count && !m_quit; ++index) {
            handle(events[static_cast<std::size_t>(index)].data.u64);
        }
    }
    m_quit = false;
}

void HeadlessRunLoop::handle(Key key) {
    const auto found = m_watches->byKey.find(key);
    // A task that ran before in this round may have ended it.
    if (found == m_watches->byKey.end()) return;
    const std::shared_ptr<Watched> watched = found->second;  // The task may end itself.
    switch (watched->kind) {
        case Watched::Kind::wakeUp:
            drain(watched->descriptor.get());
            runPosted();
            return;
        case Watched::Kind::timer:
            if (drain(watched->descriptor.get())) watched->task();
            return;
        case Watched::Kind::foreign:
            watched->task();
            return;
    }
}

void HeadlessRunLoop::runPosted() {
    {
        const std::lock_guard lock(m_postedMutex);
        m_running.swap(m_posted);
    }
    auto next = m_running.begin();
    while (next != m_running.end() && !m_quit) std::exchange(*next++, nullptr)();
    if (next != m_running.end()) {
        // What stood behind the task that quit is kept for another run.
        const std::lock_guard lock(m_postedMutex);
        m_posted.insert(m_posted.begin(), std::make_move_iterator(next),
                        std::make_move_iterator(m_running.end()));
        ::eventfd_write(m_wakeUp, 1);
    }
    m_running.clear();
}

}  // namespace velmora
