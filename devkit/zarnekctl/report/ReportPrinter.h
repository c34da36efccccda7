// Discovery, and a monitoring run where there is one, as a page that stands by itself: no script, nothing
// from a network.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_REPORTPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_REPORTPRINTER_H

#include "zarnekctl/print/Printer.h"
#include "zarnekctl/report/MonitorStory.h"

namespace zarnekctl
{

class ReportPrinter : public Printer
{
  public:
    // The story outlives the printer; null without monitoring.
    explicit ReportPrinter(const MonitorStory* story = nullptr) : m_story(story) {}
    void print(const System& system, std::ostream& out) const override;

  private:
    const MonitorStory* m_story;
};

} // namespace zarnekctl

#endif
