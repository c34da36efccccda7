// Several output forms of one monitoring run.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORPRINTERS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORPRINTERS_H

#include "zarnekctl/monitor/MonitorPrinter.h"

#include <memory>
#include <vector>

namespace zarnekctl
{

// Passes each record on to all of them, in the order in which they were added.
class MonitorPrinters : public MonitorPrinter
{
  public:
    void add(std::unique_ptr<MonitorPrinter> printer) { m_printers.push_back(std::move(printer)); }

    void start(const MonitorStart& start) override;
    void alert(const Alert& alert) override;
    void refresh(const Refresh& refresh) override;
    void unchanged(std::size_t count) override;
    void summary(const MonitorSummary& summary) override;
    bool wantsStates() const override;
    void state(const MonitorState& state) override;

  private:
    std::vector<std::unique_ptr<MonitorPrinter>> m_printers;
};

} // namespace zarnekctl

#endif
