// Threads: starting, holding, stopping.
#include "morlan/morlan_inspect.h"

#include <morlan.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>
#include <unistd.h>
#include <vector>

namespace
{

// What an event thread does: it sleeps until it is told to end.
struct Sleeper {
    std::atomic<bool> begun{false};
    std::atomic<bool> leave{false};
    std::atomic<bool> ended{false};

    static void run(void* argument)
    {
        auto* const self = static_cast<Sleeper*>(argument);
        self->begun = true;
        do
            sleep(10000);
        while (!self->leave);
        self->ended = true;
    }

    void* start()
    {
        void* const thread = SMThreadStart(run, this);
        waitUntilBegun();
        return thread;
    }
    void waitUntilBegun() const
    {
        while (!begun)
            std::this_thread::yield();
    }

    // Stops the thread as the plug-in does. A stop that did not wake it would outlast the test's time limit.
    void stop(void* thread)
    {
        leave = true;
        EXPECT_EQ(SMThreadStop(thread), 0);
        EXPECT_TRUE(ended);
    }
};

class Threads : public testing::Test
{
  protected:
    void TearDown() override
    {
        morlan_reset();
        EXPECT_EQ(morlan_wait_threads(1000), 0);
    }
};

TEST_F(Threads, AStopWakesASleepingThread)
{
    Sleeper sleeper;
    void* const thread = sleeper.start();
    EXPECT_EQ(morlan_wait_threads(50), 1);
    EXPECT_FALSE(sleeper.ended);
    EXPECT_EQ(morlan_running_threads(), 1U);
    std::vector<std::thread> stoppers;
    for (int i = 0; i < 4; ++i)
        stoppers.emplace_back([&] { sleeper.stop(thread); });
    for (std::thread& stopper : stoppers)
        stopper.join();
    EXPECT_EQ(morlan_running_threads(), 0U);
    EXPECT_EQ(SMThreadStop(thread), 0);
}

TEST_F(Threads, AStopMayComeAtAnyMomentBeforeTheSleep)
{
    for (int round = 0; round < 100; ++round) {
        Sleeper sleeper;
        void* const thread = SMThreadStart(Sleeper::run, &sleeper);
        if (round % 2 == 0)
            sleeper.waitUntilBegun();
        sleeper.stop(thread);
    }
}

TEST_F(Threads, HeldThreadsWaitUntilLetGoOrStopped)
{
    morlan_hold_threads(1);
    Sleeper first;
    Sleeper second;
    void* const firstThread = SMThreadStart(Sleeper::run, &first);
    void* const secondThread = SMThreadStart(Sleeper::run, &second);
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_FALSE(first.begun || second.begun);
    EXPECT_EQ(morlan_running_threads(), 2U);

    first.stop(firstThread);
    EXPECT_FALSE(second.begun);
    morlan_hold_threads(0);
    second.waitUntilBegun();
    second.stop(secondThread);
}

// A thread cannot wait for its own end.
TEST_F(Threads, AThreadThatStopsItselfIsRefused)
{
    static std::atomic<void*> self;
    static std::atomic<int> status{-1}; // both outlive the thread, whatever becomes of it
    morlan_hold_threads(1);
    self = SMThreadStart([](void*) { status = SMThreadStop(self); }, nullptr);
    morlan_hold_threads(0);
    ASSERT_EQ(morlan_wait_threads(5000), 0);
    EXPECT_GT(status, 0);
    EXPECT_EQ(SMThreadStop(self), 0);
    EXPECT_GT(SMThreadStop(nullptr), 0);
}

std::atomic<int> g_hostSignals{0};

TEST_F(Threads, TheHostsSignalsAreLeftAlone)
{
    // The signal that a library could choose first is the host's, and a host that has all signals blocked
    // hands this on to the threads that it starts.
    std::signal(SIGRTMAX, [](int) { ++g_hostSignals; });
    sigset_t all;
    sigset_t former;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &former);
    Sleeper sleeper;
    sleeper.stop(sleeper.start());
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
    EXPECT_EQ(g_hostSignals, 0);
    std::signal(SIGRTMAX, SIG_DFL);
}

} // namespace
