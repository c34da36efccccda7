#include "zarnekctl/cli/Commands.h"

#include "common/Utf8.h"
#include "zarnekctl/config/ConfigCheck.h"
#include "zarnekctl/host/VendorLibrary.h"

#include <iostream>

namespace zarnekctl
{

ExitStatus checkCommand(const Options& options, const Installation& installation)
{
    const ConfigFolder config(options.config);
    if (!options.config)
        config.prepare(installation);
    const auto plugin = installation.plugin(options.plugin);
    const ConfigCheck check(config, plugin, VendorLibrary::probeIn(plugin.parent_path()));
    const auto lines = check.lines();
    for (const std::string& line : lines)
        std::cout << devkit::escaped(line) << '\n';
    if (lines.empty())
        std::cout << devkit::escaped(config.path().string()) << ": nothing wrong with "
                  << config.privateIni().filename().string() << " and "
                  << config.mapping().filename().string() << '\n';
    return check.worst() < Effect::NoMonitoring ? ExitStatus::Done : ExitStatus::BadInput;
}

} // namespace zarnekctl
