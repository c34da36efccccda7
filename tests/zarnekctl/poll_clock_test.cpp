// The pause between two polls, held while monitoring is being stopped.
#include "zarnekctl/host/PollClock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <thread>

using namespace zarnekctl;
using namespace std::chrono_literals;

TEST(PollClock, aHeldPauseEndsByASignalOnly)
{
    // The signal interrupts the sleeping thread, as the stop of a thread does.
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGUSR1, &action, nullptr);

    PollClock clock;
    clock.configure({10ms, 0, {}, {}});
    EXPECT_FALSE(clock.hold(20ms)); // no pause under way yet
    std::atomic<bool> ended{false};
    std::thread sleeper([&] {
        clock.pause(50);
        ended = true;
    });
    EXPECT_TRUE(clock.hold(5s));
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(ended);
    while (!ended) {
        pthread_kill(sleeper.native_handle(), SIGUSR1);
        std::this_thread::sleep_for(2ms);
    }
    sleeper.join();
    EXPECT_FALSE(clock.hold(20ms)); // nor any more
}
