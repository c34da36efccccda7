// The commands of zarnekctl. Each carries out what the options ask for, results on standard output and
// remarks on standard error; they throw Failure when they cannot.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_COMMANDS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_COMMANDS_H

#include "zarnekctl/config/ExitStatus.h"
#include "zarnekctl/config/Installation.h"
#include "zarnekctl/config/Options.h"

namespace zarnekctl
{

// `discover` and what else shows the outcome of a discovery: `metrics` and `report`.
ExitStatus discoverCommand(const Options& options, const Installation& installation);
ExitStatus monitorCommand(const Options& options, const Installation& installation);
ExitStatus checkCommand(const Options& options, const Installation& installation);

} // namespace zarnekctl

#endif
