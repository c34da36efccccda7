// The pause between two polls, shortened, interrupted and held.
#include "zarnekctl/PollClock.h"

#include <gmock/gmock.h>

#include <atomic>
#include <csignal>
#include <future>
#include <thread>

using namespace zarnekctl;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace
{

void doNothing(int) {}

// Lets SIGUSR1 interrupt a sleep, as a stop of the thread does.
void handleWakeSignal()
{
    struct sigaction action = {};
    action.sa_handler = doNothing;
    sigaction(SIGUSR1, &action, nullptr);
}

// Signals the thread until its pause has ended.
void wake(std::thread& thread, const std::atomic<bool>& ended)
{
    while (!ended) {
        pthread_kill(thread.native_handle(), SIGUSR1);
        std::this_thread::sleep_for(2ms);
    }
    thread.join();
}

} // namespace

TEST(PollClock, shortensPausesAndTellsTheSecondsAskedFor)
{
    PollClock clock;
    std::vector<unsigned int> asked;
    clock.configure(
        {PollClock::Duration(0.02), 0, [&](unsigned int seconds) { asked.push_back(seconds); }, {}});
    const auto start = Clock::now();
    EXPECT_EQ(clock.pause(50), 0U);
    EXPECT_EQ(clock.pause(7), 0U);
    EXPECT_GE(Clock::now() - start, 40ms);
    EXPECT_LT(Clock::now() - start, 5s);
    EXPECT_EQ(clock.polls(), 2U);
    EXPECT_THAT(asked, testing::ElementsAre(50, 7));
}

TEST(PollClock, aSignalEndsAPauseOfFullLength)
{
    handleWakeSignal();
    PollClock clock;
    clock.configure({});
    std::atomic<bool> ended{false};
    unsigned int left = 0;
    std::thread sleeper([&] {
        left = clock.pause(50);
        ended = true;
    });
    EXPECT_TRUE(clock.hold(5s));
    wake(sleeper, ended);
    EXPECT_GE(left, 45U);
}

TEST(PollClock, aHeldPauseEndsByASignalOnly)
{
    handleWakeSignal();
    PollClock clock;
    clock.configure({PollClock::Duration(0.01), 0, {}, {}});
    std::atomic<bool> ended{false};
    std::atomic<bool> holding{false};
    std::thread sleeper([&] {
        while (!holding)
            std::this_thread::yield();
        clock.pause(50);
        ended = true;
    });
    EXPECT_FALSE(clock.hold(20ms)); // no pause under way yet
    holding = true;
    EXPECT_TRUE(clock.hold(5s));
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(ended);
    wake(sleeper, ended);
}

TEST(PollClock, theLimitHoldsTheThreadAndIsToldOnce)
{
    handleWakeSignal();
    PollClock clock;
    std::promise<unsigned int> limit;
    clock.configure({PollClock::Duration(0), 3, {}, [&] { limit.set_value(clock.polls()); }});
    std::atomic<bool> ended{false};
    std::thread poller([&] {
        for (int poll = 0; poll < 3; ++poll)
            clock.pause(50);
        ended = true;
    });
    auto told = limit.get_future();
    ASSERT_EQ(told.wait_for(5s), std::future_status::ready);
    EXPECT_EQ(told.get(), 3U);
    EXPECT_TRUE(clock.hold(0ms));
    EXPECT_FALSE(ended);
    wake(poller, ended);
    EXPECT_EQ(clock.polls(), 3U);
}
