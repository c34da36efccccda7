// The pause between two polls. The program exports its own `sleep`, which the plug-in's event thread runs
// into; here it is shortened, counted, and held still while monitoring is being stopped.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_POLLCLOCK_H
#define ZARNEK_DEVKIT_ZARNEKCTL_POLLCLOCK_H

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

namespace zarnekctl
{

// Safe from several threads. One per process, as there is one `sleep`.
class PollClock
{
  public:
    using Duration = std::chrono::duration<double>;

    static PollClock& instance();

    struct Setting {
        std::optional<Duration> interval; // without one a pause is as long as was asked for
        unsigned int limit = 0;           // after so many polls the thread stays asleep; 0: none
        // Both run on the polling thread: ahead of each pause, told the seconds asked for, and when the limit
        // is reached and the thread asleep.
        std::function<void(unsigned int)> onPause;
        std::function<void()> onLimit;
    };

    // Before polling starts; forgets the polls counted so far.
    void configure(Setting setting);

    // What the exported `sleep` does. Ends early when a signal arrives; the whole seconds left, as `sleep`
    // says.
    unsigned int pause(unsigned int seconds);

    unsigned int polls() const; // finished ones

    // From now on a pause ends by a signal only. Waits until the polling thread is in one, at most so long;
    // whether it is.
    bool hold(std::chrono::milliseconds atMost);

  private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    Setting m_setting;
    unsigned int m_polls = 0;
    bool m_isPausing = false;
    bool m_isHeld = false;
};

} // namespace zarnekctl

#endif
