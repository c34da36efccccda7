#include "zarnekctl/cli/Commands.h"

#include "zarnekctl/config/ConfigCheck.h"
#include "zarnekctl/host/EngineHost.h"
#include "zarnekctl/print/DotPrinter.h"
#include "zarnekctl/print/JsonPrinter.h"
#include "zarnekctl/print/TablePrinter.h"
#include "zarnekctl/print/TreePrinter.h"
#include "zarnekctl/report/MetricsPrinter.h"
#include "zarnekctl/report/OutputFile.h"
#include "zarnekctl/report/ReportPrinter.h"

#include <iostream>
#include <memory>
#include <sstream>

namespace zarnekctl
{

namespace
{

std::unique_ptr<Printer> printerFor(const Options& options)
{
    if (options.command == Command::Metrics)
        return std::make_unique<MetricsPrinter>();
    if (options.command == Command::Report)
        return std::make_unique<ReportPrinter>();
    switch (options.format) {
    case OutputFormat::Table:
        return std::make_unique<TablePrinter>(standardOutputStyle());
    case OutputFormat::Json:
        return std::make_unique<JsonPrinter>();
    case OutputFormat::Dot:
        return std::make_unique<DotPrinter>();
    default:
        return std::make_unique<TreePrinter>(standardOutputStyle());
    }
}

void printToFile(const Options& options, const System& system)
{
    std::ostringstream content;
    printerFor(options)->print(system, content);
    const bool isMetrics = options.command == Command::Metrics;
    OutputFile(*options.output, isMetrics ? std::optional(METRICS_FILE_MODE) : std::nullopt)
        .write(content.str());
}

} // namespace

ExitStatus discoverCommand(const Options& options, const Installation& installation)
{
    const ConfigFolder config(options.config);
    config.prepare(installation);
    const auto plugin = installation.plugin(options.plugin);
    const ConfigCheck check(config, plugin, VendorLibrary::probeIn(plugin.parent_path()));
    check.refuse(Effect::NoDiscovery);
    for (const std::string& line : check.roadLines())
        std::cerr << "zarnekctl: " << line << '\n';

    EngineHost host(options, installation, config, "large-server");
    host.initialise();
    host.discover(options.globalNumber.value_or(0));
    host.stopMonitoring();
    host.terminate();

    const System system = host.system();
    if (options.output)
        printToFile(options, system);
    else if (!options.trace)
        printerFor(options)->print(system, std::cout);
    host.requireComplete(system);
    return ExitStatus::Done;
}

} // namespace zarnekctl
