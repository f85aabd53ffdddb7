#pragma once

#include "platform/WorkQueue.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace velmora {

/// One thread that works off what it is given, in order. The thread is made at the first piece of work.
class ThreadWorkQueue final : public WorkQueue {
public:
    /// The name is what process viewers show for the thread, of which the kernel keeps 15 bytes.
    explicit ThreadWorkQueue(std::string name = "velmora-work");
    ~ThreadWorkQueue() override;

    void async(std::function<void()> work) override;

private:
    void run();

    std::string m_name;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_work;
    bool m_ending = false;
    std::thread m_thread;
};

}  // namespace velmora
