#include "zarnekctl/cli/OptionTable.h"

namespace zarnekctl
{

namespace
{

constexpr CommandRow COMMANDS[] = {
    {Command::Discover, "discover", "discover, and show what the data engine then holds"},
    {Command::Monitor, "monitor", "discover, then show alerts and what they change"},
    {Command::Metrics, "metrics", "discover, and write what a Prometheus collector reads"},
    {Command::Report, "report", "discover, and write a page for a browser or a printer"},
    {Command::Check, "check", "look for mistakes in private.ini and MarvelAlertMapping.ini"},
};

constexpr CommandSet DISCOVER = setOf(Command::Discover);
constexpr CommandSet MONITOR = setOf(Command::Monitor);
constexpr CommandSet FORMATTED = DISCOVER | MONITOR;
constexpr CommandSet WRITERS = setOf(Command::Metrics) | setOf(Command::Report);
constexpr CommandSet RUNS = DISCOVER | WRITERS | MONITOR;
constexpr CommandSet ALL = RUNS | setOf(Command::Check);

const OptionRow OPTIONS[] = {
    {"--scenario", "FILE", RUNS, &Options::scenario, nullptr, "--live",
     "play the simulated system that FILE describes; a bare name means a shipped one, which is also what is "
     "played when no source is named"},
    {"--live", nullptr, RUNS, &Options::live, nullptr, nullptr,
     "play this machine: its whole disks and md arrays"},
    {"--sysfs", "DIR", RUNS, &Options::sysfs, "--live", nullptr, "read the machine from DIR instead of /sys"},
    {"--format", "FORMAT", FORMATTED, &Options::format, nullptr, nullptr, "form of the output"},
    {"--global-number", "N", RUNS, &Options::globalNumber, nullptr, nullptr,
     "global number of the first controller; 0 unless given"},
    {"--polls", "N", MONITOR, &Options::polls, nullptr, nullptr,
     "stop after N polls, at least 1; a scenario otherwise runs one poll past its end, anything else until "
     "Ctrl-C"},
    {"--interval", "SECONDS", MONITOR, &Options::interval, nullptr, nullptr,
     "pause between two polls, at most 86400 (a day); 0.5 for a scenario and 50 otherwise unless given"},
    {"--output", "FILE", WRITERS, &Options::output, nullptr, nullptr,
     "write to FILE, in one step, instead of standard output"},
    {"--metrics", "FILE", MONITOR, &Options::metrics, nullptr, nullptr,
     "write the metrics to FILE as well, anew after each poll"},
    {"--report", "FILE", MONITOR, &Options::report, nullptr, nullptr,
     "write the report, with the alerts, to FILE as well, anew after each poll"},
    {"--log", nullptr, RUNS, &Options::log, nullptr, nullptr,
     "show the plug-in's debug text on standard error as it comes"},
    {"--trace", nullptr, FORMATTED, &Options::trace, nullptr, "--format",
     "show every call and every debug line in order, instead of the result"},
    {"--config", "DIR", ALL, &Options::config, nullptr, nullptr,
     "folder of private.ini and MarvelAlertMapping.ini, instead of the user's own"},
    {"--plugin", "FILE", ALL, &Options::plugin, nullptr, nullptr,
     "the plug-in to load instead of the one beside this program"},
};

constexpr FormatRow FORMATS[] = {
    {"tree", OutputFormat::Tree, DISCOVER}, {"table", OutputFormat::Table, DISCOVER},
    {"text", OutputFormat::Text, MONITOR},  {"json", OutputFormat::Json, FORMATTED},
    {"dot", OutputFormat::Dot, DISCOVER},
};

} // namespace

devkit::Rows<CommandRow> commandRows()
{
    return COMMANDS;
}

devkit::Rows<OptionRow> optionRows()
{
    return OPTIONS;
}

devkit::Rows<FormatRow> formatRows()
{
    return FORMATS;
}

} // namespace zarnekctl
