#include "platform/linux/loop/ThreadWorkQueue.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <future>
#include <memory>
#include <thread>
#include <vector>

#include <pthread.h>

namespace velmora {
namespace {

TEST(ThreadWorkQueue, WorkRunsInTheOrderGivenOnOneOtherThread) {
    std::vector<int> order;
    std::vector<std::thread::id> threads;
    std::promise<void> done;
    ThreadWorkQueue queue;
    for (int piece = 0; piece < 100; ++piece) {
        queue.async([&, piece] {
            order.push_back(piece);
            threads.push_back(std::this_thread::get_id());
        });
    }
    queue.async([&] { done.set_value(); });
    done.get_future().wait();
    ASSERT_EQ(order.size(), 100u);
    for (int piece = 0; piece < 100; ++piece) {
        EXPECT_EQ(order[static_cast<std::size_t>(piece)], piece);
        EXPECT_EQ(threads[static_cast<std::size_t>(piece)], threads[0]);
    }
    EXPECT_NE(threads[0], std::this_thread::get_id());
}

TEST(ThreadWorkQueue, DestructionWaitsForThePieceAtWork) {
    std::promise<void> started;
    std::promise<void> mayFinish;
    std::atomic<bool> finished = false;
    auto queue = std::make_unique<ThreadWorkQueue>();
    queue->async([&] {
        started.set_value();
        mayFinish.get_future().wait();
        finished = true;
    });
    started.get_future().wait();
    std::thread destroyer([&] { queue.reset(); });
    mayFinish.set_value();
    destroyer.join();
    EXPECT_TRUE(finished);
}

TEST(ThreadWorkQueue, DestructionDropsTheWorkThatHasNotBegun) {
    // The piece at work ends the queue's life from another thread and stays until that has begun: the first
    // piece that is dropped tells, by what it held.
    struct TellsItsEnd {
        explicit TellsItsEnd(std::promise<void>& told) : m_told(told) {}
        ~TellsItsEnd() { m_told.set_value(); }
        std::promise<void>& m_told;
    };
    std::promise<void> started;
    std::promise<void> dropped;
    std::atomic<bool> laterRan = false;
    auto queue = std::make_unique<ThreadWorkQueue>();
    queue->async([&] {
        started.set_value();
        dropped.get_future().wait();
    });
    queue->async([&, held = std::make_shared<TellsItsEnd>(dropped)] { laterRan = true; });
    started.get_future().wait();
    queue.reset();
    EXPECT_FALSE(laterRan);
}

TEST(ThreadWorkQueue, WorkMayGiveMoreWork) {
    std::promise<void> done;
    ThreadWorkQueue queue;
    queue.async([&] { queue.async([&] { done.set_value(); }); });
    done.get_future().wait();
}

TEST(ThreadWorkQueue, AnyThreadMayGiveWork) {
    std::atomic<int> ran = 0;
    std::promise<void> done;
    {
        ThreadWorkQueue queue;
        std::vector<std::thread> givers;
        for (int giver = 0; giver < 4; ++giver) {
            givers.emplace_back([&] {
                for (int piece = 0; piece < 50; ++piece) queue.async([&] { ++ran; });
            });
        }
        for (std::thread& giver : givers) giver.join();
        queue.async([&] { done.set_value(); });
        done.get_future().wait();
    }
    EXPECT_EQ(ran, 200);
}

TEST(ThreadWorkQueue, ThreadCarriesTheQueuesNameCutToWhatTheKernelKeeps) {
    std::promise<std::string> name;
    ThreadWorkQueue queue("velmora-disk-breakdown");
    queue.async([&] {
        std::array<char, 32> text{};
        ::pthread_getname_np(::pthread_self(), text.data(), text.size());
        name.set_value(text.data());
    });
    EXPECT_EQ(name.get_future().get(), "velmora-disk-br");
}

TEST(ThreadWorkQueue, UnusedQueueEndsAtOnce) {
    const ThreadWorkQueue queue;
}

}  // namespace
}  // namespace velmora
