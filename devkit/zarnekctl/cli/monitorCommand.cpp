#include "zarnekctl/cli/Commands.h"

#include "zarnekctl/config/ConfigCheck.h"
#include "zarnekctl/host/LastWords.h"
#include "zarnekctl/monitor/MonitorJsonPrinter.h"
#include "zarnekctl/monitor/MonitorPrinters.h"
#include "zarnekctl/monitor/MonitorRun.h"
#include "zarnekctl/monitor/MonitorTextPrinter.h"
#include "zarnekctl/report/MetricsPrinter.h"
#include "zarnekctl/report/MonitorFile.h"
#include "zarnekctl/report/ReportPrinter.h"

#include <iostream>
#include <memory>
#include <vector>

namespace zarnekctl
{

namespace
{

// What standard output shows, and the files beside it.
class Outputs
{
  public:
    explicit Outputs(const Options& options)
    {
        if (options.format == OutputFormat::Json)
            m_printers.add(std::make_unique<MonitorJsonPrinter>(std::cout));
        else if (!options.trace)
            m_printers.add(std::make_unique<MonitorTextPrinter>(std::cout, standardOutputStyle()));
        if (options.metrics)
            addFile(OutputFile(*options.metrics, METRICS_FILE_MODE),
                    [](const MonitorStory& story) { return std::make_unique<MetricsPrinter>(&story); });
        if (options.report)
            addFile(OutputFile(*options.report),
                    [](const MonitorStory& story) { return std::make_unique<ReportPrinter>(&story); });
    }

    MonitorPrinters& printers() { return m_printers; }
    void requireWritten() const
    {
        for (const MonitorFile* file : m_files)
            file->requireWritten();
    }

  private:
    void addFile(const OutputFile& output, MonitorFile::Form form)
    {
        auto file = std::make_unique<MonitorFile>(output, std::move(form));
        m_files.push_back(file.get());
        m_printers.add(std::move(file));
    }

    MonitorPrinters m_printers;
    std::vector<MonitorFile*> m_files; // among the printers
};

} // namespace

ExitStatus monitorCommand(const Options& options, const Installation& installation)
{
    const StopSignals signals;
    prepareLastWords();
    const ConfigFolder config(options.config);
    config.prepare(installation);
    const auto plugin = installation.plugin(options.plugin);
    const ConfigCheck check(config, plugin, VendorLibrary::probeIn(plugin.parent_path()));
    check.refuse(Effect::NoMonitoring);
    for (const std::string& line : check.lines(Effect::Exposure))
        std::cerr << "zarnekctl: " << line << '\n';

    EngineHost host(options, installation, config, "disk-failure");
    Outputs outputs(options);
    MonitorRun(host, config, options, &outputs.printers()).run(signals);
    outputs.requireWritten();
    return ExitStatus::Done;
}

} // namespace zarnekctl
