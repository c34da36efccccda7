// Turns the command line into Options.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_COMMANDLINE_H
#define ZARNEK_DEVKIT_ZARNEKCTL_COMMANDLINE_H

#include "zarnekctl/config/ExitStatus.h"
#include "zarnekctl/config/Options.h"

#include <optional>

namespace zarnekctl
{

// Fills `options` and returns nothing when there is a command to carry out. Otherwise everything is said, the
// help text on standard output or what is wrong on standard error, and the exit status is returned.
std::optional<ExitStatus> parseCommandLine(int argc, const char* const* argv, Options& options);

} // namespace zarnekctl

#endif
