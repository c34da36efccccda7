#include "zarnekctl/cli/Commands.h"

#include "zarnekctl/config/ConfigCheck.h"
#include "zarnekctl/host/LastWords.h"
#include "zarnekctl/monitor/MonitorJsonPrinter.h"
#include "zarnekctl/monitor/MonitorRun.h"
#include "zarnekctl/monitor/MonitorTextPrinter.h"

#include <iostream>
#include <memory>

namespace zarnekctl
{

namespace
{

std::unique_ptr<MonitorPrinter> printerFor(const Options& options)
{
    if (options.trace)
        return nullptr;
    if (options.format == OutputFormat::Json)
        return std::make_unique<MonitorJsonPrinter>(std::cout);
    return std::make_unique<MonitorTextPrinter>(std::cout, standardOutputStyle());
}

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
    const auto printer = printerFor(options);
    MonitorRun(host, config, options, printer.get()).run(signals);
    return ExitStatus::Done;
}

} // namespace zarnekctl
