// A monitoring run for people: a line for each alert, indented below it what was discovered again.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORTEXTPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORTEXTPRINTER_H

#include "zarnekctl/monitor/MonitorPrinter.h"
#include "zarnekctl/print/Terminal.h"

#include <ostream>

namespace zarnekctl
{

class MonitorTextPrinter : public MonitorPrinter
{
  public:
    // `out` outlives the printer.
    MonitorTextPrinter(std::ostream& out, Style style) : m_out(out), m_style(style) {}

    void start(const MonitorStart& start) override;
    void alert(const Alert& alert) override;
    void refresh(const Refresh& refresh) override;
    void unchanged(std::size_t count) override;
    void summary(const MonitorSummary& summary) override;

  private:
    std::ostream& m_out;
    Style m_style;
};

} // namespace zarnekctl

#endif
