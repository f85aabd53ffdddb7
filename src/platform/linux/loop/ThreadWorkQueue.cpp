#include "platform/linux/loop/ThreadWorkQueue.h"

#include <pthread.h>

#include <utility>

namespace velmora {

ThreadWorkQueue::ThreadWorkQueue(std::string name) : m_name(std::move(name)) {
    m_name.resize(std::min(m_name.size(), std::size_t{15}));
}

ThreadWorkQueue::~ThreadWorkQueue() {
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
        dropped.swap(m_work);
    }
    dropped.clear();  // Outside the lock: what the work held may have ends of its own.
    m_changed.notify_one();
    if (m_thread.joinable()) m_thread.join();
}

void ThreadWorkQueue::async(std::function<void()> work) {
    {
        const std::lock_guard lock(m_mutex);
        // Work at the end of the queue's life may still ask for more; nobody would wait for it.
        if (m_ending) return;
        m_work.push_back(std::move(work));
        if (!m_thread.joinable()) m_thread = std::thread([this] { run(); });
    }
    m_changed.notify_one();
}

void ThreadWorkQueue::run() {
    ::pthread_setname_np(::pthread_self(), m_name.c_str());
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_ending || !m_work.empty(); });
        if (m_ending) return;
        std::function<void()> work = std::move(m_work.front());
        m_work.pop_front();
        lock.unlock();
        work();
        work = nullptr;  // What the work holds is released outside the lock.
        lock.lock();
    }
}

}  // namespace velmora
