// A monitoring run as a stream of JSON objects, one a line; docs/json-output.md describes them.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORJSONPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORJSONPRINTER_H

#include "zarnekctl/monitor/MonitorPrinter.h"
#include "zarnekctl/print/JsonValues.h"

#include <ostream>

namespace zarnekctl
{

class MonitorJsonPrinter : public MonitorPrinter
{
  public:
    // `out` outlives the printer.
    explicit MonitorJsonPrinter(std::ostream& out) : m_out(out) {}

    void start(const MonitorStart& start) override;
    void alert(const Alert& alert) override;
    void refresh(const Refresh& refresh) override;
    void unchanged(std::size_t count) override;
    void summary(const MonitorSummary& summary) override;

  private:
    void write(const Json& json);

    std::ostream& m_out;
};

} // namespace zarnekctl

#endif
