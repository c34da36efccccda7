// Discovery, and a monitoring run where there is one, as metrics for Prometheus; docs/metrics.md describes
// them.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_METRICSPRINTER_H
#define ZARNEK_DEVKIT_ZARNEKCTL_METRICSPRINTER_H

#include "zarnekctl/print/Printer.h"
#include "zarnekctl/report/MonitorStory.h"

namespace zarnekctl
{

// A collector reads the file as a user of its own.
constexpr unsigned int METRICS_FILE_MODE = 0644;

class MetricsPrinter : public Printer
{
  public:
    // The story outlives the printer; null without monitoring.
    explicit MetricsPrinter(const MonitorStory* story = nullptr) : m_story(story) {}
    void print(const System& system, std::ostream& out) const override;

  private:
    const MonitorStory* m_story;
};

} // namespace zarnekctl

#endif
