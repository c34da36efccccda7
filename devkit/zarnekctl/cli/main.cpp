// zarnekctl: a data engine's part in one process, for demonstrations and tests of the storage plug-in.
#include "common/Utf8.h"
#include "zarnekctl/cli/CommandLine.h"
#include "zarnekctl/cli/Commands.h"
#include "zarnekctl/config/Failure.h"

#include <iostream>
#include <poll.h>
#include <unistd.h>

namespace zarnekctl
{

namespace
{

ExitStatus run(const Options& options)
{
    const auto installation = Installation::ofThisProgram();
    switch (options.command) {
    case Command::Discover:
    case Command::Metrics:
    case Command::Report:
        return discoverCommand(options, installation);
    case Command::Monitor:
        return monitorCommand(options, installation);
    case Command::Check:
        break;
    }
    return checkCommand(options, installation);
}

// Whether all of standard output went out; says so if not, unless its reader went away.
bool isOutputWhole()
{
    if (std::cout.flush())
        return true;
    pollfd output{STDOUT_FILENO, 0, 0};
    const bool readerWent = poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
    if (!readerWent)
        std::cerr << "zarnekctl: standard output could not be written; what it shows is cut short\n";
    return readerWent;
}

// The whole run; the exit status.
int runProgram(int argc, const char* const* argv)
{
    try {
        Options options;
        const auto finished = parseCommandLine(argc, argv, options);
        const ExitStatus status = finished ? *finished : run(options);
        return exitCode(isOutputWhole() ? status : ExitStatus::PluginFailed);
    } catch (const Failure& failure) {
        std::cout << std::flush;
        std::cerr << "zarnekctl: " << devkit::escaped(failure.what()) << '\n';
        for (const std::string& line : failure.log())
            std::cerr << "  " << devkit::escaped(line) << '\n';
        return exitCode(failure.status());
    } catch (const std::exception& exception) {
        std::cerr << "zarnekctl: " << devkit::escaped(exception.what()) << '\n';
        return exitCode(ExitStatus::PluginFailed);
    }
}

} // namespace

} // namespace zarnekctl

int main(int argc, char** argv)
{
    return zarnekctl::runProgram(argc, argv);
}
