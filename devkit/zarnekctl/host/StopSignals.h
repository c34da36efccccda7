// SIGINT, SIGTERM and SIGHUP as something to wait for, so that a stop comes at a moment of the host's
// choosing.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_STOPSIGNALS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_STOPSIGNALS_H

#include <csignal>

namespace zarnekctl
{

class StopSignals
{
  public:
    // From here on the signals wait, in this thread and in those started later. They go on waiting when this
    // goes, so that a second Ctrl-C does not cut short what the first one began. A hang-up that is ignored,
    // as under nohup, stays so. A reader that goes away no longer ends the process either; the output fails
    // instead.
    StopSignals();

    // Until one of them has come, also one that came before.
    void wait() const;
    // Ends the wait from any thread.
    static void request();

  private:
    sigset_t m_signals;
};

} // namespace zarnekctl

#endif
