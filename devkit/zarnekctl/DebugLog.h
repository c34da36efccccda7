// Receives the plug-in's debug text: shows it when asked to, and remembers the end of it for a failure.
#ifndef ZARNEKCTL_DEBUG_LOG_H
#define ZARNEKCTL_DEBUG_LOG_H

#include "zarnekctl/Trace.h"

#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace zarnekctl
{

// Safe from several threads.
class DebugLog
{
  public:
    // `echo`: each line goes to standard error as it comes. `trace` outlives the log.
    DebugLog(bool echo, Trace& trace) : m_echo(echo), m_trace(trace) {}

    void add(const char* text);
    // The last lines that tell something; the ENTRY and EXIT lines of functions do not count.
    std::vector<std::string> lastLines() const;

  private:
    bool m_echo;
    Trace& m_trace;
    mutable std::mutex m_mutex;
    std::deque<std::string> m_last;
};

} // namespace zarnekctl

#endif
