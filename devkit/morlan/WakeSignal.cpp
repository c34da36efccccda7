#include "morlan/WakeSignal.h"

#include <csignal>

namespace morlan
{

namespace
{

void ignoreWake(int) {}

bool isHandledBy(int number, void (*handler)(int))
{
    struct sigaction present = {};
    return sigaction(number, nullptr, &present) == 0 && (present.sa_flags & SA_SIGINFO) == 0 &&
           present.sa_handler == handler;
}

} // namespace

bool WakeSignal::acquire()
{
    if (m_number != 0 && isHandledBy(m_number, ignoreWake))
        return true;

    struct sigaction action = {};
    action.sa_handler = ignoreWake;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    // From the top: programs that use real-time signals tend to count from the bottom.
    for (int number = SIGRTMAX; number >= SIGRTMIN; --number)
        if (isHandledBy(number, SIG_DFL) && sigaction(number, &action, nullptr) == 0) {
            m_number = number;
            return true;
        }
    m_number = 0;
    return false;
}

void WakeSignal::unblockHere() const
{
    if (m_number == 0)
        return;
    sigset_t wake;
    sigemptyset(&wake);
    sigaddset(&wake, m_number);
    pthread_sigmask(SIG_UNBLOCK, &wake, nullptr);
}

void WakeSignal::send(pthread_t thread) const
{
    pthread_kill(thread, m_number);
}

} // namespace morlan
