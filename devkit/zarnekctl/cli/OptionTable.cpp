#include "zarnekctl/cli/OptionTable.h"

namespace zarnekctl
{

namespace
{

constexpr CommandRow COMMANDS[] = {
    {Command::Discover, "discover", "discover, and show what the data engine then holds"},
    {Command::Monitor, "monitor", "discover, then show alerts and what they change"},
    {Command::Check, "check", "look for mistakes in private.ini and MarvelAlertMapping.ini"},
};

const OptionRow OPTIONS[] = {
    {"--scenario", "FILE", true, true, false, &Options::scenario, nullptr, "--live",
     "play the simulated system that FILE describes; a bare name means a shipped one, which is also what is "
     "played when no source is named"},
    {"--live", nullptr, true, true, false, &Options::live, nullptr, nullptr,
     "play this machine: its whole disks and md arrays"},
    {"--sysfs", "DIR", true, true, false, &Options::sysfs, "--live", nullptr,
     "read the machine from DIR instead of /sys"},
    {"--format", "FORMAT", true, true, false, &Options::format, nullptr, nullptr, "form of the output"},
    {"--global-number", "N", true, true, false, &Options::globalNumber, nullptr, nullptr,
     "global number of the first controller; 0 unless given"},
    {"--polls", "N", false, true, false, &Options::polls, nullptr, nullptr,
     "stop after N polls, at least 1; a scenario otherwise runs one poll past its end, anything else until "
     "Ctrl-C"},
    {"--interval", "SECONDS", false, true, false, &Options::interval, nullptr, nullptr,
     "pause between two polls, at most 86400 (a day); 0.5 for a scenario and 50 otherwise unless given"},
    {"--log", nullptr, true, true, false, &Options::log, nullptr, nullptr,
     "show the plug-in's debug text on standard error as it comes"},
    {"--trace", nullptr, true, true, false, &Options::trace, nullptr, "--format",
     "show every call and every debug line in order, instead of the result"},
    {"--config", "DIR", true, true, true, &Options::config, nullptr, nullptr,
     "folder of private.ini and MarvelAlertMapping.ini, instead of the user's own"},
    {"--plugin", "FILE", true, true, true, &Options::plugin, nullptr, nullptr,
     "the plug-in to load instead of the one beside this program"},
};

constexpr FormatRow FORMATS[] = {
    {"tree", OutputFormat::Tree, true, false}, {"table", OutputFormat::Table, true, false},
    {"text", OutputFormat::Text, false, true}, {"json", OutputFormat::Json, true, true},
    {"dot", OutputFormat::Dot, true, false},
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

bool belongsTo(const OptionRow& row, Command command)
{
    switch (command) {
    case Command::Discover:
        return row.discover;
    case Command::Monitor:
        return row.monitor;
    case Command::Check:
        break;
    }
    return row.check;
}

} // namespace zarnekctl
