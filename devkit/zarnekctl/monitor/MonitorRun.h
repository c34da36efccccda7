// One monitoring run: discovery, polls until the stop, and what is told ahead of them and behind.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORRUN_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORRUN_H

#include "zarnekctl/config/ConfigFolder.h"
#include "zarnekctl/config/Options.h"
#include "zarnekctl/host/EngineHost.h"
#include "zarnekctl/host/StopSignals.h"
#include "zarnekctl/monitor/MonitorJournal.h"
#include "zarnekctl/monitor/MonitorPrinter.h"

#include <cstdint>

namespace zarnekctl
{

// Lives on the main thread. Results go to the printer, remarks to standard error.
class MonitorRun
{
  public:
    // All of them outlive the run; `printer` may be null.
    MonitorRun(EngineHost& host, const ConfigFolder& config, const Options& options, MonitorPrinter* printer);

    // From the first command to the last; throws Failure. A stop that is asked for, by the signals or by the
    // end of the polls, goes out while the event thread sleeps.
    void run(const StopSignals& signals);

  private:
    void tellStart(const System& system);
    void poll(const StopSignals& signals);
    void endPoll(unsigned int seconds);
    void tellState(unsigned int polls, bool running);
    void tellEnd();

    EngineHost& m_host;
    const ConfigFolder& m_config;
    MonitorPrinter* m_printer;
    MonitorJournal m_journal;
    std::size_t m_refusedCalls = 0;  // in all polls
    std::uint32_t m_initialSequence; // in the mapping file ahead of the run
    unsigned int m_globalNumber;
    double m_interval;    // seconds
    unsigned int m_polls; // 0: until stopped
};

} // namespace zarnekctl

#endif
