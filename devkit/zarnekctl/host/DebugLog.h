// Receives the plug-in's debug text: shows it when asked to, remembers the end of it for a failure, and
// gathers the calls that the vendor library refused, which the plug-in passes over with a line.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_DEBUGLOG_H
#define ZARNEK_DEVKIT_ZARNEKCTL_DEBUGLOG_H

#include "zarnekctl/host/Trace.h"

#include <deque>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace zarnekctl
{

// Calls of the vendor library that did not succeed.
struct Refusals {
    unsigned int count = 0;
    std::set<std::string> reasons;      // the plug-in's words for the statuses
    std::vector<std::string> lastLines; // as they were at the last of them
};

// "2 calls: ERR_FAIL, ERR_RESCANING".
std::string describe(const Refusals& refusals);

// Safe from several threads.
class DebugLog
{
  public:
    // `echo`: each line goes to standard error as it comes. `trace` outlives the log.
    DebugLog(bool echo, Trace& trace) : m_echo(echo), m_trace(trace) {}

    void add(const char* text);
    // The last lines that tell something; the ENTRY and EXIT lines of functions do not count.
    std::vector<std::string> lastLines() const;
    // What was refused since the last look.
    Refusals takeRefusals();

  private:
    bool m_echo;
    Trace& m_trace;
    mutable std::mutex m_mutex;
    std::deque<std::string> m_last;
    Refusals m_refusals;
};

} // namespace zarnekctl

#endif
