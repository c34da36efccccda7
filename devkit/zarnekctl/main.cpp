// zarnekctl: a data engine's part in one process, for demonstrations and tests of the storage plug-in.
#include "zarnekctl/CommandLine.h"
#include "zarnekctl/Commands.h"
#include "zarnekctl/Failure.h"

#include <iostream>

namespace
{

zarnekctl::ExitStatus run(const zarnekctl::Options& options)
{
    const auto installation = zarnekctl::Installation::ofThisProgram();
    switch (options.command) {
    case zarnekctl::Command::Discover:
        return discoverCommand(options, installation);
    case zarnekctl::Command::Monitor:
        return monitorCommand(options, installation);
    case zarnekctl::Command::Check:
        break;
    }
    return checkCommand(options, installation);
}

} // namespace

int main(int argc, char** argv)
{
    using zarnekctl::ExitStatus;
    try {
        zarnekctl::Options options;
        const auto finished = zarnekctl::parseCommandLine(argc, argv, options);
        const ExitStatus status = finished ? *finished : run(options);
        std::cout << std::flush;
        return zarnekctl::exitCode(status);
    } catch (const zarnekctl::Failure& failure) {
        std::cout << std::flush;
        std::cerr << "zarnekctl: " << failure.what() << '\n';
        for (const std::string& line : failure.log())
            std::cerr << "  " << line << '\n';
        return zarnekctl::exitCode(failure.status());
    } catch (const std::exception& exception) {
        std::cerr << "zarnekctl: " << exception.what() << '\n';
        return zarnekctl::exitCode(ExitStatus::PluginFailed);
    }
}
