#include "zarnekctl/host/PollClock.h"

#include <cerrno>
#include <cmath>
#include <ctime>

namespace zarnekctl
{

namespace
{

// A held thread is woken by the signal of the stop; should none ever come, it goes on after this.
constexpr std::chrono::seconds LONGEST_HOLD{2};

// Sleeps until the time has passed or a signal has come; the time left.
PollClock::Duration sleepOnce(PollClock::Duration duration)
{
    const double seconds = std::floor(duration.count());
    timespec request{};
    request.tv_sec = static_cast<time_t>(seconds);
    request.tv_nsec = static_cast<long>((duration.count() - seconds) * 1e9);
    timespec rest{};
    if (nanosleep(&request, &rest) == 0 || errno != EINTR)
        return PollClock::Duration::zero();
    return std::chrono::seconds(rest.tv_sec) + std::chrono::nanoseconds(rest.tv_nsec);
}

} // namespace

PollClock& PollClock::instance()
{
    static PollClock clock;
    return clock;
}

void PollClock::configure(Setting setting)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_setting = std::move(setting);
    m_polls = 0;
    m_isPausing = false;
    m_isHeld = false;
}

unsigned int PollClock::pause(unsigned int seconds)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const Setting setting = m_setting;
    lock.unlock();
    if (setting.onPause)
        setting.onPause(seconds);

    lock.lock();
    ++m_polls;
    const bool limitReached = setting.limit != 0 && m_polls == setting.limit;
    m_isHeld = m_isHeld || limitReached;
    m_isPausing = true;
    m_changed.notify_all();
    lock.unlock();
    if (limitReached && setting.onLimit)
        setting.onLimit();
    const Duration left = sleepOnce(setting.interval.value_or(std::chrono::seconds(seconds)));

    // The thread may only leave the pause of its own accord while nobody is stopping it: what it would log
    // would run into what the stopping thread logs.
    lock.lock();
    if (m_isHeld && left == Duration::zero()) {
        lock.unlock();
        sleepOnce(LONGEST_HOLD);
        lock.lock();
    }
    m_isPausing = false;
    return static_cast<unsigned int>(std::ceil(left.count()));
}

unsigned int PollClock::polls() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_polls;
}

bool PollClock::hold(std::chrono::milliseconds atMost)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_isHeld = true;
    return m_changed.wait_for(lock, atMost, [this] { return m_isPausing; });
}

} // namespace zarnekctl
