// What the command line asks for.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_OPTIONS_H
#define ZARNEK_DEVKIT_ZARNEKCTL_OPTIONS_H

#include <optional>
#include <string>

namespace zarnekctl
{

enum class Command { Discover, Monitor, Check, Metrics, Report };

enum class OutputFormat { Standard, Tree, Table, Json, Dot, Text }; // Standard: the command's own

struct Options {
    Command command = Command::Discover;
    std::optional<std::string> scenario; // file, or name of a shipped one
    bool live = false;
    std::optional<std::string> sysfs;
    OutputFormat format = OutputFormat::Standard;
    std::optional<unsigned int> globalNumber;
    std::optional<unsigned int> polls;
    std::optional<double> interval;     // seconds
    std::optional<std::string> output;  // file instead of standard output
    std::optional<std::string> metrics; // files that monitoring renews
    std::optional<std::string> report;
    std::optional<std::string> config;
    std::optional<std::string> plugin;
    bool log = false;
    bool trace = false;
};

} // namespace zarnekctl

#endif
