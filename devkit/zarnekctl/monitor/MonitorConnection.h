// The way from the libraries' sinks to the journal and the trace.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORCONNECTION_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORCONNECTION_H

#include "ral/ral_inspect.h"
#include "zarnekctl/host/Trace.h"
#include "zarnekctl/host/VendorLibrary.h"
#include "zarnekctl/monitor/MonitorJournal.h"

namespace zarnekctl
{

// Connected for as long as it lives, one at a time in a process. The sinks run on the event thread.
class MonitorConnection
{
  public:
    // All three outlive the connection.
    MonitorConnection(MonitorJournal& journal, Trace& trace, VendorLibrary& library);
    ~MonitorConnection();
    MonitorConnection(const MonitorConnection&) = delete;
    MonitorConnection& operator=(const MonitorConnection&) = delete;

  private:
    static void onEvent(void* context, const mvsim_event* event);
    static void onNotification(void* context, const void* handle);
    static void onChange(void* context, ral_change change, const void* before, const void* after);

    MonitorJournal& m_journal;
    Trace& m_trace;
    VendorLibrary& m_library;
};

} // namespace zarnekctl

#endif
