// The pause between two polls, held while monitoring is being stopped.
#include "zarnekctl/PollClock.h"

#include <gmock/gmock.h>

#include <atomic>
#include <csignal>
#include <functional>
#include <future>
#include <thread>

using namespace zarnekctl;
using namespace std::chrono_literals;

namespace
{

// A thread that sleeps by the clock; SIGUSR1 interrupts it, as the stop of a thread does.
class Sleeper
{
  public:
    explicit Sleeper(const std::function<void()>& sleep)
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGUSR1, &action, nullptr);
        m_thread = std::thread([this, sleep] {
            sleep();
            m_ended = true;
        });
    }

    bool hasEnded() const { return m_ended; }
    // Signals the thread until it has ended.
    void wake()
    {
        while (!m_ended) {
            pthread_kill(m_thread.native_handle(), SIGUSR1);
            std::this_thread::sleep_for(2ms);
        }
        m_thread.join();
    }

  private:
    std::atomic<bool> m_ended{false};
    std::thread m_thread;
};

} // namespace

TEST(PollClock, aHeldPauseEndsByASignalOnly)
{
    PollClock clock;
    clock.configure({10ms, 0, {}, {}});
    EXPECT_FALSE(clock.hold(20ms)); // no pause under way yet
    Sleeper sleeper([&] { clock.pause(50); });
    EXPECT_TRUE(clock.hold(5s));
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(sleeper.hasEnded());
    sleeper.wake();
}

TEST(PollClock, theLimitHoldsTheThreadAndIsToldOnce)
{
    PollClock clock;
    std::promise<unsigned int> limit;
    clock.configure({0ms, 3, {}, [&] { limit.set_value(clock.polls()); }});
    Sleeper sleeper([&] {
        for (int poll = 0; poll < 3; ++poll)
            clock.pause(50);
    });
    auto told = limit.get_future();
    ASSERT_EQ(told.wait_for(5s), std::future_status::ready);
    EXPECT_EQ(told.get(), 3U);
    EXPECT_TRUE(clock.hold(0ms));
    EXPECT_FALSE(sleeper.hasEnded());
    sleeper.wake();
    EXPECT_EQ(clock.polls(), 3U);
}
