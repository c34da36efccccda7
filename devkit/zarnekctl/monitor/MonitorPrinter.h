// One output form of a monitoring run. Each record is written whole and flushed, so that a reader at the
// other end of a pipe sees it at once. Not synchronised: the caller makes one call at a time.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORPRINTER_H

#include "zarnekctl/monitor/MonitorRecords.h"

namespace zarnekctl
{

class MonitorPrinter
{
  public:
    virtual ~MonitorPrinter() = default;

    virtual void start(const MonitorStart& start) = 0;
    virtual void alert(const Alert& alert) = 0;
    virtual void refresh(const Refresh& refresh) = 0;
    // Objects discovered again that are as they were; called for at least one.
    virtual void unchanged(std::size_t count) = 0;
    virtual void summary(const MonitorSummary& summary) = 0;

    // Whether it makes something of `state`, which costs a look at the whole data engine. That is called
    // after the discovery, each poll and the stop.
    virtual bool wantsStates() const { return false; }
    virtual void state(const MonitorState&) {}
};

} // namespace zarnekctl

#endif
