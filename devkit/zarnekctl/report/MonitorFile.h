// A file that shows a monitoring run as it stands.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_MONITORFILE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_MONITORFILE_H

#include "zarnekctl/monitor/MonitorPrinter.h"
#include "zarnekctl/print/Printer.h"
#include "zarnekctl/report/MonitorStory.h"
#include "zarnekctl/report/OutputFile.h"

#include <functional>
#include <memory>
#include <string>

namespace zarnekctl
{

// Written anew whenever the state is told. The first writing throws Failure; a later one that fails is told
// on standard error, once in a row, and the run goes on: its alerts matter more.
class MonitorFile : public MonitorPrinter
{
  public:
    // Makes the printer of a content; the story outlives it.
    using Form = std::function<std::unique_ptr<Printer>(const MonitorStory&)>;

    MonitorFile(OutputFile file, Form form) : m_file(std::move(file)), m_form(std::move(form)) {}

    void start(const MonitorStart&) override {}
    void alert(const Alert& alert) override;
    void refresh(const Refresh&) override {}
    void unchanged(std::size_t) override {}
    void summary(const MonitorSummary&) override {}
    bool wantsStates() const override { return true; }
    void state(const MonitorState& state) override;

    // Throws Failure (PluginFailed) when what the file shows is not the last state.
    void requireWritten() const;

  private:
    OutputFile m_file;
    Form m_form;
    MonitorStory m_story;
    bool m_wasWritten = false;
    std::string m_failure; // of the last writing; empty when it went well
};

} // namespace zarnekctl

#endif
