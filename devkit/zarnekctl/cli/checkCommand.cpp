#include "zarnekctl/cli/Commands.h"

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
    const ConfigCheck check(config,
                            VendorLibrary::probeIn(installation.plugin(options.plugin).parent_path()));
    const auto lines = check.lines();
    for (const std::string& line : lines)
        std::cout << line << '\n';
    if (lines.empty())
        std::cout << config.path().string() << ": nothing wrong with "
                  << config.privateIni().filename().string() << " and "
                  << config.mapping().filename().string() << '\n';
    return check.worst() < Effect::NoMonitoring ? ExitStatus::Done : ExitStatus::BadInput;
}

} // namespace zarnekctl
