#include "zarnekctl/host/StopSignals.h"

#include <unistd.h>

namespace zarnekctl
{

StopSignals::StopSignals() : m_signals()
{
    sigemptyset(&m_signals);
    sigaddset(&m_signals, SIGINT);
    sigaddset(&m_signals, SIGTERM);
    struct sigaction hangup = {};
    sigaction(SIGHUP, nullptr, &hangup);
    if (hangup.sa_handler != SIG_IGN)
        sigaddset(&m_signals, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

void StopSignals::wait() const
{
    int signal = 0;
    while (sigwait(&m_signals, &signal) != 0)
        continue;
}

void StopSignals::request()
{
    kill(getpid(), SIGTERM);
}

} // namespace zarnekctl
